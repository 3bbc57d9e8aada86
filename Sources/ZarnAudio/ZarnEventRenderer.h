// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnSynthesizer.h>
#include <ZarnAudio/ZarnTimedEvent.h>

#include <array>
#include <cstdint>
#include <vector>

namespace Halvec::audio {

/// Renders events at their frames: notes of banks begin exactly there (within a frame off their
/// root key), those of fonts within half a block of 64 frames. The end of a note, a bend or a
/// volume of a bank comes up to two blocks early. However many frames are asked for at a time, they
/// are the same.
///
/// Rendering neither allocates nor locks.
class ZARNAUDIO_EXPORT EventRenderer {
public:
    /// The synthesizer outlives the renderer and is its own alone. Events of one frame are done in
    /// the order of their kinds; a frame below 0 counts as 0.
    EventRenderer(Synthesizer &synthesizer, std::vector<TimedEvent> events);

    /// The next frames, left and right interleaved.
    void render(float *frames, std::int64_t count) noexcept;

    /// The frame that is rendered next, from 0 on.
    std::int64_t position() const noexcept { return _position; }

    /// Whether all events are done and nothing sounds any more but reverb.
    bool isDone() const noexcept;

private:
    std::int64_t blockOf(const TimedEvent &event) const noexcept;
    void renderBlock() noexcept;

    Synthesizer &_synthesizer;
    std::vector<TimedEvent> _events; ///< in the order in which they are applied
    std::size_t _next = 0;
    std::int64_t _block = 0;
    std::int64_t _position = 0;
    std::array<float, 2 * Synthesizer::blockFrames> _rendered{};
    std::size_t _taken = 0; ///< frames of the rendered block that are given out
};

} // namespace Halvec::audio
