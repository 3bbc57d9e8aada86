// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnPlanSound.h>
#include <ZarnAudio/ZarnSampleCache.h>
#include <filesystem/DiskFileSystem.h>
#include <streams/MemoryHeap.h>

#include <cstddef>
#include <map>
#include <string>

namespace Halvec::audio {

class Synthesizer;

/// The file of the installed bank that plays a note with a sound; empty when the sound's General
/// MIDI program is to play it.
///
/// The sound's patch, by the installed `SoundCatalogue`, names a bank for each element of its
/// instrument set: a pitched patch one for all keys, a drum kit one for the element that the key
/// plays in the set. A bank counts when its samples are there and its regions say what plays them.
ZARNAUDIO_EXPORT std::string bankOfNote(const zarn::Sound &sound, bool isPercussion, int key);

/// What synthesizers share that play installed banks: the memory of the samples. It outlives them.
class ZARNAUDIO_EXPORT Soundbanks {
public:
    static constexpr std::size_t usualBudget = std::size_t(512) << 20;

    /// Bytes that samples may take, taken when they are needed.
    explicit Soundbanks(std::size_t budget = usualBudget);
    ~Soundbanks();
    Soundbanks(const Soundbanks &) = delete;
    Soundbanks &operator=(const Soundbanks &) = delete;

    /// How a plan is played by the banks that a choice names, but for those that could not be
    /// loaded; null makes all of it General MIDI.
    PlanSound soundOf(const zarn::playback::PlaybackPlan &plan,
                      const PlanSound::BankChoice &bankOf);

    /// Has the banks of a plan play their channels; false when some cannot be loaded, which are not
    /// asked for again.
    bool load(Synthesizer &synthesizer, const PlanSound &sound);

    /// Why banks could not be loaded, by their files.
    const std::map<std::string, std::string> &refused() const noexcept { return _refused; }

private:
    filesystem::DiskFileSystem _files;
    streams::MemoryHeap _heap;
    SampleCache _cache;
    std::map<std::string, std::string> _refused;
};

} // namespace Halvec::audio
