// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>
#include <filesystem/FileHandle.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Halvec::audio {

/// What an audio file is to be.
struct AudioFormat {
    enum class File : std::uint8_t { Wav, Flac, OggVorbis };
    enum class Encoding : std::uint8_t { Pcm16, Pcm24, Float32 };

    File file = File::Wav;
    Encoding encoding =
        Encoding::Pcm16; ///< of WAV; FLAC has no floats, Vorbis an encoding of its own
    int rate = 44100;    ///< frames per second
    int channels = 2;
    double quality = 0.6; ///< of Vorbis, 0 to 1
};

/// The kind of file that a name ends in (".wav", ".flac", ".ogg" or ".oga", in either case) into
/// `file`; false, and nothing changed, for another name.
ZARNAUDIO_EXPORT bool audioFileOfName(std::string_view name, AudioFormat::File &file) noexcept;

/// Writes an audio file. What is louder than full scale is cut at full scale, in every format but
/// floats. WAV and FLAC files of equal frames have equal bytes; Ogg files have a serial number of
/// their own.
///
/// The file comes to be, whole, when `finish` succeeds; before that and after an error an old one
/// stays as it was. The first error is kept, and every later call fails. Nothing here raises.
class ZARNAUDIO_EXPORT AudioWriter {
public:
    /// The handle is open for writing, at its start.
    AudioWriter(std::unique_ptr<filesystem::FileHandle> handle, const AudioFormat &format);

    /// Gives up a file that is not finished.
    ~AudioWriter();
    AudioWriter(const AudioWriter &) = delete;
    AudioWriter &operator=(const AudioWriter &) = delete;

    const AudioFormat &format() const noexcept { return _format; }

    /// Frames that were written so far.
    std::int64_t frames() const noexcept { return _frames; }

    /// Writes frames, channels interleaved, 1.0 for full scale. What is no number is silent.
    bool write(const float *frames, std::int64_t count);

    /// Completes the file and puts it in its place.
    bool finish();

    bool hasError() const noexcept { return !_error.empty(); }

    /// What went wrong first, with the file's name.
    const std::string &errorText() const noexcept { return _error; }

private:
    struct File;

    bool fail(const std::string &reason);
    bool openFile();

    std::unique_ptr<filesystem::FileHandle> _handle;
    AudioFormat _format;
    std::int64_t _frames = 0;
    std::string _error;
    std::unique_ptr<File> _file; ///< goes before the handle that it writes into
};

} // namespace Halvec::audio
