// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnMasterSound.h>

#include <ZarnCore/instruments/effects/ZarnMastering.h>

#include <algorithm>

namespace Halvec::audio {

MasterSound masterSoundOf(const zarn::Mastering &mastering)
{
    MasterSound sound;
    // A balance: the middle leaves both sides as they are.
    const zarn::ZarnVolumePan &strip = mastering.volumePan();
    sound.left = strip.volume() * std::min(1.0F, 1 - strip.pan());
    sound.right = strip.volume() * std::min(1.0F, 1 + strip.pan());
    const zarn::Effect usual = zarn::Mastering::makeReverb();
    const zarn::EffectChain &chain = mastering.effectChain();
    double level = 0;
    for (unsigned slot = 0; slot < chain.slotCount(); ++slot) {
        const zarn::Effect &effect = chain.effect(slot);
        if (effect.identifier() != usual.identifier() || effect.isBypassed())
            continue;
        level = sound.reverbLevel * static_cast<double>(effect.parameter(0) / usual.parameter(0));
        sound.roomSize *= static_cast<double>(effect.parameter(1) / usual.parameter(1));
    }
    sound.reverbLevel = std::clamp(level, 0.0, 1.0);
    sound.roomSize = std::clamp(sound.roomSize, 0.0, 1.0);
    return sound;
}

} // namespace Halvec::audio
