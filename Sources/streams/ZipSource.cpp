// SPDX-License-Identifier: MIT
#include <streams/ZipSource.h>

#include <cerrno>

namespace streams {

namespace {

/// The part that reading and writing share. libzip owns the object: it frees it by a command.
class Source {
public:
    Source() { zip_error_init(&_error); }
    Source(const Source &) = delete;
    Source &operator=(const Source &) = delete;
    virtual ~Source() { zip_error_fini(&_error); }

    virtual zip_int64_t run(void *data, zip_uint64_t size, zip_source_cmd_t command) = 0;

    static zip_int64_t call(void *self, void *data, zip_uint64_t size, zip_source_cmd_t command)
    {
        auto *const source = static_cast<Source *>(self);
        if (command == ZIP_SOURCE_FREE) {
            const std::unique_ptr<Source> last(source);
            return 0;
        }
        if (command == ZIP_SOURCE_ERROR)
            return zip_error_to_data(&source->_error, data, size);
        return source->run(data, size, command);
    }

    static zip_source_t *handOver(std::unique_ptr<Source> source, zip_error_t *error)
    {
        auto *const created = zip_source_function_create(call, source.get(), error);
        if (created != nullptr)
            static_cast<void>(source.release());
        return created;
    }

protected:
    zip_int64_t refuse(int code, int systemCode = 0)
    {
        zip_error_set(&_error, code, systemCode);
        return -1;
    }

    zip_int64_t stat(void *data, zip_uint64_t size, std::int64_t bytes)
    {
        auto *const stat = ZIP_SOURCE_GET_ARGS(zip_stat_t, data, size, &_error);
        if (stat == nullptr)
            return -1;
        zip_stat_init(stat);
        stat->size = static_cast<zip_uint64_t>(bytes);
        stat->valid = ZIP_STAT_SIZE;
        return static_cast<zip_int64_t>(sizeof *stat);
    }

    zip_error_t _error;
};

/// Reads the stream that there is.
class StreamSource : public Source {
public:
    explicit StreamSource(std::unique_ptr<Stream> stream) : _stream(std::move(stream)) { }

    zip_int64_t run(void *data, zip_uint64_t size, zip_source_cmd_t command) override
    {
        switch (command) {
        case ZIP_SOURCE_OPEN:
            return _stream->seek(0) ? 0 : refuse(ZIP_ER_OPEN, EIO);
        case ZIP_SOURCE_READ: {
            const auto read = _stream->readSome(data, static_cast<std::int64_t>(size));
            return _stream->hasError() ? refuse(ZIP_ER_READ, EIO) : read;
        }
        case ZIP_SOURCE_CLOSE:
            return 0;
        case ZIP_SOURCE_STAT:
            return stat(data, size, _stream->size());
        case ZIP_SOURCE_SEEK: {
            const auto to = zip_source_seek_compute_offset(
                static_cast<zip_uint64_t>(_stream->position()),
                static_cast<zip_uint64_t>(_stream->size()), data, size, &_error);
            if (to < 0)
                return -1;
            return _stream->seek(to) ? 0 : refuse(ZIP_ER_SEEK, EIO);
        }
        case ZIP_SOURCE_TELL:
            return _stream->position();
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_SEEKABLE;
        default:
            return refuse(ZIP_ER_OPNOTSUPP);
        }
    }

protected:
    std::unique_ptr<Stream> _stream;
};

/// Opens a stream for as long as it is read.
class OpenedSource final : public StreamSource {
public:
    OpenedSource(StreamOpener open, std::string &problem)
        : StreamSource(nullptr), _open(std::move(open)), _problem(problem)
    {
    }

    zip_int64_t run(void *data, zip_uint64_t size, zip_source_cmd_t command) override
    {
        const bool isOpened =
            _stream == nullptr && (command == ZIP_SOURCE_OPEN || command == ZIP_SOURCE_STAT);
        if (isOpened && !open())
            return refuse(ZIP_ER_OPEN, EIO);
        const auto answer = StreamSource::run(data, size, command);
        if (_stream != nullptr && _stream->hasError() && _problem.empty())
            _problem = _stream->errorText();
        if (command == ZIP_SOURCE_CLOSE || (isOpened && command == ZIP_SOURCE_STAT))
            _stream = nullptr;
        return answer;
    }

private:
    bool open()
    {
        std::string reason;
        _stream = _open(&reason);
        if (_stream == nullptr && _problem.empty())
            _problem = reason;
        return _stream != nullptr;
    }

    StreamOpener _open;
    std::string &_problem;
};

class FileTarget final : public Source {
public:
    explicit FileTarget(filesystem::FileHandle &handle) : _handle(handle) { }

    zip_int64_t run(void *data, zip_uint64_t size, zip_source_cmd_t command) override
    {
        switch (command) {
        case ZIP_SOURCE_OPEN:
        case ZIP_SOURCE_CLOSE:
        case ZIP_SOURCE_BEGIN_WRITE:
        case ZIP_SOURCE_COMMIT_WRITE:
        case ZIP_SOURCE_ROLLBACK_WRITE:
        case ZIP_SOURCE_REMOVE:
            return 0; // the handle decides by `close` what becomes of the file
        case ZIP_SOURCE_STAT:
            return stat(data, size, 0);
        case ZIP_SOURCE_WRITE:
            return _handle.writeBlock(data, static_cast<std::int64_t>(size))
                ? static_cast<zip_int64_t>(size)
                : refuse(ZIP_ER_WRITE, EIO);
        case ZIP_SOURCE_SEEK_WRITE: {
            const auto to = zip_source_seek_compute_offset(
                static_cast<zip_uint64_t>(_handle.position()),
                static_cast<zip_uint64_t>(_handle.size()), data, size, &_error);
            if (to < 0)
                return -1;
            return _handle.seek(to) ? 0 : refuse(ZIP_ER_SEEK, EIO);
        }
        case ZIP_SOURCE_TELL_WRITE:
            return _handle.position();
        case ZIP_SOURCE_SUPPORTS:
            return ZIP_SOURCE_SUPPORTS_WRITABLE;
        default:
            return refuse(ZIP_ER_OPNOTSUPP);
        }
    }

private:
    filesystem::FileHandle &_handle;
};

} // namespace

zip_source_t *zipSourceOf(std::unique_ptr<Stream> stream, zip_error_t *error)
{
    return Source::handOver(std::make_unique<StreamSource>(std::move(stream)), error);
}

zip_source_t *zipSourceOf(StreamOpener open, std::string &problem, zip_error_t *error)
{
    return Source::handOver(std::make_unique<OpenedSource>(std::move(open), problem), error);
}

zip_source_t *zipTargetOf(filesystem::FileHandle &handle, zip_error_t *error)
{
    return Source::handOver(std::make_unique<FileTarget>(handle), error);
}

} // namespace streams
