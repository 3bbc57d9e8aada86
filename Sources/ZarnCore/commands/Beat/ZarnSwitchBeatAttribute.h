// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Turns an attribute that beats have or have not on for all when one lacks it, else off for all.
class ZARNCORE_EXPORT SwitchBeatAttribute final : public SetByTable<Beat> {
public:
    SwitchBeatAttribute();
    ~SwitchBeatAttribute() override;

    /// The beats of the range that take the attribute. False when none does, and for an attribute
    /// that is no yes or no.
    bool init(Score *score, const ScoreModelRange &range, BeatAttribute id);

private:
    void begin(ScoreModel &model) override;
};

} // namespace zarn::cmd
