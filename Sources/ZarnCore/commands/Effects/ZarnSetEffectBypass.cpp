// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Effects/ZarnSetEffectBypass.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

SetEffectBypass::SetEffectBypass() : EffectChainCommand(QStringLiteral("SetEffectBypass")) { }
SetEffectBypass::~SetEffectBypass() = default;

bool SetEffectBypass::init(Score *score, int track, int sound, unsigned slot, bool isBypassed)
{
    ZARN_ASSERT_IN("zarn::cmd::SetEffectBypass::init", score != NULL);
    setPlace(score, track, sound);
    addArg(QStringLiteral("Index"), QString::number(slot));
    addArg(QStringLiteral("Bypass"), isBypassed ? QStringLiteral("true") : QStringLiteral("false"));
    _slot = slot;
    _isBypassed = isBypassed;
    return slot < EffectChain::maximumSlotCount && expectChain();
}

std::optional<EffectChain> SetEffectBypass::changed(const EffectChain &chain) const
{
    if (chain.effect(_slot).isEmpty())
        return std::nullopt;
    EffectChain after = chain;
    after.setBypassed(_slot, _isBypassed);
    return after;
}

void SetEffectBypass::announceChange()
{
    score().notify(
        this, evt::RequestEffectBypassChange(trackIndex(), static_cast<int>(_slot), _isBypassed));
}

void SetEffectBypass::announceChangeBack()
{
    score().notify(this,
                   evt::RequestEffectBypassChange(trackIndex(), static_cast<int>(_slot),
                                                  before().effect(_slot).isBypassed()));
}

} // namespace zarn::cmd
