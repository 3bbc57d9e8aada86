// SPDX-License-Identifier: MIT
#include <streams/ZipArchive.h>

#include <streams/MemoryStream.h>
#include <streams/ZipSource.h>

#include <algorithm>
#include <array>
#include <functional>

namespace streams {

namespace {

struct CloseMember {
    void operator()(zip_file_t *file) const { zip_fclose(file); }
};
using OpenMember = std::unique_ptr<zip_file_t, CloseMember>;

std::nullptr_t refuse(std::string *error, const std::string &reason)
{
    if (error != nullptr)
        *error = reason;
    return nullptr;
}

OpenMember openIndex(struct zip *zip, std::uint64_t index, std::string *error)
{
    OpenMember file(zip_fopen_index(zip, index, 0));
    if (!file)
        refuse(error, std::string("cannot be unpacked: ") + zip_strerror(zip));
    return file;
}

/// Hands the bytes of a member on in blocks; false, and the reason, when they are damaged or more
/// than the limit.
bool unpack(zip_file_t *file, std::int64_t limit, std::string *error,
            const std::function<void(const char *, std::size_t)> &take)
{
    std::array<char, std::size_t(1) << 16> block;
    std::int64_t all = 0;
    for (;;) {
        const auto count = zip_fread(file, block.data(), block.size());
        if (count < 0) {
            refuse(error, std::string("cannot be unpacked: ") + zip_file_strerror(file));
            return false;
        }
        if (count == 0)
            return true;
        all += count;
        if (all > limit) {
            refuse(error,
                   "unpacks to more than the " + std::to_string(limit) + " bytes that it may have");
            return false;
        }
        take(block.data(), static_cast<std::size_t>(count));
    }
}

/// A member that is stored as it is.
class StoredMember final : public Stream {
public:
    StoredMember(std::string name, std::int64_t size, std::shared_ptr<struct zip> zip,
                 OpenMember file)
        : _name(std::move(name)), _size(size), _zip(std::move(zip)), _file(std::move(file))
    {
    }

    std::string name() const override { return _name; }
    std::int64_t size() const override { return _size; }
    std::int64_t position() const override { return _position; }

protected:
    bool doSeek(std::int64_t position) override
    {
        if (position == _position)
            return true;
        if (zip_fseek(_file.get(), position, SEEK_SET) != 0)
            return false;
        _position = position;
        return true;
    }

    std::int64_t doRead(void *data, std::int64_t count) override
    {
        const auto read = zip_fread(_file.get(), data, static_cast<zip_uint64_t>(count));
        if (read < 0) {
            fail(std::string("cannot be read: ") + zip_file_strerror(_file.get()));
            return -1;
        }
        _position += read;
        return read;
    }

private:
    std::string _name;
    std::int64_t _size;
    std::shared_ptr<struct zip> _zip; ///< has to outlive the file
    OpenMember _file;
    std::int64_t _position = 0;
};

} // namespace

bool ZipArchive::isZip(std::string_view start) noexcept
{
    return start.substr(0, 4) == "PK\x03\x04" || start.substr(0, 4) == "PK\x05\x06";
}

std::unique_ptr<ZipArchive> ZipArchive::open(std::unique_ptr<Stream> stream, std::string *error)
{
    const std::string name = stream->name();
    const auto size = stream->size();
    if (size == 0) // which libzip takes for an archive of nothing
        return refuse(error, "the archive is damaged: it is empty");
    zip_error_t problem;
    zip_error_init(&problem);
    auto *const source = zipSourceOf(std::move(stream), &problem);
    auto *const zip = source ? zip_open_from_source(source, ZIP_RDONLY, &problem) : nullptr;
    if (zip == nullptr) {
        refuse(error, std::string("the archive is damaged: ") + zip_error_strerror(&problem));
        zip_source_free(source);
    }
    zip_error_fini(&problem);
    if (zip == nullptr)
        return nullptr;
    return std::make_unique<ZipArchive>(
        Opened{name, size, std::shared_ptr<struct zip>(zip, zip_discard)});
}

ZipArchive::ZipArchive(Opened opened) : _name(std::move(opened.name)), _zip(std::move(opened.zip))
{
    const auto size = opened.size;
    const auto count = zip_get_num_entries(_zip.get(), 0);
    for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
        zip_stat_t stat;
        if (zip_stat_index(_zip.get(), i, 0, &stat) != 0 || (stat.valid & ZIP_STAT_NAME) == 0)
            continue;
        Member member;
        member.name = stat.name;
        if (member.name.empty() || member.name.back() == '/')
            continue;
        constexpr auto most = static_cast<zip_uint64_t>(INT64_MAX);
        member.size = static_cast<std::int64_t>(
            stat.valid & ZIP_STAT_SIZE ? std::min(stat.size, most) : most);
        member.packedSize = stat.valid & ZIP_STAT_COMP_SIZE
            ? static_cast<std::int64_t>(std::min(stat.comp_size, static_cast<zip_uint64_t>(size)))
            : size;
        member.isStored = (stat.valid & ZIP_STAT_COMP_METHOD) != 0
            && stat.comp_method == ZIP_CM_STORE
            && ((stat.valid & ZIP_STAT_ENCRYPTION_METHOD) == 0
                || stat.encryption_method == ZIP_EM_NONE);
        if (!_places.emplace(member.name, _members.size()).second && _doubledName.empty())
            _doubledName = member.name;
        _members.push_back(std::move(member));
        _indexes.push_back(i);
    }
}

ZipArchive::~ZipArchive() = default;

const ZipArchive::Member *ZipArchive::find(const std::string &name) const
{
    const auto found = _places.find(name);
    return found == _places.end() ? nullptr : &_members[found->second];
}

bool ZipArchive::read(const Member &member, std::int64_t limit, std::string &bytes,
                      std::string *error) const
{
    // What the archive states is believed when it is too much, and watched otherwise.
    if (member.size > limit) {
        refuse(error,
               "unpacks to more than the " + std::to_string(limit) + " bytes that it may have");
        return false;
    }
    const auto index = _indexes[static_cast<std::size_t>(&member - _members.data())];
    const auto file = openIndex(_zip.get(), index, error);
    if (!file)
        return false;
    bytes.clear();
    bytes.reserve(static_cast<std::size_t>(member.size));
    return unpack(file.get(), limit, error,
                  [&](const char *block, std::size_t count) { bytes.append(block, count); });
}

bool ZipArchive::verify(const Member &member, std::string *error) const
{
    const auto index = _indexes[static_cast<std::size_t>(&member - _members.data())];
    const auto file = openIndex(_zip.get(), index, error);
    return file && unpack(file.get(), member.size, error, [](const char *, std::size_t) {});
}

std::unique_ptr<Stream> ZipArchive::openMember(const Member &member, std::string *error) const
{
    const std::string fullName = _name + ": " + member.name;
    if (!member.isStored) {
        std::string bytes;
        if (!read(member, unpackedLimit, bytes, error))
            return nullptr;
        return std::make_unique<MemoryStream>(fullName, std::move(bytes));
    }
    if (member.size != member.packedSize)
        return refuse(error, "claims to have more bytes than the archive");
    const auto index = _indexes[static_cast<std::size_t>(&member - _members.data())];
    auto file = openIndex(_zip.get(), index, error);
    if (!file)
        return nullptr;
    return std::make_unique<StoredMember>(fullName, member.size, _zip, std::move(file));
}

} // namespace streams
