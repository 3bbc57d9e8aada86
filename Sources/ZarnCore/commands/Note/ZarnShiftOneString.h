// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/commands/ZarnMoveNotes.h>

namespace zarn::cmd {

/// Puts notes on the next string without changing their pitches; `Direction` is the number of
/// `Shift`. What they are tied to goes along.
template <unsigned Direction>
class ZARNCORE_EXPORT ShiftOneString final : public MoveNotes {
public:
    ShiftOneString();
    ~ShiftOneString() override;

    /// The notes of the range that have a string, as one: a note may take the place of another one
    /// that moves. False when the range has none, and when for one of them there is no next string,
    /// no such fret on it, or the string is held by a note that stays.
    bool init(Score *score, const ScoreModelRange &range);

private:
    bool takes(const MarkedPlace &place, const Note &note) const override;
    std::optional<NoteMove> moved(const MarkedPlace &place, const Note &note,
                                  const NotePosition &from) const override;
};

extern template class ShiftOneString<0>;
extern template class ShiftOneString<1>;

} // namespace zarn::cmd
