// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnRespellNotes.h>

namespace zarn::cmd {

/// Spells notes in the next way that their pitches can be written, in a circle: C sharp, D flat, B
/// double sharp. The plainest come first. What they are tied to goes along.
class ZARNCORE_EXPORT SwitchNoteAccidental final : public RespellNotes {
public:
    SwitchNoteAccidental();
    ~SwitchNoteAccidental() override;

    /// The pitched notes of the range; false when it has none.
    bool init(Score *score, const ScoreModelRange &range);

private:
    std::optional<NoteMove> moved(const MarkedPlace &place, const Note &note,
                                  const NotePosition &from) const override;
};

} // namespace zarn::cmd
