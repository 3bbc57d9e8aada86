// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnTieBeats.h>

namespace zarn::cmd {

/// Ties notes to the ones in front of them: a note on a string takes the fret that is held there,
/// and a string that a place names, but that has no note there, takes a copy. See `TieBeats`.
class ZARNCORE_EXPORT SetNoteTied final : public TieBeats {
public:
    SetNoteTied();
    ~SetNoteTied() override;

    /// Without `checked` the notes are struck anew. False when nothing can be tied, or nothing is.
    bool init(Score *score, const ScoreModelRange &range, bool checked);

private:
    bool isMeant(const MarkedPlace &place, const Note &note) const override;
    bool isCopied(const MarkedPlace &place, const Beat &beat, const Note &held) const override;
};

} // namespace zarn::cmd
