// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Halvec::audio {

/// Where sound goes, two channels as floats.
class ZARNAUDIO_EXPORT AudioOutput {
public:
    /// What is asked for sound, on the output's own thread.
    class Source {
    public:
        virtual ~Source();

        /// The next frames, left and right interleaved. It neither allocates nor locks.
        virtual void render(float *frames, std::int64_t count) noexcept = 0;
    };

    virtual ~AudioOutput();
    AudioOutput(const AudioOutput &) = delete;
    AudioOutput &operator=(const AudioOutput &) = delete;

    /// Begins to ask the source, which lasts until the output is closed; false with the reason.
    virtual bool open(Source &source, int rate, std::string *error) = 0;

    /// The source is asked no more when this returns.
    virtual void close() noexcept = 0;

    /// Whether an open output takes no more sound, as when its device was unplugged.
    virtual bool isLost() const noexcept = 0;

    /// Seconds from asking for a frame until it is heard, about.
    virtual double latency() const noexcept = 0;

protected:
    AudioOutput() = default;
};

/// The sound card, or what the variable SDL_AUDIODRIVER names. An empty name is the system's
/// choice among its devices.
ZARNAUDIO_EXPORT std::unique_ptr<AudioOutput> makeDeviceOutput(const std::string &device,
                                                               int bufferFrames = 1024);

/// The names of the devices that there are; empty when there is none, or no sound at all.
ZARNAUDIO_EXPORT std::vector<std::string> outputDevices();

} // namespace Halvec::audio
