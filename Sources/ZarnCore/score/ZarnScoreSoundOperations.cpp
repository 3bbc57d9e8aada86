// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreSoundOperations.h>

#include <ZarnCore/commands/Effects/ZarnClearEffectChain.h>
#include <ZarnCore/commands/Effects/ZarnDeleteEffect.h>
#include <ZarnCore/commands/Effects/ZarnSetEffect.h>
#include <ZarnCore/commands/Effects/ZarnSetEffectBypass.h>
#include <ZarnCore/commands/Effects/ZarnSetEffectChain.h>
#include <ZarnCore/commands/Effects/ZarnSetEffectParameters.h>
#include <ZarnCore/commands/Effects/ZarnSwapEffects.h>
#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/Sounds/ZarnAddTrackSound.h>
#include <ZarnCore/commands/Sounds/ZarnRemoveTrackSound.h>
#include <ZarnCore/commands/Sounds/ZarnSetChannelStripParameter.h>
#include <ZarnCore/commands/Sounds/ZarnSetForcedSoundIndex.h>
#include <ZarnCore/commands/Sounds/ZarnSetMasterTrackVolumePan.h>
#include <ZarnCore/commands/Sounds/ZarnSetTrackSound.h>
#include <ZarnCore/commands/Sounds/ZarnSwapTrackSounds.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>

#include <utility>

namespace zarn {

bool ScoreSoundOperations::addTrackSound(unsigned track, const Sound &sound)
{
    return addTrackSound(track, std::make_shared<const Sound>(sound));
}

bool ScoreSoundOperations::addTrackSound(unsigned track, std::shared_ptr<const Sound> sound)
{
    return execute<cmd::AddTrackSound>(*this, track, std::move(sound));
}

bool ScoreSoundOperations::removeTrackSound(unsigned track, unsigned index)
{
    return execute<cmd::RemoveTrackSound>(*this, track, index);
}

bool ScoreSoundOperations::setTrackSound(unsigned track, unsigned index, const Sound &sound)
{
    return setTrackSound(track, index, std::make_shared<const Sound>(sound));
}

bool ScoreSoundOperations::setTrackSound(unsigned track, unsigned index,
                                         std::shared_ptr<const Sound> sound)
{
    return execute<cmd::SetTrackSound>(*this, track, index, std::move(sound));
}

bool ScoreSoundOperations::swapTrackSounds(unsigned track, unsigned first, unsigned second)
{
    return execute<cmd::SwapTrackSounds>(*this, track, first, second);
}

bool ScoreSoundOperations::setForcedSoundIndex(unsigned track, int index)
{
    return execute<cmd::SetForcedSoundIndex>(*this, track, index);
}

bool ScoreSoundOperations::setEffect(int track, int sound, unsigned slot, const Effect &effect)
{
    return execute<cmd::SetEffect>(*this, track, sound, slot, effect);
}

bool ScoreSoundOperations::setEffectBypass(int track, int sound, unsigned slot, bool isBypassed)
{
    return execute<cmd::SetEffectBypass>(*this, track, sound, slot, isBypassed);
}

bool ScoreSoundOperations::setEffectParameters(int track, int sound, unsigned slot,
                                               const std::vector<float> &values)
{
    return execute<cmd::SetEffectParameters>(*this, track, sound, slot, values);
}

bool ScoreSoundOperations::setEffectChain(int track, int sound, const EffectChain &chain)
{
    return execute<cmd::SetEffectChain>(*this, track, sound, chain);
}

bool ScoreSoundOperations::clearEffectChain(int track, int sound)
{
    return execute<cmd::ClearEffectChain>(*this, track, sound);
}

bool ScoreSoundOperations::deleteEffect(int track, int sound, unsigned slot)
{
    return execute<cmd::DeleteEffect>(*this, track, sound, slot);
}

bool ScoreSoundOperations::swapEffects(int track, int sound, unsigned first, unsigned second)
{
    return execute<cmd::SwapEffects>(*this, track, sound, first, second);
}

bool ScoreSoundOperations::removeMasterReverb()
{
    constexpr int master = -1;
    return deleteEffect(master, 0, Mastering::reverbSlot);
}

bool ScoreSoundOperations::setChannelStripParameter(int track, ChannelStripParameter parameter,
                                                    float value)
{
    return execute<cmd::SetChannelStripParameter>(*this, track, parameter, value);
}

bool ScoreSoundOperations::setMasterTrackVolumePan(const ZarnVolumePan &volumePan)
{
    return execute<cmd::SetMasterTrackVolumePan>(*this, volumePan);
}

} // namespace zarn
