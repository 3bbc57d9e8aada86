// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Gives notes one articulation, or takes it off. What does not stand beside it goes: signs of the
/// same group, and the mark of a ghost note.
class ZARNCORE_EXPORT SetNoteAccentFlag final : public SetByTable<Note> {
public:
    SetNoteAccentFlag();
    ~SetNoteAccentFlag() override;

    /// False for anything but one flag, and when the range holds no note.
    bool init(Score *score, const ScoreModelRange &range, AccentFlag flag, bool checked);

private:
    void change(const MarkedPlace &place, Beat &beat, Note &note) override;

    AccentFlag _flag = AccentFlag::Staccato;
    bool _isChecked = false;
};

} // namespace zarn::cmd
