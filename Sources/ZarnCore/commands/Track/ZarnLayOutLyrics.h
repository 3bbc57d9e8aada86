// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/attributes/ZarnSyllable.h>
#include <ZarnCore/model/lyrics/ZarnLyricLine.h>

#include <string>
#include <vector>

namespace zarn {

class Track;

/// Base of commands that lay a line of lyrics out under the first staff of a track. Text for which
/// there are no notes waits in the track. Sends `LyricsChanged` and `ModifyBarRange`.
class ZARNCORE_EXPORT LayOutLyrics : public ScoreCommand {
protected:
    using ScoreCommand::ScoreCommand;

    /// Remembers the line, 0 to 4, and the bar from which on it is laid out. False when one of
    /// them is not there, or there is nothing to lay out.
    bool prepare(Score *score, unsigned track, unsigned line, unsigned firstBar);

    unsigned firstBar() const noexcept { return _firstBar; }

    /// The layout of a line that is there; nothing when there is nothing to lay out.
    virtual std::optional<LyricLine::Layout> layout(const LyricLine &line) const = 0;

private:
    /// A beat that changed, and what it sang.
    struct Place {
        unsigned bar;
        unsigned beat;
        Syllables before; ///< of all lines
    };

    void apply() override;
    void revert() override;
    void announceApplied() override { announce(); }
    void announceReverted() override { announce(); }
    void announce();
    Track *track() const;

    unsigned _track = 0;
    unsigned _line = 0;
    unsigned _firstBar = 0;
    unsigned _voice = 0;
    std::vector<Place> _changed;
    std::string _leftOver;
};

} // namespace zarn
