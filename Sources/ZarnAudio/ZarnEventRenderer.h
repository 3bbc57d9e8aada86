// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnEventSequence.h>
#include <ZarnAudio/ZarnSynthesizer.h>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace Halvec::audio {

/// Renders events at their frames: notes of banks begin exactly there (within a frame off their
/// root key), those of fonts and bends within half a block of 64 frames. The end of a note or a
/// volume of a bank comes up to two blocks early. However many frames are asked for at a time, they
/// are the same, and where rendering starts in silence, they are those of the whole.
///
/// It can go to other places of its sequence, or to another sequence, while it renders. What holds
/// there (sounds, controllers, bends) holds then; notes that began before are not made up for.
/// Nothing here but the constructor allocates, and nothing locks.
class ZARNAUDIO_EXPORT EventRenderer {
public:
    /// What becomes of the notes that sound when rendering goes elsewhere.
    enum class Ringing {
        End,
        Hold, ///< those go on that the sequence has there too
    };

    /// The synthesizer outlives the renderer and is its own alone.
    EventRenderer(Synthesizer &synthesizer, std::vector<TimedEvent> events);

    /// Nothing to render yet.
    explicit EventRenderer(Synthesizer &synthesizer);
    ~EventRenderer();

    /// The next frames, left and right interleaved.
    void render(float *frames, std::int64_t count) noexcept;

    /// The frame of the sequence that is rendered next.
    std::int64_t position() const noexcept;

    /// How many of the next `count` frames follow one another in the sequence.
    std::int64_t straight(std::int64_t count) const noexcept;

    // A sequence was made for the synthesizer and lasts until the next one is there.

    /// Ends all sound at once and begins anew at a frame of a sequence.
    void start(const EventSequence &sequence, std::int64_t frame) noexcept;

    /// Goes on at a frame of a sequence at the end of the next block, two blocks from now at most:
    /// what sounds fades out.
    void jump(const EventSequence &sequence, std::int64_t frame, Ringing ringing) noexcept;

    /// From `end` on, goes on at `begin`, exactly, whenever it comes there. Nothing changes for a
    /// position behind the end; an end that is not a thousand frames behind the beginning means no
    /// loop.
    void setLoop(std::int64_t begin, std::int64_t end) noexcept;

    /// Whether all events are done and nothing sounds any more but reverb.
    bool isDone() const noexcept;

private:
    struct State;
    void begin(std::int64_t frame) noexcept;
    using Events = std::vector<TimedEvent>;

    void apply(const Events &events, std::size_t &next, std::int64_t end) noexcept;
    void apply(const TimedEvent &event, int phase) noexcept;
    void goOn(std::int64_t frame, std::int64_t at, Ringing ringing) noexcept;
    void restore(std::int64_t frame, Ringing ringing) noexcept;
    void renderBlock() noexcept;

    Synthesizer &_synthesizer;
    EventSequence _own;
    const EventSequence *_sequence;
    std::size_t _nextOfFonts = 0;
    std::size_t _nextOfBanks = 0;
    std::int64_t _loopBegin = 0;
    std::int64_t _loopEnd = 0;

    // Two ways of counting frames: as they are rendered, and those of the sequence. What is
    // rendered from `_turn` on is `_shift` frames behind the sequence, before that `_shiftBefore`.
    std::int64_t _block = 0;
    std::int64_t _rendering = 0;
    std::int64_t _turn = 0;
    std::int64_t _shift = 0;
    std::int64_t _shiftBefore = 0;

    std::array<float, 2 * Synthesizer::blockFrames> _rendered{};
    std::size_t _taken = 0;        ///< frames of the rendered block that are given out
    std::unique_ptr<State> _state; ///< of the channels
};

} // namespace Halvec::audio
