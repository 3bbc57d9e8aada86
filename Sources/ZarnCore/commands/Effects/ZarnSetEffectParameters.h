// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Effects/ZarnEffectChainCommand.h>

#include <vector>

namespace zarn::cmd {

/// Turns all knobs of an effect. Sends `RequestEffectParametersChange`.
class ZARNCORE_EXPORT SetEffectParameters final : public EffectChainCommand {
public:
    SetEffectParameters();
    ~SetEffectParameters() override;

    /// See `EffectChainCommand::setPlace` for track and sound. False for an empty slot, for
    /// another number of values than the effect has knobs, and for what is no finite number.
    bool init(Score *score, int track, int sound, unsigned slot, const std::vector<float> &values);

private:
    std::optional<EffectChain> changed(const EffectChain &chain) const override;
    void announceChange() override;

    unsigned _slot = 0;
    std::vector<float> _values;
};

} // namespace zarn::cmd
