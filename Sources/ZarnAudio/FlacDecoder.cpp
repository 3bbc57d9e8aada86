// SPDX-License-Identifier: MIT
#include <ZarnAudio/FlacDecoder.h>

#include <algorithm>

namespace Halvec::audio {

namespace {

FlacDecoder &self(void *client)
{
    return *static_cast<FlacDecoder *>(client);
}

FLAC__StreamDecoderReadStatus readBytes(const FLAC__StreamDecoder *, FLAC__byte buffer[],
                                        std::size_t *bytes, void *client)
{
    auto &stream = self(client).stream();
    const auto read = stream.readSome(buffer, static_cast<std::int64_t>(*bytes));
    *bytes = static_cast<std::size_t>(read);
    if (stream.hasError())
        return FLAC__STREAM_DECODER_READ_STATUS_ABORT;
    return read == 0 ? FLAC__STREAM_DECODER_READ_STATUS_END_OF_STREAM
                     : FLAC__STREAM_DECODER_READ_STATUS_CONTINUE;
}

FLAC__StreamDecoderSeekStatus seekByte(const FLAC__StreamDecoder *, FLAC__uint64 offset,
                                       void *client)
{
    auto &stream = self(client).stream();
    const bool isInside = offset <= static_cast<FLAC__uint64>(stream.size());
    return isInside && stream.seek(static_cast<std::int64_t>(offset))
        ? FLAC__STREAM_DECODER_SEEK_STATUS_OK
        : FLAC__STREAM_DECODER_SEEK_STATUS_ERROR;
}

FLAC__StreamDecoderTellStatus tellByte(const FLAC__StreamDecoder *, FLAC__uint64 *offset,
                                       void *client)
{
    *offset = static_cast<FLAC__uint64>(self(client).stream().position());
    return FLAC__STREAM_DECODER_TELL_STATUS_OK;
}

FLAC__StreamDecoderLengthStatus tellLength(const FLAC__StreamDecoder *, FLAC__uint64 *length,
                                           void *client)
{
    *length = static_cast<FLAC__uint64>(self(client).stream().size());
    return FLAC__STREAM_DECODER_LENGTH_STATUS_OK;
}

FLAC__bool isAtEnd(const FLAC__StreamDecoder *, void *client)
{
    auto &stream = self(client).stream();
    return stream.position() >= stream.size();
}

FLAC__StreamDecoderWriteStatus takeBlock(const FLAC__StreamDecoder *, const FLAC__Frame *frame,
                                         const FLAC__int32 *const channels[], void *client)
{
    return self(client).takeBlock(*frame, channels) ? FLAC__STREAM_DECODER_WRITE_STATUS_CONTINUE
                                                    : FLAC__STREAM_DECODER_WRITE_STATUS_ABORT;
}

void takeMetadata(const FLAC__StreamDecoder *, const FLAC__StreamMetadata *metadata, void *client)
{
    if (metadata->type == FLAC__METADATA_TYPE_STREAMINFO)
        self(client).takeInfo(metadata->data.stream_info);
}

void takeError(const FLAC__StreamDecoder *, FLAC__StreamDecoderErrorStatus, void *client)
{
    self(client).setDamaged();
}

/// Interleaves frames of a block from `first` on.
void interleave(const FLAC__int32 *const channels[], std::size_t count, std::size_t first,
                std::size_t frames, float scale, float *target)
{
    if (count == 2) {
        const FLAC__int32 *const left = channels[0] + first;
        const FLAC__int32 *const right = channels[1] + first;
        for (std::size_t i = 0; i < frames; ++i) {
            target[2 * i] = static_cast<float>(left[i]) * scale;
            target[2 * i + 1] = static_cast<float>(right[i]) * scale;
        }
        return;
    }
    for (std::size_t channel = 0; channel < count; ++channel)
        for (std::size_t i = 0; i < frames; ++i)
            target[i * count + channel] = static_cast<float>(channels[channel][first + i]) * scale;
}

} // namespace

std::unique_ptr<AudioDecoder> FlacDecoder::open(std::unique_ptr<streams::Stream> stream,
                                                std::string *error)
{
    auto decoder = std::make_unique<FlacDecoder>(std::move(stream));
    if (decoder->openFile())
        return decoder;
    if (error != nullptr)
        *error = decoder->errorText();
    return nullptr;
}

FlacDecoder::FlacDecoder(std::unique_ptr<streams::Stream> stream)
    : AudioDecoder(stream->name()), _stream(std::move(stream)), _decoder(FLAC__stream_decoder_new())
{
}

FlacDecoder::~FlacDecoder() = default;

bool FlacDecoder::openFile()
{
    auto *const flac = _decoder.get();
    const bool isRead = flac != nullptr
        && FLAC__stream_decoder_init_stream(flac, readBytes, seekByte, tellByte, tellLength,
                                            isAtEnd, audio::takeBlock, takeMetadata, takeError,
                                            this)
            == FLAC__STREAM_DECODER_INIT_STATUS_OK
        && FLAC__stream_decoder_process_until_end_of_metadata(flac);
    if (!isRead || !_hasInfo) {
        fail("cannot be decoded: the header is damaged");
        return false;
    }
    _isDamaged = false;
    if (hasError() || frames() > 0)
        return !hasError();
    // Written into a pipe: the header does not know the length.
    return setFormat(channels(), rate(), countFrames()) && seek(0);
}

void FlacDecoder::takeInfo(const FLAC__StreamMetadata_StreamInfo &info)
{
    _hasInfo = true;
    setFormat(info.channels, info.sample_rate, static_cast<std::int64_t>(info.total_samples));
}

std::int64_t FlacDecoder::countFrames()
{
    auto *const flac = _decoder.get();
    while (!_isDamaged && FLAC__stream_decoder_get_state(flac) < FLAC__STREAM_DECODER_END_OF_STREAM
           && FLAC__stream_decoder_process_single(flac))
        _kept.clear();
    if (_isDamaged)
        setCutOff();
    _isDamaged = false;
    FLAC__stream_decoder_flush(flac);
    return static_cast<std::int64_t>(_next);
}

bool FlacDecoder::takeBlock(const FLAC__Frame &frame, const FLAC__int32 *const channels[])
{
    const auto &header = frame.header;
    // What does not go on where the last block ended has lost blocks before it.
    if (_isDamaged || header.number.sample_number != _next
        || header.channels != static_cast<unsigned>(this->channels())) {
        _isDamaged = true;
        return false;
    }
    _next += header.blocksize;
    const float scale = 1.0F / static_cast<float>(std::uint64_t(1) << (header.bits_per_sample - 1));
    const auto given = std::min<std::int64_t>(header.blocksize, _room);
    const auto first = static_cast<std::size_t>(given);
    interleave(channels, header.channels, 0, first, scale, _target);
    _taken = given;
    const auto rest = header.blocksize - first;
    _kept.resize(rest * header.channels);
    _keptStart = 0;
    interleave(channels, header.channels, first, rest, scale, _kept.data());
    return true;
}

bool FlacDecoder::doSeek(std::int64_t frame)
{
    _kept.clear();
    _keptStart = 0;
    _target = nullptr;
    _room = 0;
    _next = static_cast<std::uint64_t>(frame);
    if (frame == frames())
        return true; // where nothing can be read
    if (FLAC__stream_decoder_get_state(_decoder.get()) >= FLAC__STREAM_DECODER_SEEK_ERROR)
        FLAC__stream_decoder_flush(_decoder.get());
    return FLAC__stream_decoder_seek_absolute(_decoder.get(), _next) && !_isDamaged;
}

std::int64_t FlacDecoder::takeKept(float *frames, std::int64_t count)
{
    const auto width = static_cast<std::size_t>(channels());
    const auto taken = std::min(static_cast<std::size_t>(count) * width, _kept.size() - _keptStart);
    std::copy_n(_kept.data() + _keptStart, taken, frames);
    _keptStart += taken;
    return static_cast<std::int64_t>(taken / width);
}

std::int64_t FlacDecoder::doRead(float *frames, std::int64_t count)
{
    if (_keptStart < _kept.size())
        return takeKept(frames, count);
    _target = frames;
    _room = count;
    _taken = 0;
    // A call may read no more than a piece of metadata.
    while (_taken == 0 && !_isDamaged
           && FLAC__stream_decoder_get_state(_decoder.get()) < FLAC__STREAM_DECODER_END_OF_STREAM
           && FLAC__stream_decoder_process_single(_decoder.get())) { }
    _target = nullptr;
    _room = 0;
    return _taken;
}

} // namespace Halvec::audio
