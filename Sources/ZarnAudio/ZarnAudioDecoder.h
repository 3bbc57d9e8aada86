// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <ZarnCore/instruments/soundbanks/ZarnRawSampleFormat.h>
#include <streams/Stream.h>

#include <cstdint>
#include <memory>
#include <string>

namespace Halvec::audio {

/// Reads the frames of an audio file: WAV (PCM of 8 to 32 bits, floats, the laws of G.711), FLAC,
/// Ogg Vorbis, or samples without a header. Every position is exact to the frame.
///
/// Of a damaged file, the frames before the damage are read as they are; the read that comes to it
/// ends there, with an error that names the frame. The first error is kept, and every later read
/// and seek fails. Nothing here raises. A decoder belongs to one thread at a time; it allocates and
/// reads files, and has no place on an audio thread.
class ZARNAUDIO_EXPORT AudioDecoder {
public:
    /// Null, and the stream's name with the reason, for what is no audio file that can be read.
    /// The content decides, not the name.
    static std::unique_ptr<AudioDecoder> open(std::unique_ptr<streams::Stream> stream,
                                              std::string *error);

    /// The same for samples without a header.
    static std::unique_ptr<AudioDecoder> openRaw(std::unique_ptr<streams::Stream> stream,
                                                 const zarn::RawSampleFormat &format,
                                                 std::string *error);

    virtual ~AudioDecoder();
    AudioDecoder(const AudioDecoder &) = delete;
    AudioDecoder &operator=(const AudioDecoder &) = delete;

    /// What the file is called, for messages.
    const std::string &name() const noexcept { return _name; }

    int channels() const noexcept { return _channels; } ///< 1 to 64
    int rate() const noexcept { return _rate; }         ///< frames per second, 1 to 768000

    /// Frames that there are, as far as the header and the length of the file can tell. What they
    /// claim is no reason to take memory.
    std::int64_t frames() const noexcept { return _frames; }

    /// The frame that is read next, counted from 0.
    std::int64_t position() const noexcept { return _position; }

    /// Moves to between 0 and `frames()`; false, and an error, outside.
    bool seek(std::int64_t frame);

    /// Reads up to `count` frames, channels interleaved, 1.0 for full scale; answers how many there
    /// were: fewer at the end and at damage.
    std::int64_t read(float *frames, std::int64_t count);

    bool hasError() const noexcept { return !_error.empty(); }
    const std::string &errorText() const noexcept { return _error; }

protected:
    explicit AudioDecoder(std::string name) : _name(std::move(name)) { }

    /// What the header says; false for numbers that no audio file has.
    bool setFormat(std::int64_t channels, std::int64_t rate, std::int64_t frames);

    /// There would be more frames if the file were whole.
    void setCutOff() noexcept { _isCutOff = true; }

    /// Inside of the bounds. A read may give fewer frames than asked, and gives none at damage, for
    /// the reason given to `fail`.
    virtual bool doSeek(std::int64_t frame) = 0;
    virtual std::int64_t doRead(float *frames, std::int64_t count) = 0;

    /// Records an error unless there is one already.
    void fail(const std::string &reason);

private:
    std::string _name;
    int _channels = 0;
    int _rate = 0;
    std::int64_t _frames = 0;
    std::int64_t _position = 0;
    bool _isCutOff = false;
    std::string _error;
};

} // namespace Halvec::audio
