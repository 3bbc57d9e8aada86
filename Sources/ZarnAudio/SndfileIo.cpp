// SPDX-License-Identifier: MIT
#include <ZarnAudio/SndfileIo.h>

namespace Halvec::audio {

namespace {

/// libsndfile's view of a stream or a handle, which have the same ways of moving.
template <class File>
struct Io {
    static sf_count_t length(void *self) { return file(self).size(); }
    static sf_count_t tell(void *self) { return file(self).position(); }

    static sf_count_t seek(sf_count_t offset, int whence, void *self)
    {
        const auto base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? tell(self) : length(self);
        sf_count_t to = 0;
        // Out of bounds is an error of libsndfile's caller, not of the file.
        if (__builtin_add_overflow(base, offset, &to) || to < 0 || to > length(self))
            return -1;
        return file(self).seek(to) ? to : -1;
    }

    static File &file(void *self) { return *static_cast<File *>(self); }
};

sf_count_t readStream(void *data, sf_count_t count, void *self)
{
    return Io<streams::Stream>::file(self).readSome(data, count);
}

sf_count_t readNothing(void *, sf_count_t, void *)
{
    return 0;
}

sf_count_t writeHandle(const void *data, sf_count_t count, void *self)
{
    return Io<filesystem::FileHandle>::file(self).writeBlock(data, count) ? count : 0;
}

sf_count_t writeNothing(const void *, sf_count_t, void *)
{
    return 0;
}

} // namespace

Sndfile openSndfile(streams::Stream &stream, SF_INFO &info)
{
    using StreamIo = Io<streams::Stream>;
    SF_VIRTUAL_IO io = {StreamIo::length, StreamIo::seek, readStream, writeNothing, StreamIo::tell};
    return Sndfile(sf_open_virtual(&io, SFM_READ, &info, &stream));
}

Sndfile openSndfile(filesystem::FileHandle &handle, SF_INFO &info)
{
    using HandleIo = Io<filesystem::FileHandle>;
    SF_VIRTUAL_IO io = {HandleIo::length, HandleIo::seek, readNothing, writeHandle, HandleIo::tell};
    return Sndfile(sf_open_virtual(&io, SFM_WRITE, &info, &handle));
}

} // namespace Halvec::audio
