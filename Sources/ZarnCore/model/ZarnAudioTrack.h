// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zarn {

/// A recording that plays along with the score. It is no part of the bar grid.
class AudioTrack {
public:
    AudioTrack() = default;
    explicit AudioTrack(const std::string &name) : _name(name) { }

    const std::string &name() const noexcept { return _name; }
    void setName(const std::string &name) { _name = name; }

    /// Path of the audio file, UTF-8.
    const std::string &filePath() const noexcept { return _filePath; }
    void setFilePath(const std::string &path) { _filePath = path; }

    /// Milliseconds from the start of the score to the start of the recording; may be negative.
    std::int64_t startOffset() const noexcept { return _startOffset; }
    void setStartOffset(std::int64_t milliseconds) noexcept { _startOffset = milliseconds; }

    /// Linear level, 1 unchanged; balance from -1 (left) to 1 (right).
    float volume() const noexcept { return _volume; }
    void setVolume(float volume) noexcept { _volume = volume; }
    float pan() const noexcept { return _pan; }
    void setPan(float pan) noexcept { _pan = pan; }

    bool isMuted() const noexcept { return _muted; }
    void setMuted(bool muted) noexcept { _muted = muted; }

    static constexpr float MostVolume = 100; ///< 40 dB more than the recording has
    static constexpr std::int64_t MostOffset = std::int64_t(1) << 53;

    /// Whether documents can hold it: a level of 0 to `MostVolume`, a balance of -1 to 1, and an
    /// offset of no more than `MostOffset` either way.
    bool isPossible() const noexcept
    {
        return _volume >= 0 && _volume <= MostVolume && _pan >= -1 && _pan <= 1
            && _startOffset >= -MostOffset && _startOffset <= MostOffset;
    }

    friend bool operator==(const AudioTrack &left, const AudioTrack &right)
    {
        return left._name == right._name && left._filePath == right._filePath
            && left._startOffset == right._startOffset && left._volume == right._volume
            && left._pan == right._pan && left._muted == right._muted;
    }
    friend bool operator!=(const AudioTrack &left, const AudioTrack &right)
    {
        return !(left == right);
    }

private:
    std::string _name;
    std::string _filePath;
    std::int64_t _startOffset = 0;
    float _volume = 1;
    float _pan = 0;
    bool _muted = false;
};

} // namespace zarn
