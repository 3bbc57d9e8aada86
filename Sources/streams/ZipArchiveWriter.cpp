// SPDX-License-Identifier: MIT
#include <streams/ZipArchiveWriter.h>

#include <streams/MemoryStream.h>
#include <streams/ZipSource.h>

namespace streams {

namespace {

/// The first day that a zip archive can name: the bytes do not depend on the day of writing.
constexpr zip_uint16_t firstDay = 1 << 5 | 1;

} // namespace

void ZipArchiveWriter::Discard::operator()(struct zip *zip) const
{
    zip_discard(zip);
}

ZipArchiveWriter::ZipArchiveWriter(filesystem::FileHandle &handle) : _handle(handle)
{
    zip_error_t problem;
    zip_error_init(&problem);
    auto *const target = zipTargetOf(handle, &problem);
    _zip.reset(target ? zip_open_from_source(target, ZIP_CREATE | ZIP_TRUNCATE, &problem)
                      : nullptr);
    if (!_zip) {
        fail(zip_error_strerror(&problem));
        zip_source_free(target);
    }
    zip_error_fini(&problem);
}

ZipArchiveWriter::~ZipArchiveWriter() = default;

bool ZipArchiveWriter::fail(const std::string &reason)
{
    if (!_error.empty())
        return false;
    if (_handle.hasError())
        _error = _handle.errorText();
    else
        _error = _memberProblem.empty() ? _handle.path() + ": " + reason : _memberProblem;
    return false;
}

bool ZipArchiveWriter::add(const std::string &name, std::string bytes, Packing packing)
{
    const auto kept = std::make_shared<const std::string>(std::move(bytes));
    return add(
        name,
        [name, kept](std::string *) -> std::unique_ptr<Stream> {
            return std::make_unique<MemoryStream>(name, kept);
        },
        packing);
}

bool ZipArchiveWriter::add(const std::string &name, Opener open, Packing packing)
{
    if (!_error.empty())
        return false;
    if (!_zip)
        return fail("the archive is finished");
    zip_error_t problem;
    zip_error_init(&problem);
    auto *const source = zipSourceOf(std::move(open), _memberProblem, &problem);
    zip_error_fini(&problem);
    const auto index =
        source ? zip_file_add(_zip.get(), name.c_str(), source, ZIP_FL_ENC_UTF_8) : -1;
    if (index < 0) {
        zip_source_free(source);
        return fail(name + ": " + zip_strerror(_zip.get()));
    }
    const auto place = static_cast<zip_uint64_t>(index);
    const auto method = packing == Packing::Stored ? ZIP_CM_STORE : ZIP_CM_DEFLATE;
    if (zip_set_file_compression(_zip.get(), place, method, 0) != 0
        || zip_file_set_dostime(_zip.get(), place, 0, firstDay, 0) != 0)
        return fail(name + ": " + zip_strerror(_zip.get()));
    ++_count;
    return true;
}

bool ZipArchiveWriter::finish()
{
    if (!_error.empty())
        return false;
    if (!_zip || _count == 0)
        return fail(_zip ? "the archive would be empty" : "the archive is finished");
    if (zip_close(_zip.get()) != 0)
        return fail(zip_strerror(_zip.get()));
    static_cast<void>(_zip.release()); // closed is freed
    return true;
}

} // namespace streams
