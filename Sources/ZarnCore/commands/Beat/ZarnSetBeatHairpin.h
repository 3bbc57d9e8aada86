// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/commands/ZarnChangeLinks.h>

namespace zarn::cmd {

/// Draws a hairpin over the beats of a range, one for each voice; a swell lies on each beat by
/// itself. One of the same kind that touches it, in front or behind, stays another one.
class ZARNCORE_EXPORT SetBeatHairpin final : public ChangeLinks {
public:
    SetBeatHairpin();
    ~SetBeatHairpin() override;

    /// `NoHairpin` takes hairpins off. False when the range holds no beat.
    bool init(Score *score, const ScoreModelRange &range, Hairpin hairpin);

private:
    bool takes(const Line &line) const override;
    void change(const Line &line) override;

    Hairpin _hairpin = Hairpin::NoHairpin;
};

} // namespace zarn::cmd
