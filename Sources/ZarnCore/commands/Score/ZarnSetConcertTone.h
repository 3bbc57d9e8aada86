// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>

namespace zarn::cmd {

/// Sets the frequency of the a' that all instruments tune to. Sends `ConcertToneChanged`.
class ZARNCORE_EXPORT SetConcertTone final : public ScoreCommand {
public:
    SetConcertTone();
    ~SetConcertTone() override;

    /// In hertz; false outside `ScoreModel::LowestConcertTone` to `HighestConcertTone`.
    bool init(Score *score, double hertz);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    double _tone = 0;
    double _before = 0;
};

} // namespace zarn::cmd
