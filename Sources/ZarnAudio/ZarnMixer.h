// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnTimedEvent.h>
#include <ZarnCore/instruments/effects/ZarnHVVolumePan.h>

#include <cstdint>
#include <vector>

namespace Halvec::audio {

class Synthesizer;

/// How the tracks of a score are mixed: level and place of each, by the law of constant power,
/// which of them are heard, and the level of them all.
class ZARNAUDIO_EXPORT Mixer {
public:
    struct Strip {
        HVVolumePan volumePan;
        bool isMuted = false;
        bool isSolo = false; ///< while one strip is solo, only those that are are heard
        std::vector<std::uint8_t> channels; ///< of the synthesizer, which play the track
    };

    Mixer() = default;

    std::vector<Strip> &strips() noexcept { return _strips; }
    const std::vector<Strip> &strips() const noexcept { return _strips; }

    /// Decibels for all of them, at most as much that a strip has 12 with it.
    double masterVolume() const noexcept { return _masterVolume; }
    void setMasterVolume(double decibels) noexcept { _masterVolume = decibels; }

    /// Whether a strip is neither muted nor left out because others are solo. A strip that is muted
    /// stays so when it is solo.
    bool isHeard(std::size_t strip) const noexcept;

    /// What brings a synthesizer to this mix, all at one frame.
    std::vector<TimedEvent> events(std::int64_t frame) const;

    /// Does it at once; takes nothing from the heap.
    void applyTo(Synthesizer &synthesizer) const noexcept;

private:
    bool hasSolo() const noexcept;
    template <class Take>
    void forEachEvent(std::int64_t frame, Take take) const;

    std::vector<Strip> _strips;
    double _masterVolume = 0;
};

} // namespace Halvec::audio
