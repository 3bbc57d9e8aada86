// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Effects/ZarnDeleteEffect.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

DeleteEffect::DeleteEffect() : EffectChainCommand(QStringLiteral("DeleteEffect")) { }
DeleteEffect::~DeleteEffect() = default;

bool DeleteEffect::init(Score *score, int track, int sound, unsigned slot)
{
    ZARN_ASSERT_IN("zarn::cmd::DeleteEffect::init", score != NULL);
    setPlace(score, track, sound);
    addArg(QStringLiteral("Index"), QString::number(slot));
    _slot = slot;
    return slot < EffectChain::maximumSlotCount && expectChain();
}

std::optional<EffectChain> DeleteEffect::changed(const EffectChain &chain) const
{
    if (chain.effect(_slot).isEmpty())
        return std::nullopt;
    EffectChain after = chain;
    after.removeEffect(_slot);
    return after;
}

void DeleteEffect::announceChange()
{
    score().notify(this, evt::RequestEffectDelete(trackIndex(), static_cast<int>(_slot)));
}

void DeleteEffect::announceChangeBack()
{
    score().notify(this, evt::RequestEffectChange(trackIndex(), static_cast<int>(_slot)));
}

} // namespace zarn::cmd
