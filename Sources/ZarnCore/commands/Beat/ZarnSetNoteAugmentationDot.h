// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnChangeRhythm.h>

namespace zarn::cmd {

/// Gives beats augmentation dots. Their note values and tuplets stay.
class ZARNCORE_EXPORT SetNoteAugmentationDot final : public ChangeRhythm {
public:
    SetNoteAugmentationDot();
    ~SetNoteAugmentationDot() override;

    /// No dots to three. False when the range holds no beat, and for more.
    bool init(Score *score, const ScoreModelRange &range, unsigned dots);

private:
    std::optional<RhythmValue> changed(const RhythmValue &rhythm) const override;

    unsigned _dots = 0;
};

} // namespace zarn::cmd
