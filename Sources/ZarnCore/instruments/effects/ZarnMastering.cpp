// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/effects/ZarnMastering.h>

namespace zarn {

Mastering Mastering::makeDefault()
{
    Mastering mastering;
    mastering._effectChain.setEffect(reverbSlot, makeReverb());
    return mastering;
}

Effect Mastering::makeReverb()
{
    return Effect("masterReverb", "Reverb", {0.76f, 0.5f});
}

} // namespace zarn
