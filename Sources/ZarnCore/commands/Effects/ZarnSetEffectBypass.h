// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Effects/ZarnEffectChainCommand.h>

namespace zarn::cmd {

/// Lets the sound pass an effect by, or lets it be heard again. Sends `RequestEffectBypassChange`.
class ZARNCORE_EXPORT SetEffectBypass final : public EffectChainCommand {
public:
    SetEffectBypass();
    ~SetEffectBypass() override;

    /// See `EffectChainCommand::setPlace` for track and sound. False for an empty slot.
    bool init(Score *score, int track, int sound, unsigned slot, bool isBypassed);

private:
    std::optional<EffectChain> changed(const EffectChain &chain) const override;
    void announceChange() override;
    void announceChangeBack() override;

    unsigned _slot = 0;
    bool _isBypassed = false;
};

} // namespace zarn::cmd
