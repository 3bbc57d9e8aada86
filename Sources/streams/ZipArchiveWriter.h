// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileHandle.h>
#include <streams/Stream.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

struct zip;

namespace streams {

/// Writes a zip archive into a file: equal members give equal bytes, whenever they are written.
///
///     ZipArchiveWriter archive(*handle);
///     archive.add("a.txt", text, ZipArchiveWriter::Packing::Deflated);
///     if (!archive.finish() || !handle->close())
///         ... archive.errorText() ...
///
/// Members are read when the archive is finished; one that cannot be read fails the whole. A file
/// whose handle is given up without `close` keeps what it was.
class STREAMS_EXPORT ZipArchiveWriter {
public:
    /// Stored members can be read in place, and what is packed already gets no smaller.
    enum class Packing { Stored, Deflated };

    /// The handle is open for writing, at its start, and lives longer.
    explicit ZipArchiveWriter(filesystem::FileHandle &handle);
    ~ZipArchiveWriter();
    ZipArchiveWriter(const ZipArchiveWriter &) = delete;
    ZipArchiveWriter &operator=(const ZipArchiveWriter &) = delete;

    /// Opens what a member is read from; null with the reason.
    using Opener = std::function<std::unique_ptr<Stream>(std::string *error)>;

    /// Members stand in the archive in the order in which they are added; a name stands there once.
    /// What is opened is open only while it is read.
    bool add(const std::string &name, std::string bytes, Packing packing);
    bool add(const std::string &name, Opener open, Packing packing);

    /// Writes everything into the handle, which is left open. An archive without members is an
    /// error.
    bool finish();

    /// What went wrong first; empty while nothing did.
    const std::string &errorText() const noexcept { return _error; }

private:
    struct Discard {
        void operator()(struct zip *zip) const;
    };

    bool fail(const std::string &reason);

    filesystem::FileHandle &_handle;
    std::string _memberProblem; ///< what went wrong with a member; the archive writes to it
    std::unique_ptr<struct zip, Discard> _zip;
    std::size_t _count = 0;
    std::string _error;
};

} // namespace streams
