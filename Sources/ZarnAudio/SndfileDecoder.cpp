// SPDX-License-Identifier: MIT
#include <ZarnAudio/SndfileDecoder.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace Halvec::audio {

namespace {

using Encoding = zarn::RawSampleFormat::Encoding;

/// Format of libsndfile by encoding.
constexpr std::array<int, 14> rawFormats = {
    SF_FORMAT_PCM_S8,
    SF_FORMAT_PCM_U8,
    SF_FORMAT_PCM_16 | SF_ENDIAN_LITTLE,
    SF_FORMAT_PCM_16 | SF_ENDIAN_BIG,
    SF_FORMAT_PCM_24 | SF_ENDIAN_LITTLE,
    SF_FORMAT_PCM_24 | SF_ENDIAN_BIG,
    SF_FORMAT_PCM_32 | SF_ENDIAN_LITTLE,
    SF_FORMAT_PCM_32 | SF_ENDIAN_BIG,
    SF_FORMAT_FLOAT | SF_ENDIAN_LITTLE,
    SF_FORMAT_FLOAT | SF_ENDIAN_BIG,
    SF_FORMAT_DOUBLE | SF_ENDIAN_LITTLE,
    SF_FORMAT_DOUBLE | SF_ENDIAN_BIG,
    SF_FORMAT_ULAW,
    SF_FORMAT_ALAW,
};
static_assert(static_cast<std::size_t>(Encoding::ALaw) + 1 == rawFormats.size());

/// Every frame stands at a place of its own in these, so that seeking is exact.
constexpr std::array<int, 8> seekableEncodings = {
    SF_FORMAT_PCM_U8, SF_FORMAT_PCM_16, SF_FORMAT_PCM_24, SF_FORMAT_PCM_32,
    SF_FORMAT_FLOAT,  SF_FORMAT_DOUBLE, SF_FORMAT_ULAW,   SF_FORMAT_ALAW,
};

/// Bytes of sound that a WAV file says it has; libsndfile reads a file that is cut off as if it
/// were whole. Nothing for a file that does not say it, such as one that was written into a pipe.
std::optional<std::uint64_t> statedSoundBytes(streams::Stream &stream, std::uint64_t &start)
{
    std::array<unsigned char, 12> bytes{};
    const auto number = [&bytes](std::size_t at, std::size_t count, bool isBig) {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count; ++i)
            value |= std::uint64_t(bytes[at + (isBig ? count - 1 - i : i)]) << (8 * i);
        return value;
    };
    if (!stream.seek(0) || stream.readSome(bytes.data(), 12) != 12)
        return std::nullopt;
    const bool isBig = std::memcmp(bytes.data(), "RIFX", 4) == 0;
    std::optional<std::uint64_t> longSize;
    while (stream.readSome(bytes.data(), 8) == 8) {
        const bool isSound = std::memcmp(bytes.data(), "data", 4) == 0;
        const auto size = number(4, 4, isBig);
        start = static_cast<std::uint64_t>(stream.position());
        if (isSound) {
            constexpr std::uint64_t unknown = 0xFFFFFFFF;
            if (size == unknown)
                return longSize;
            return size == 0 ? std::nullopt : std::optional(size);
        }
        const bool isLong = std::memcmp(bytes.data(), "ds64", 4) == 0 && size >= 16;
        if (isLong) { // RF64: EBU Tech 3306
            std::array<unsigned char, 8> rest{};
            if (stream.readSome(rest.data(), 8) == 8 && stream.readSome(bytes.data(), 8) == 8)
                longSize = number(0, 8, false);
        }
        const auto next = start + size + (size & 1);
        if (next > static_cast<std::uint64_t>(stream.size()))
            break;
        stream.seek(static_cast<std::int64_t>(next));
    }
    return std::nullopt;
}

std::unique_ptr<AudioDecoder> answer(std::unique_ptr<SndfileDecoder> decoder, std::string *error)
{
    if (!decoder->hasError())
        return decoder;
    if (error != nullptr)
        *error = decoder->errorText();
    return nullptr;
}

} // namespace

SndfileDecoder::SndfileDecoder(std::unique_ptr<streams::Stream> stream)
    : AudioDecoder(stream->name()), _stream(std::move(stream))
{
}

SndfileDecoder::~SndfileDecoder() = default;

bool SndfileDecoder::openFile(SF_INFO info)
{
    _file = openSndfile(*_stream, info);
    if (!_file) {
        fail(_stream->hasError() ? "cannot be read"
                                 : std::string("cannot be decoded: ") + sf_strerror(nullptr));
        return false;
    }
    const auto encoding = info.format & SF_FORMAT_SUBMASK;
    const auto &known = seekableEncodings;
    if (encoding != SF_FORMAT_PCM_S8
        && std::find(known.begin(), known.end(), encoding) == known.end()) {
        fail("is encoded in a way that is not read; PCM, floats, A-law and mu-law are");
        return false;
    }
    _isShort = encoding == SF_FORMAT_PCM_16;
    return setFormat(info.channels, info.samplerate, info.frames);
}

std::unique_ptr<AudioDecoder> SndfileDecoder::openWav(std::unique_ptr<streams::Stream> stream,
                                                      std::string *error)
{
    auto decoder = std::make_unique<SndfileDecoder>(std::move(stream));
    auto &bytes = *decoder->_stream;
    std::uint64_t start = 0;
    const auto stated = statedSoundBytes(bytes, start);
    bytes.seek(0);
    if (decoder->openFile(SF_INFO{}) && stated
        && *stated > static_cast<std::uint64_t>(bytes.size()) - start)
        decoder->setCutOff();
    return answer(std::move(decoder), error);
}

std::unique_ptr<AudioDecoder> SndfileDecoder::openRaw(std::unique_ptr<streams::Stream> stream,
                                                      const zarn::RawSampleFormat &format,
                                                      std::string *error)
{
    auto decoder = std::make_unique<SndfileDecoder>(std::move(stream));
    SF_INFO info{};
    info.samplerate = format.rate;
    info.channels = format.channels;
    info.format = SF_FORMAT_RAW | rawFormats[static_cast<std::size_t>(format.encoding)];
    const auto frame = std::int64_t(bytesOf(format.encoding)) * format.channels;
    if (decoder->openFile(info) && decoder->_stream->size() % frame != 0)
        decoder->setCutOff();
    return answer(std::move(decoder), error);
}

bool SndfileDecoder::doSeek(std::int64_t frame)
{
    return sf_seek(_file.get(), frame, SEEK_SET) == frame;
}

/// The usual 16 bits in large blocks, where libsndfile takes small ones.
std::int64_t SndfileDecoder::readShorts(float *frames, std::int64_t count)
{
    constexpr std::int64_t blockValues = 1 << 15;
    const auto part = std::min(count, std::max<std::int64_t>(1, blockValues / channels()));
    _shorts.resize(static_cast<std::size_t>(part * channels()));
    const auto read = sf_readf_short(_file.get(), _shorts.data(), part);
    std::transform(_shorts.begin(), _shorts.begin() + std::max<std::int64_t>(read, 0) * channels(),
                   frames, [](short value) { return static_cast<float>(value) / 32768.0F; });
    return read;
}

std::int64_t SndfileDecoder::doRead(float *frames, std::int64_t count)
{
    const auto read =
        _isShort ? readShorts(frames, count) : sf_readf_float(_file.get(), frames, count);
    if (_stream->hasError())
        fail("cannot be read at frame " + std::to_string(position()));
    return read;
}

} // namespace Halvec::audio
