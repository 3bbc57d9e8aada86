// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <filesystem/DiskFileSystem.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zarn {
class AudioTrack;
}

namespace Halvec::audio {

class AudioDecoder;

/// The sound of an audio file, at the rate at which it is played and in stereo, in memory. It does
/// not change and may be read from any thread.
class ZARNAUDIO_EXPORT Recording {
public:
    /// Frames that a recording may have: what is longer is refused (half an hour at 44100).
    static constexpr std::int64_t mostFrames = std::int64_t(30) * 60 * 44100;

    /// Decodes and resamples (by libsamplerate, 97 dB) a file; a mono one is heard on both sides,
    /// of more channels the first two. Of a damaged file what was whole is there, and the error
    /// says where it ends; null with the reason for what is no audio file or too long.
    static std::shared_ptr<const Recording> load(AudioDecoder &decoder, int rate,
                                                 std::string *error);

    explicit Recording(std::vector<float> frames) : _frames(std::move(frames)) { }

    /// The same at another speed, 0.25 to 2, and at its own pitch (by SoundTouch); null when it
    /// would be too long.
    std::shared_ptr<const Recording> atSpeed(double speed, int rate) const;

    std::int64_t frames() const noexcept { return static_cast<std::int64_t>(_frames.size() / 2); }

    /// Left and right interleaved.
    const float *data() const noexcept { return _frames.data(); }

private:
    std::vector<float> _frames;
};

/// A recording at its place in what is played.
struct ZARNAUDIO_EXPORT PlacedRecording {
    std::shared_ptr<const Recording> sound;
    std::int64_t start = 0; ///< the frame of the music at which it begins; may be below 0
    float left = 1;         ///< gains
    float right = 1;

    /// Adds what is heard of it from a frame of the music on. Neither allocates nor locks.
    void add(float *frames, std::int64_t from, std::int64_t count) const noexcept;
};

/// The recordings of audio tracks, kept as long as they are needed again.
class ZARNAUDIO_EXPORT Recordings {
public:
    Recordings() = default;
    ~Recordings();

    /// Those of the tracks that are not muted, for frames of the music at a rate and a speed, of
    /// which the first is at a second of the whole score as it is played at the usual speed.
    /// Relative paths start at the folder.
    std::vector<PlacedRecording> of(const std::vector<std::shared_ptr<zarn::AudioTrack>> &tracks,
                                    int rate, double second, const std::string &folder,
                                    double speed = 1);

    /// Why files cannot be read, or not to their ends, as of the last time.
    const std::vector<std::string> &problems() const noexcept { return _problems; }

private:
    struct Kept {
        std::string path;
        int rate = 0;
        std::shared_ptr<const Recording> sound;
        std::string error;
        double speed = 1; ///< of `changed`, which is at another speed than the usual one
        std::shared_ptr<const Recording> changed;
    };
    void load(Kept &kept);
    void change(Kept &kept, double speed);

    filesystem::DiskFileSystem _files;
    std::vector<Kept> _kept;
    std::vector<std::string> _problems;
};

} // namespace Halvec::audio
