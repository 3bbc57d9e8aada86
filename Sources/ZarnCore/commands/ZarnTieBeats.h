// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnReplaceBeats.h>

#include <map>

namespace zarn {

struct MarkedPlace;

/// Base of commands that tie notes to those of the beat in front, writing the notes where they are
/// missing, or untie them. Goes from the first beat to the last, so that chains grow; over bar
/// lines too. A note on a string takes the fret that is held there. What a tied note has as an
/// attack stays, but is not copied.
class ZARNCORE_EXPORT TieBeats : public ReplaceBeats {
protected:
    explicit TieBeats(const QString &name);
    ~TieBeats() override;

    /// False when nothing can be tied, or nothing is.
    bool prepare(Score *score, const ScoreModelRange &range, bool checked);

private:
    /// Whether the command is about a note that may be tied to the one in front.
    virtual bool isMeant(const MarkedPlace &place, const Note &note) const = 0;

    /// Whether a beat that lacks a held note gets a copy of it.
    virtual bool isCopied(const MarkedPlace &place, const Beat &beat, const Note &held) const = 0;

    /// New beats, by those that they are to replace: the last of them.
    using Made = std::map<const Beat *, std::shared_ptr<Beat>>;

    bool isPossible() const override;
    Replacements replacements() const override;
    void addSpan(const BeatSpan &span, Made &made, Replacements &all) const;
    Beats tied(const MarkedPlace &place, const Beat &beat, Beat &before, bool isNew) const;
    Beats untied(const MarkedPlace &place, const Beat &beat, Beat *before, bool isNew) const;

    bool _checked = false;
};

} // namespace zarn
