// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Effects/ZarnEffectChainCommand.h>

namespace zarn::cmd {

/// Replaces all effects of a chain. Sends `RequestEffectChainChange`.
class ZARNCORE_EXPORT SetEffectChain final : public EffectChainCommand {
public:
    SetEffectChain();
    ~SetEffectChain() override;

    /// See `EffectChainCommand::setPlace` for track and sound. False for effects with settings
    /// that are no finite numbers.
    bool init(Score *score, int track, int sound, const EffectChain &chain);

private:
    std::optional<EffectChain> changed(const EffectChain &chain) const override;
    void announceChange() override;

    EffectChain _chain;
};

} // namespace zarn::cmd
