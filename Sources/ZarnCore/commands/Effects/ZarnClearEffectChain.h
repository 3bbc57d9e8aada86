// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Effects/ZarnEffectChainCommand.h>

namespace zarn::cmd {

/// Empties all slots of an effect chain. Sends `RequestEffectChainClear`, undo
/// `RequestEffectChainChange`.
class ZARNCORE_EXPORT ClearEffectChain final : public EffectChainCommand {
public:
    ClearEffectChain();
    ~ClearEffectChain() override;

    /// See `EffectChainCommand::setPlace` for track and sound. False for a chain without
    /// effects.
    bool init(Score *score, int track, int sound);

private:
    std::optional<EffectChain> changed(const EffectChain &chain) const override;
    void announceChange() override;
    void announceChangeBack() override;
};

} // namespace zarn::cmd
