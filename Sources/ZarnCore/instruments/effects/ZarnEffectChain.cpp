// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/effects/ZarnEffectChain.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn {

const Effect &EffectChain::effect(unsigned slot) const noexcept
{
    static const Effect none;
    return slot < _slots.size() ? _slots[slot] : none;
}

void EffectChain::setEffect(unsigned slot, const Effect &effect)
{
    ZARN_ASSERT_IN("zarn::EffectChain::setEffect", slot < maximumSlotCount);
    // A copy first: the effect may be one of this chain's own. An empty slot keeps nothing, not
    // even a name: documents do not say what stood there.
    Effect copy = effect.isEmpty() ? Effect() : effect;
    if (slot >= _slots.size())
        _slots.resize(slot + 1);
    _slots[slot] = std::move(copy);
    while (!_slots.empty() && _slots.back().isEmpty())
        _slots.pop_back();
}

void EffectChain::setParameter(unsigned slot, unsigned parameter, float value)
{
    ZARN_ASSERT_IN("zarn::EffectChain::setParameter", slot < slotCount());
    _slots[slot].setParameter(parameter, value);
}

void EffectChain::setBypassed(unsigned slot, bool bypassed)
{
    ZARN_ASSERT_IN("zarn::EffectChain::setBypassed", slot < slotCount());
    _slots[slot].setBypassed(bypassed);
}

void EffectChain::removeEffect(unsigned slot)
{
    if (slot < _slots.size())
        setEffect(slot, Effect());
}

void EffectChain::swapEffects(unsigned first, unsigned second)
{
    const Effect moved = effect(first);
    setEffect(first, effect(second));
    setEffect(second, moved);
}

} // namespace zarn
