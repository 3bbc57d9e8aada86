// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnTieExistingNotes.h>

namespace zarn::cmd::deprecated {

/// The older form of `cmd::SetNoteTied`: ties notes that have a partner of the same pitch and place
/// in the beat in front, and writes none.
class ZARNCORE_EXPORT SetNoteTied final : public TieExistingNotes {
public:
    SetNoteTied();
    ~SetNoteTied() override;

    /// The notes that the range means. False when no note has a partner, or without `checked` none
    /// is tied.
    bool init(Score *score, const ScoreModelRange &range, bool checked);
};

} // namespace zarn::cmd::deprecated
