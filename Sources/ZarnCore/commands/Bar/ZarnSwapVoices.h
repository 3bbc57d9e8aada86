// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Bar/ZarnSwapContent.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

namespace zarn::cmd {

/// Exchanges two voices of bars. Ties into the bars and out of them are undone where they meet
/// other notes. Sends `ModifyBarRange`, or `ModifyBarRangeAllTracks` for a range over all tracks.
class ZARNCORE_EXPORT SwapVoices final : public SwapContent {
public:
    SwapVoices();
    ~SwapVoices() override;

    /// All bars of the range, whole. False for one voice twice, and when both are empty everywhere.
    bool init(Score *score, const ScoreModelRange &range, unsigned voice, unsigned other);

private:
    void plan(ContentSwap &swap) const override;

    ScoreModelRange _range;
    unsigned _voice = 0;
    unsigned _other = 0;
};

} // namespace zarn::cmd
