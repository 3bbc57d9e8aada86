// SPDX-License-Identifier: MIT
#include <ZarnAudio/VorbisDecoder.h>

#define OV_EXCLUDE_STATIC_CALLBACKS
#include <vorbis/vorbisfile.h>

#include <algorithm>

namespace Halvec::audio {

namespace {

streams::Stream &stream(void *source)
{
    return *static_cast<streams::Stream *>(source);
}

std::size_t readBytes(void *data, std::size_t size, std::size_t count, void *source)
{
    if (size == 0)
        return 0;
    const auto wanted = static_cast<std::int64_t>(size * count);
    return static_cast<std::size_t>(stream(source).readSome(data, wanted)) / size;
}

int seekByte(void *source, ogg_int64_t offset, int whence)
{
    auto &bytes = stream(source);
    const auto base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? bytes.position() : bytes.size();
    std::int64_t to = 0;
    if (__builtin_add_overflow(base, offset, &to) || to < 0 || to > bytes.size())
        return -1;
    return bytes.seek(to) ? 0 : -1;
}

long tellByte(void *source)
{
    return static_cast<long>(stream(source).position());
}

/// Whether an Ogg file ends with a whole page that says that it is the last one (RFC 3533, section
/// 6).
bool hasLastPage(streams::Stream &bytes)
{
    constexpr std::int64_t longestPage = 27 + 255 + 255 * 255;
    const auto start = std::max<std::int64_t>(0, bytes.size() - longestPage);
    std::string end;
    if (!bytes.seek(start) || !bytes.readRest(end, longestPage))
        return false;
    ogg_sync_state sync;
    ogg_sync_init(&sync);
    bool isLast = false;
    if (char *const buffer = ogg_sync_buffer(&sync, static_cast<long>(end.size()))) {
        std::copy(end.begin(), end.end(), buffer);
        ogg_sync_wrote(&sync, static_cast<long>(end.size()));
        ogg_page page;
        while (const int found = ogg_sync_pageout(&sync, &page)) // below 0 for what is no page
            isLast = found > 0 && ogg_page_eos(&page) != 0;
    }
    ogg_sync_clear(&sync);
    return isLast;
}

} // namespace

void VorbisDecoder::Clear::operator()(OggVorbis_File *file) const
{
    ov_clear(file);
}

std::unique_ptr<AudioDecoder> VorbisDecoder::open(std::unique_ptr<streams::Stream> stream,
                                                  std::string *error)
{
    auto decoder = std::make_unique<VorbisDecoder>(std::move(stream));
    if (decoder->openFile())
        return decoder;
    if (error != nullptr)
        *error = decoder->errorText();
    return nullptr;
}

VorbisDecoder::VorbisDecoder(std::unique_ptr<streams::Stream> stream)
    : AudioDecoder(stream->name()), _stream(std::move(stream)),
      _memory(std::make_unique<OggVorbis_File>())
{
}

VorbisDecoder::~VorbisDecoder() = default;

bool VorbisDecoder::openFile()
{
    if (!hasLastPage(*_stream))
        setCutOff();
    const ov_callbacks callbacks = {readBytes, seekByte, nullptr, tellByte};
    if (!_stream->seek(0)
        || ov_open_callbacks(_stream.get(), _memory.get(), nullptr, 0, callbacks) != 0) {
        fail("cannot be decoded: it holds no Vorbis stream that is whole");
        return false;
    }
    _file.reset(_memory.get());
    const auto *const first = ov_info(_file.get(), 0);
    for (int i = 1; i < ov_streams(_file.get()); ++i) {
        const auto *const next = ov_info(_file.get(), i);
        if (next->channels != first->channels || next->rate != first->rate) {
            fail("holds several streams of different rates or channels");
            return false;
        }
    }
    return setFormat(first->channels, first->rate, ov_pcm_total(_file.get(), -1));
}

bool VorbisDecoder::doSeek(std::int64_t frame)
{
    return ov_pcm_seek(_file.get(), frame) == 0;
}

std::int64_t VorbisDecoder::doRead(float *frames, std::int64_t count)
{
    constexpr std::int64_t most = 1 << 20; // libvorbisfile counts in int
    float **planes = nullptr;
    int link = 0;
    const auto wanted = static_cast<int>(std::min(count, most));
    const auto read = static_cast<std::int64_t>(ov_read_float(_file.get(), &planes, wanted, &link));
    if (read <= 0)
        return 0; // a hole, or nothing where there should be something
    const auto width = channels();
    if (width == 2) {
        const float *const left = planes[0];
        const float *const right = planes[1];
        for (std::int64_t i = 0; i < read; ++i) {
            frames[2 * i] = left[i];
            frames[2 * i + 1] = right[i];
        }
        return read;
    }
    for (int channel = 0; channel < width; ++channel)
        for (std::int64_t i = 0; i < read; ++i)
            frames[i * width + channel] = planes[channel][i];
    return read;
}

} // namespace Halvec::audio
