// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Bar/ZarnSwapContent.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

namespace zarn::cmd {

/// Makes the voices of bars as long as the meter asks: puts rests behind those that are too short,
/// as the meter has them (a half rest for half a bar of 4/4), and takes rests off the end of those
/// that are too long. Place holders at the end become rests. Notes are neither cut nor removed: a
/// voice that is too long by notes stays so. Free time, simile bars and voices without anything
/// written are left alone. Sends `ModifyBarRange` for the bars that changed.
class ZARNCORE_EXPORT CompleteReduceBarsWithRests final : public SwapContent {
public:
    CompleteReduceBarsWithRests();
    ~CompleteReduceBarsWithRests() override;

    /// All bars of the range, whole. False when there is nothing to add or to take off.
    bool init(Score *score, const ScoreModelRange &range);

private:
    void plan(ContentSwap &swap) const override;

    ScoreModelRange _range;
};

} // namespace zarn::cmd
