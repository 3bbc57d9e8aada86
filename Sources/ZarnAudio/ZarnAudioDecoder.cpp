// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnAudioDecoder.h>

#include <ZarnAudio/FlacDecoder.h>
#include <ZarnAudio/SndfileDecoder.h>
#include <ZarnAudio/VorbisDecoder.h>

#include <array>
#include <string_view>

namespace Halvec::audio {

namespace {

constexpr std::int64_t mostChannels = 64;
constexpr std::int64_t highestRate = 768'000;

std::nullptr_t refuse(std::string *error, const std::string &reason)
{
    if (error != nullptr)
        *error = reason;
    return nullptr;
}

} // namespace

std::unique_ptr<AudioDecoder> AudioDecoder::open(std::unique_ptr<streams::Stream> stream,
                                                 std::string *error)
{
    std::array<char, 4> bytes{};
    const auto count = stream->readSome(bytes.data(), bytes.size());
    if (!stream->seek(0))
        return refuse(error, stream->errorText());
    const std::string_view start(bytes.data(), static_cast<std::size_t>(count));
    if (start == "fLaC")
        return FlacDecoder::open(std::move(stream), error);
    if (start == "OggS")
        return VorbisDecoder::open(std::move(stream), error);
    if (start == "RIFF" || start == "RIFX" || start == "RF64")
        return SndfileDecoder::openWav(std::move(stream), error);
    return refuse(error, stream->name() + ": is no WAV, FLAC or Ogg Vorbis file");
}

std::unique_ptr<AudioDecoder> AudioDecoder::openRaw(std::unique_ptr<streams::Stream> stream,
                                                    const zarn::RawSampleFormat &format,
                                                    std::string *error)
{
    return SndfileDecoder::openRaw(std::move(stream), format, error);
}

AudioDecoder::~AudioDecoder() = default;

bool AudioDecoder::setFormat(std::int64_t channels, std::int64_t rate, std::int64_t frames)
{
    if (channels < 1 || channels > mostChannels) {
        fail("has " + std::to_string(channels) + " channels");
        return false;
    }
    if (rate < 1 || rate > highestRate) {
        fail("has " + std::to_string(rate) + " frames a second");
        return false;
    }
    if (frames < 0) {
        fail("does not tell its length");
        return false;
    }
    _channels = static_cast<int>(channels);
    _rate = static_cast<int>(rate);
    _frames = frames;
    return true;
}

void AudioDecoder::fail(const std::string &reason)
{
    if (_error.empty())
        _error = _name + ": " + reason;
}

bool AudioDecoder::seek(std::int64_t frame)
{
    if (hasError())
        return false;
    if (frame < 0 || frame > _frames || !doSeek(frame)) {
        fail("cannot move to frame " + std::to_string(frame) + " of " + std::to_string(_frames));
        return false;
    }
    _position = frame;
    return true;
}

std::int64_t AudioDecoder::read(float *frames, std::int64_t count)
{
    std::int64_t done = 0;
    while (!hasError() && done < count && _position < _frames) {
        const auto wanted = std::min(count - done, _frames - _position);
        const auto read = doRead(frames + done * _channels, wanted);
        if (read <= 0) {
            fail("is damaged at frame " + std::to_string(_position) + " of "
                 + std::to_string(_frames));
            break;
        }
        done += read;
        _position += read;
    }
    if (_position == _frames && _isCutOff)
        fail("is cut off at frame " + std::to_string(_frames));
    return done;
}

} // namespace Halvec::audio
