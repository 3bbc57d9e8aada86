// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnTieExistingNotes.h>

namespace zarn::cmd::deprecated {

/// The older form of `cmd::SetBeatTied`: ties notes that have a partner of the same pitch and place
/// in the beat in front, and writes none.
class ZARNCORE_EXPORT SetBeatTied final : public TieExistingNotes {
public:
    SetBeatTied();
    ~SetBeatTied() override;

    /// The beats of the range, whole. False when no note has a partner, or without `checked` none
    /// is tied.
    bool init(Score *score, const ScoreModelRange &range, bool checked);
};

} // namespace zarn::cmd::deprecated
