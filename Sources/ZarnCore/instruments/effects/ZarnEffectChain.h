// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/effects/ZarnEffect.h>

#include <vector>

namespace zarn {

/// Effects in the order in which the sound runs through them, in numbered slots from 0.
///
/// A slot may be empty: the sound passes it, and the effects behind keep their slots, because
/// automations and events address effects by slot. Slots past the last effect are not stored.
class ZARNCORE_EXPORT EffectChain {
public:
    /// More slots than any chain needs; a slot number at or above it is an error.
    static constexpr unsigned maximumSlotCount = 32;

    /// Slots up to and with the last effect.
    unsigned slotCount() const noexcept { return static_cast<unsigned>(_slots.size()); }
    bool isEmpty() const noexcept { return _slots.empty(); }

    /// The effect in a slot; the empty effect when the slot holds none.
    const Effect &effect(unsigned slot) const noexcept;

    /// Puts an effect into a slot in place of what it held. Raises a `CoreException` for a slot
    /// past the maximum.
    void setEffect(unsigned slot, const Effect &effect);

    /// Turns a knob of an effect; raises a `CoreException` when there is no such knob.
    void setParameter(unsigned slot, unsigned parameter, float value);
    void setBypassed(unsigned slot, bool bypassed);

    /// Empties a slot; the others stay where they are.
    void removeEffect(unsigned slot);
    void swapEffects(unsigned first, unsigned second);
    void clear() noexcept { _slots.clear(); }

    friend bool operator==(const EffectChain &a, const EffectChain &b) noexcept
    {
        return a._slots == b._slots;
    }
    friend bool operator!=(const EffectChain &a, const EffectChain &b) noexcept
    {
        return !(a == b);
    }
    /// For sorted containers.
    friend bool operator<(const EffectChain &a, const EffectChain &b) noexcept
    {
        return a._slots < b._slots;
    }

private:
    std::vector<Effect> _slots;
};

} // namespace zarn
