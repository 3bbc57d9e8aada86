// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnAudio/ZarnTimedEvent.h>

#include <memory>
#include <string>

namespace streams {
class BankArchive;
}

namespace Halvec::audio {

class SampleCache;

/// Plays notes on channels, by a General MIDI sound font (SF2, SF3) or by sound banks, in stereo.
///
/// Loading allocates and reads files. What comes after, applying events and rendering, neither
/// allocates nor locks, on one thread at a time.
class ZARNAUDIO_EXPORT Synthesizer {
public:
    /// FluidSynth has them in sixteens, and takes the number 255 for none.
    static constexpr int mostChannels = 240;

    struct Settings {
        int rate = 44100;      ///< frames per second, 8000 to 96000
        int channels = 16;     ///< 1 to `mostChannels`
        int polyphony = 256;   ///< voices that sound at once; the least audible one goes first
        bool hasReverb = true; ///< what fonts and controller 91 send to it
        bool hasChorus = true; ///< what fonts and controller 93 send to it
    };

    /// Frames that are rendered at a time.
    static constexpr int blockFrames = 64;

    /// Raises `std::bad_alloc` without memory; values outside of the bounds are moved there.
    explicit Synthesizer(const Settings &settings);
    ~Synthesizer();
    Synthesizer(const Synthesizer &) = delete;
    Synthesizer &operator=(const Synthesizer &) = delete;

    const Settings &settings() const noexcept { return _settings; }

    /// The font of all channels that have no bank; false and the reason when it cannot be loaded.
    bool loadFont(const std::string &path, std::string *error);

    /// Has a bank play a channel. Its samples are loaded into the cache, which outlives the
    /// synthesizer as do the uses; false and the reason when one cannot be.
    bool loadBank(int channel, std::shared_ptr<streams::BankArchive> bank, SampleCache &cache,
                  std::string *error);

    /// Whether a bank plays a channel: then notes begin exactly where they are to.
    bool hasBank(int channel) const noexcept;

    /// Whether a channel plays the percussion of General MIDI, as channel 9 does at first.
    void setPercussion(int channel, bool isPercussion) noexcept;
    bool isPercussion(int channel) const noexcept;

    /// From 0 to 1, as FluidSynth has them; 0.2 and 0.9 at first.
    void setReverb(double roomSize, double level) noexcept;

    /// Does what an event says in the block that is rendered next; its frame does not matter. Notes
    /// of banks begin a block and `phase` frames after the start of that block, 0 to 63; all else
    /// happens at its start. Channels that there are not are passed over.
    void apply(const TimedEvent &event, int phase = 0) noexcept;

    /// Renders a block, left and right interleaved; full scale is 1.0, and may be passed.
    void render(float *frames) noexcept;

    /// Voices that sound, those that fade out included.
    int voiceCount() const noexcept;

    /// Ends all notes and reverb at once and forgets what events have set; `silence` keeps volumes
    /// and places between the speakers.
    void reset() noexcept;
    void silence() noexcept;

private:
    class Fluid;

    Settings _settings;
    std::unique_ptr<Fluid> _fluid;
};

} // namespace Halvec::audio
