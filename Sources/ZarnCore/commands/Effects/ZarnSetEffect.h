// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Effects/ZarnEffectChainCommand.h>

namespace zarn::cmd {

/// Puts an effect into a slot of an effect chain, in place of what it held. Sends
/// `RequestEffectChange`.
class ZARNCORE_EXPORT SetEffect final : public EffectChainCommand {
public:
    SetEffect();
    ~SetEffect() override;

    /// See `EffectChainCommand::setPlace` for track and sound. False without an effect, for one
    /// with settings that are no finite numbers, and for a slot past the last.
    bool init(Score *score, int track, int sound, unsigned slot, const Effect &effect);

private:
    std::optional<EffectChain> changed(const EffectChain &chain) const override;
    void announceChange() override;

    unsigned _slot = 0;
    Effect _effect;
};

} // namespace zarn::cmd
