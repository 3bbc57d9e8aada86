// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Effects/ZarnEffectChainCommand.h>

namespace zarn::cmd {

/// Empties a slot of an effect chain; the effects in the other slots stay there. Sends
/// `RequestEffectDelete`, undo `RequestEffectChange`.
class ZARNCORE_EXPORT DeleteEffect final : public EffectChainCommand {
public:
    DeleteEffect();
    ~DeleteEffect() override;

    /// See `EffectChainCommand::setPlace` for track and sound. False for a slot without an
    /// effect.
    bool init(Score *score, int track, int sound, unsigned slot);

private:
    std::optional<EffectChain> changed(const EffectChain &chain) const override;
    void announceChange() override;
    void announceChangeBack() override;

    unsigned _slot = 0;
};

} // namespace zarn::cmd
