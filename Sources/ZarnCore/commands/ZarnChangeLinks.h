// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnKeptRange.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <vector>

namespace zarn {

class Beat;

/// Base of commands that join the beats of a range to each other, voice by voice: what is under one
/// slur or hairpin. The beats around the range are kept for undo too. Sends `ModifyBarRange`, or
/// `ModifyBarRangeAllTracks` for a range over all tracks; `ModifyBarRange` for others beside.
class ZARNCORE_EXPORT ChangeLinks : public ScoreCommand {
protected:
    /// Beats of one voice that follow each other, over bar lines too, and their neighbours, which
    /// are null where there is none.
    struct Line {
        Beat *before = nullptr;
        std::vector<Beat *> beats;
        Beat *behind = nullptr;
    };

    explicit ChangeLinks(const QString &name);
    ~ChangeLinks() override;

    /// False when no line of the range takes the change.
    bool prepare(Score *score, const ScoreModelRange &range);

    virtual bool takes(const Line &line) const = 0;
    virtual void change(const Line &line) = 0;

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    std::vector<Line> lines(const std::vector<BeatSpan> &spans) const;
    std::vector<Line> takingLines(const std::vector<BeatSpan> &spans) const;

    ScoreModelRange _range;
    KeptRange _links;
};

} // namespace zarn
