// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnMoveNotes.h>

namespace zarn::cmd {

/// Moves notes up or down by semitones; the key signature spells them. On strings they go to other
/// frets and, where their string does not reach, to the free string that needs the lowest fret.
/// What they are tied to goes along.
class ZARNCORE_EXPORT ShiftSemitone final : public MoveNotes {
public:
    static constexpr int MostSemitones = 12;

    ShiftSemitone();
    ~ShiftSemitone() override;

    /// The pitched notes of the range. False for 0 and more semitones, when the range has none, and
    /// when one of them would leave the keys or has no string to go to.
    bool init(Score *score, const ScoreModelRange &range, int semitones);

private:
    bool takes(const MarkedPlace &place, const Note &note) const override;
    std::optional<NoteMove> moved(const MarkedPlace &place, const Note &note,
                                  const NotePosition &from) const override;

    int _semitones = 0;
};

} // namespace zarn::cmd
