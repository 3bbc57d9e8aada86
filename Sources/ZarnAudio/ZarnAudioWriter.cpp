// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnAudioWriter.h>

#include <ZarnAudio/SndfileIo.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <vector>

namespace Halvec::audio {

namespace {

using File = AudioFormat::File;
using Encoding = AudioFormat::Encoding;

/// A WAV file counts its bytes in 32 bits; some are for what stands around the sound.
constexpr std::int64_t mostWavBytes = (std::int64_t(1) << 32) - 4096;

constexpr std::array<std::pair<std::string_view, File>, 4> endings = {{
    {".wav", File::Wav},
    {".flac", File::Flac},
    {".ogg", File::OggVorbis},
    {".oga", File::OggVorbis},
}};

int formatOf(const AudioFormat &format)
{
    if (format.file == File::OggVorbis)
        return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
    const int file = format.file == File::Flac ? SF_FORMAT_FLAC : SF_FORMAT_WAV;
    switch (format.encoding) {
    case Encoding::Pcm16:
        return file | SF_FORMAT_PCM_16;
    case Encoding::Pcm24:
        return file | SF_FORMAT_PCM_24;
    case Encoding::Float32:
        return file | SF_FORMAT_FLOAT;
    }
    return 0;
}

int bytesOf(Encoding encoding)
{
    return encoding == Encoding::Pcm16 ? 2 : encoding == Encoding::Pcm24 ? 3 : 4;
}

} // namespace

bool audioFileOfName(std::string_view name, AudioFormat::File &file) noexcept
{
    const auto isSame = [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) == b;
    };
    for (const auto &[ending, kind] : endings)
        if (name.size() > ending.size()
            && std::equal(ending.rbegin(), ending.rend(), name.rbegin(),
                          [&](char b, char a) { return isSame(a, b); })) {
            file = kind;
            return true;
        }
    return false;
}

/// Whole numbers are rounded and cut here: libsndfile rounds down when it is to cut.
struct AudioWriter::File {
    static constexpr std::int64_t blockValues = 1 << 15;

    Sndfile file;
    std::vector<float> floats;
    std::vector<short> shorts;
    std::vector<int> ints;

    sf_count_t write(const float *frames, sf_count_t count, const AudioFormat &format)
    {
        const auto values = static_cast<std::size_t>(count * format.channels);
        if (format.file == AudioFormat::File::OggVorbis || format.encoding == Encoding::Float32) {
            const bool isCut = format.file == AudioFormat::File::OggVorbis;
            convert(frames, values, floats, [isCut](float value) {
                return isCut ? std::max(-1.0F, std::min(value, 1.0F)) : value;
            });
            return sf_writef_float(file.get(), floats.data(), count);
        }
        if (format.encoding == Encoding::Pcm16) {
            convert(frames, values, shorts,
                    [](float value) { return static_cast<short>(whole(value, 15)); });
            return sf_writef_short(file.get(), shorts.data(), count);
        }
        convert(frames, values, ints, [](float value) { return whole(value, 23) * 256; });
        return sf_writef_int(file.get(), ints.data(), count);
    }

private:
    /// The nearest number of so many bits beside the sign.
    static int whole(float value, int bits)
    {
        const float scale = static_cast<float>(1 << bits);
        return static_cast<int>(
            std::lrint(std::max(-scale, std::min(value * scale, scale - 1.0F))));
    }

    template <class Value, class Convert>
    static void convert(const float *frames, std::size_t count, std::vector<Value> &to,
                        Convert convert)
    {
        to.resize(count);
        std::transform(frames, frames + count, to.begin(), [&convert](float value) {
            return convert(value - value == 0 ? value : 0.0F); // neither infinite nor no number
        });
    }
};

AudioWriter::AudioWriter(std::unique_ptr<filesystem::FileHandle> handle, const AudioFormat &format)
    : _handle(std::move(handle)), _format(format), _file(std::make_unique<File>())
{
    if (!openFile() && _error.empty())
        fail(std::string("cannot be encoded: ") + sf_strerror(nullptr));
}

AudioWriter::~AudioWriter() = default;

bool AudioWriter::openFile()
{
    if (_format.file == AudioFormat::File::Flac && _format.encoding == Encoding::Float32)
        return fail("FLAC holds no floats");
    SF_INFO info{};
    info.samplerate = _format.rate;
    info.channels = _format.channels;
    info.format = formatOf(_format);
    if (!sf_format_check(&info))
        return fail("cannot have " + std::to_string(_format.channels) + " channels of "
                    + std::to_string(_format.rate) + " frames a second");
    _file->file = openSndfile(*_handle, info);
    auto *const file = _file->file.get();
    if (file == nullptr)
        return false;
    sf_command(file, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE); // it holds the time of writing
    double quality = _format.quality;
    if (_format.file == AudioFormat::File::OggVorbis)
        sf_command(file, SFC_SET_VBR_ENCODING_QUALITY, &quality, sizeof quality);
    return true;
}

bool AudioWriter::fail(const std::string &reason)
{
    if (_error.empty())
        _error = _handle->hasError() ? _handle->errorText() : _handle->path() + ": " + reason;
    return false;
}

bool AudioWriter::write(const float *frames, std::int64_t count)
{
    if (hasError())
        return false;
    if (!_file->file)
        return fail("is finished");
    const auto bytes =
        (_frames + count) * _format.channels * std::int64_t(bytesOf(_format.encoding));
    if (_format.file == AudioFormat::File::Wav && bytes > mostWavBytes)
        return fail("a WAV file holds no more than 4 GiB");
    const auto width = static_cast<std::int64_t>(_format.channels);
    const auto blockFrames = std::max<std::int64_t>(1, File::blockValues / width);
    for (std::int64_t done = 0; done < count;) {
        const auto part = std::min(count - done, blockFrames);
        const bool isWritten = _file->write(frames + done * width, part, _format) == part;
        if (!isWritten || _handle->hasError())
            return fail(std::string("cannot be written: ") + sf_strerror(_file->file.get()));
        done += part;
        _frames += part;
    }
    return true;
}

bool AudioWriter::finish()
{
    if (hasError())
        return false;
    if (!_file->file)
        return fail("is finished");
    const int result = sf_close(_file->file.release());
    if (result != 0 || _handle->hasError())
        return fail(std::string("cannot be completed: ") + sf_error_number(result));
    return _handle->close() || fail("cannot be completed");
}

} // namespace Halvec::audio
