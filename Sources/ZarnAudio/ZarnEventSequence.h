// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnTimedEvent.h>

#include <vector>

namespace Halvec::audio {

class Synthesizer;

/// Events in the order in which a synthesizer does them. It never changes, so that any number of
/// threads may read it.
class ZARNAUDIO_EXPORT EventSequence {
public:
    EventSequence() = default;

    /// For the banks that the synthesizer has now. Events of one frame are done in the order of
    /// their kinds; a frame below 0 counts as 0.
    EventSequence(std::vector<TimedEvent> events, const Synthesizer &synthesizer);

    // Those of channels that a font plays and those of channels with a bank, which wait for
    // different blocks.

    const std::vector<TimedEvent> &ofFonts() const noexcept { return _ofFonts; }
    const std::vector<TimedEvent> &ofBanks() const noexcept { return _ofBanks; }

private:
    std::vector<TimedEvent> _ofFonts;
    std::vector<TimedEvent> _ofBanks;
};

} // namespace Halvec::audio
