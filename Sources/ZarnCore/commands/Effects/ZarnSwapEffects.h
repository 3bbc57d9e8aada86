// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Effects/ZarnEffectChainCommand.h>

namespace zarn::cmd {

/// Lets the contents of two slots of an effect chain change places; one of them may be empty.
/// Automations drive parameters and not slots: they stay. Sends `RequestEffectsSwap`.
class ZARNCORE_EXPORT SwapEffects final : public EffectChainCommand {
public:
    SwapEffects();
    ~SwapEffects() override;

    /// See `EffectChainCommand::setPlace` for track and sound. False for one slot twice, and when
    /// both are empty.
    bool init(Score *score, int track, int sound, unsigned first, unsigned second);

private:
    std::optional<EffectChain> changed(const EffectChain &chain) const override;
    void announceChange() override;

    unsigned _first = 0;
    unsigned _second = 0;
};

} // namespace zarn::cmd
