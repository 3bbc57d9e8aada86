// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/instruments/effects/ZarnEffect.h>

namespace zarn::cmd {

/// Empties a slot of the mastering's effect chain; the effects in the other slots stay. Sends
/// `RequestEffectDelete`, undo `RequestEffectChange`; for the slot of the master reverb
/// `MasteringReverbChanged` too.
class ZARNCORE_EXPORT DeleteEffect final : public ScoreCommand {
public:
    DeleteEffect();
    ~DeleteEffect() override;

    /// False for a slot without an effect.
    bool init(Score *score, unsigned slot);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool isPossible() const;
    void announceReverb();

    unsigned _slot = 0;
    Effect _removed;
};

} // namespace zarn::cmd
