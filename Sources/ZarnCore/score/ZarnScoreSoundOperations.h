// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesEditing.h>

#include <memory>
#include <vector>

namespace zarn {

class Effect;
class EffectChain;
class Sound;
class ZarnVolumePan;

/// What can be done to the sounds of a score, their effects and the mixer. Each answers whether it
/// was done: what cannot be done is logged and changes nothing.
class ZARNCORE_EXPORT ScoreSoundOperations {
public:
    /// Adds a sound behind those that a track can switch between.
    bool addTrackSound(unsigned track, const Sound &sound);
    bool addTrackSound(unsigned track, std::shared_ptr<const Sound> sound);
    bool removeTrackSound(unsigned track, unsigned index);

    /// Puts another sound in the place of one; what switches to that one switches to it.
    bool setTrackSound(unsigned track, unsigned index, const Sound &sound);
    bool setTrackSound(unsigned track, unsigned index, std::shared_ptr<const Sound> sound);
    bool swapTrackSounds(unsigned track, unsigned first, unsigned second);

    /// Plays a track with one sound throughout; -1 leaves it to the automations again.
    bool setForcedSoundIndex(unsigned track, int index);

    // Effects: those of the mastering for the track -1, whatever the sound, else those of a sound
    // of the track; the sound -1 is the one that the track is forced to play with, or its first.

    bool setEffect(int track, int sound, unsigned slot, const Effect &effect);
    bool setEffectBypass(int track, int sound, unsigned slot, bool isBypassed);

    /// Turns all knobs of an effect, as many as it has.
    bool setEffectParameters(int track, int sound, unsigned slot, const std::vector<float> &values);
    bool setEffectChain(int track, int sound, const EffectChain &chain);
    bool clearEffectChain(int track, int sound);

    /// Empties a slot; the effects in the others stay there.
    bool deleteEffect(int track, int sound, unsigned slot);
    bool swapEffects(int track, int sound, unsigned first, unsigned second);

    /// Removes the reverb that a new score has in its mastering.
    bool removeMasterReverb();

    // The mixer.

    /// Sets the volume, from 0 to 1, or the panning, from -1 to 1, of a track, or with -1 of the
    /// master track.
    bool setChannelStripParameter(int track, ChannelStripParameter parameter, float value);
    bool setMasterTrackVolumePan(const ZarnVolumePan &volumePan);

protected:
    ScoreSoundOperations() = default;
    ~ScoreSoundOperations() = default;
};

} // namespace zarn
