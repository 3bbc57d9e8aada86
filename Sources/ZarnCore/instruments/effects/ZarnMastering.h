// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/effects/ZarnEffectChain.h>
#include <ZarnCore/instruments/effects/ZarnVolumePan.h>

namespace zarn {

/// What the whole mix passes before it is heard: an effect chain, then level and balance.
class ZARNCORE_EXPORT Mastering {
public:
    /// Slot of the master reverb in the effect chain.
    static constexpr unsigned reverbSlot = 3;

    /// No effects, unchanged level.
    Mastering() = default;

    /// What a new score has: the master reverb in its slot.
    static Mastering makeDefault();

    /// The master reverb as new scores have it: parameter 0, the mix, is 0.76, and 1, the decay,
    /// is 0.5.
    static Effect makeReverb();

    const EffectChain &effectChain() const noexcept { return _effectChain; }
    EffectChain &mutableEffectChain() noexcept { return _effectChain; }
    void setEffectChain(const EffectChain &chain) { _effectChain = chain; }

    const ZarnVolumePan &volumePan() const noexcept { return _volumePan; }
    void setVolumePan(const ZarnVolumePan &volumePan) noexcept { _volumePan = volumePan; }

    friend bool operator==(const Mastering &a, const Mastering &b) noexcept
    {
        return a._effectChain == b._effectChain && a._volumePan == b._volumePan;
    }
    friend bool operator!=(const Mastering &a, const Mastering &b) noexcept { return !(a == b); }

private:
    EffectChain _effectChain;
    ZarnVolumePan _volumePan;
};

} // namespace zarn
