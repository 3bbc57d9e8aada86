// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Effects/ZarnSetEffect.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

SetEffect::SetEffect() : EffectChainCommand(QStringLiteral("SetEffect")) { }
SetEffect::~SetEffect() = default;

bool SetEffect::init(Score *score, int track, int sound, unsigned slot, const Effect &effect)
{
    ZARN_ASSERT_IN("zarn::cmd::SetEffect::init", score != NULL);
    setPlace(score, track, sound);
    addArg(QStringLiteral("Index"), QString::number(slot));
    addArg(QStringLiteral("Type"), QString::fromStdString(effect.identifier()));
    _slot = slot;
    _effect = effect;
    return slot < EffectChain::maximumSlotCount && !effect.isEmpty() && effect.isFinite()
        && expectChain();
}

std::optional<EffectChain> SetEffect::changed(const EffectChain &chain) const
{
    EffectChain after = chain;
    after.setEffect(_slot, _effect);
    return after;
}

void SetEffect::announceChange()
{
    score().notify(this, evt::RequestEffectChange(trackIndex(), static_cast<int>(_slot)));
}

} // namespace zarn::cmd
