// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Bends fretted notes, or with no bend bends them no more. A bend that is held or released
/// continues one: it is for notes tied to a note that ends bent.
class ZARNCORE_EXPORT SetStringedNoteBend final : public SetByTable<Note> {
public:
    SetStringedNoteBend();
    ~SetStringedNoteBend() override;

    /// False when the range holds no note that can be bent so; dead notes cannot.
    bool init(Score *score, const ScoreModelRange &range, const Bend &bend);

private:
    bool takes(const MarkedPlace &place, const Beat &beat, const Note &note) const override;
};

} // namespace zarn::cmd
