// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Bar/ZarnSwapContent.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

namespace zarn::cmd {

/// Moves beats to another voice of their bars, at the same time. Rests take their place, or their
/// voice goes when nothing else is written in it. In the other voice rests and place holders give
/// way, and time in front that is not written there becomes place holders. Ties into the moved
/// stretch and out of it are undone. Sends `ModifyBarRange` for the bars.
class ZARNCORE_EXPORT MoveVoice final : public SwapContent {
public:
    MoveVoice();
    ~MoveVoice() override;

    /// The beats of one voice. False when the range selects none, beats of several voices of a bar
    /// or of the voice itself, and when notes of that voice are in the way.
    bool init(Score *score, const ScoreModelRange &range, unsigned voice);

private:
    void plan(ContentSwap &swap) const override;
    bool planBar(ContentSwap &swap, const BeatSpan &span) const;

    ScoreModelRange _range;
    unsigned _voice = 0;
};

} // namespace zarn::cmd
