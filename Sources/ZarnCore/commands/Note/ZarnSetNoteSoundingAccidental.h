// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnRespellNotes.h>
#include <ZarnCore/music/ZarnNoteAccidental.h>

namespace zarn::cmd {

/// Gives notes an accidental: letter and octave stay, the pitch follows, so that B sharp sounds an
/// octave above the C below it. On strings they go where `ShiftSemitone` would put them. What they
/// are tied to goes along.
class ZARNCORE_EXPORT SetNoteSoundingAccidental final : public RespellNotes {
public:
    SetNoteSoundingAccidental();
    ~SetNoteSoundingAccidental() override;

    /// The pitched notes of the range. False for what is no accidental, when the range has none,
    /// and when one of them would leave the keys or has no string to go to.
    bool init(Score *score, const ScoreModelRange &range, NoteAccidental accidental);

private:
    std::optional<NoteMove> moved(const MarkedPlace &place, const Note &note,
                                  const NotePosition &from) const override;

    NoteAccidental _accidental;
};

} // namespace zarn::cmd
