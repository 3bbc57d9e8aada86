// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Effects/ZarnSwapEffects.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>

namespace zarn::cmd {

SwapEffects::SwapEffects() : EffectChainCommand(QStringLiteral("SwapEffects")) { }
SwapEffects::~SwapEffects() = default;

bool SwapEffects::init(Score *score, int track, int sound, unsigned first, unsigned second)
{
    ZARN_ASSERT_IN("zarn::cmd::SwapEffects::init", score != NULL);
    setPlace(score, track, sound);
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Second"), QString::number(second));
    _first = first;
    _second = second;
    return first != second && std::max(first, second) < EffectChain::maximumSlotCount
        && expectChain();
}

std::optional<EffectChain> SwapEffects::changed(const EffectChain &chain) const
{
    if (chain.effect(_first).isEmpty() && chain.effect(_second).isEmpty())
        return std::nullopt;
    EffectChain after = chain;
    after.swapEffects(_first, _second);
    return after;
}

void SwapEffects::announceChange()
{
    score().notify(
        this,
        evt::RequestEffectsSwap(trackIndex(), static_cast<int>(_first), static_cast<int>(_second)));
}

} // namespace zarn::cmd
