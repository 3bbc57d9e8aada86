// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Gives notes a turn or a mordent, or takes ornaments off. Takes a trill off.
class ZARNCORE_EXPORT SetNoteOrnament final : public SetByTable<Note> {
public:
    SetNoteOrnament();
    ~SetNoteOrnament() override;

    /// False when the range holds no note of a pitched track, and for no ornament to be put on.
    bool init(Score *score, const ScoreModelRange &range, Ornament ornament, bool checked);
};

} // namespace zarn::cmd
