// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/MxlArchive.h>

#include <ZarnCore/io/FileContent.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/musicxml/ImportLimits.h>
#include <ZarnCore/io/musicxml/XmlDocument.h>

#include <zip.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>

namespace zarn::io {

namespace {

constexpr const char *containerName = "META-INF/container.xml";

/// A container names a few files.
constexpr std::size_t longestContainer = std::size_t(1) << 20;

class Archive {
public:
    Archive(const std::string &document, const std::string &bytes)
        : _document(document), _size(bytes.size())
    {
        zip_error_t error;
        zip_error_init(&error);
        auto *source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
        _zip.reset(source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr);
        const std::string text = _zip ? std::string() : zip_error_strerror(&error);
        if (!_zip)
            zip_source_free(source);
        zip_error_fini(&error);
        if (!_zip)
            refuse("", "the archive is damaged: " + text);
    }

    bool has(const std::string &name) const
    {
        return zip_name_locate(_zip.get(), name.c_str(), 0) >= 0;
    }

    /// The text of an entry; refuses one of more than `limit` bytes, and of more than its packed
    /// size explains.
    std::string read(const std::string &name, std::size_t limit = maximumDocumentSize) const;

    /// Names of the scores, judging by suffix, outside of META-INF.
    std::vector<std::string> scores() const;

    [[noreturn]] void refuse(const std::string &name, const std::string &reason) const
    {
        ZARN_REFUSE_IN("zarn::io::unpackMxl", _document, name, reason);
    }

private:
    struct Discard {
        void operator()(zip_t *zip) const { zip_discard(zip); }
        void operator()(zip_file_t *file) const { zip_fclose(file); }
    };

    const std::string &_document;
    std::size_t _size;
    std::unique_ptr<zip_t, Discard> _zip;
};

std::string Archive::read(const std::string &name, std::size_t limit) const
{
    zip_stat_t stat;
    if (zip_stat(_zip.get(), name.c_str(), 0, &stat) != 0)
        refuse(name, "the archive has no such file");
    const std::unique_ptr<zip_file_t, Discard> file(zip_fopen(_zip.get(), name.c_str(), 0));
    if (!file)
        refuse(name, std::string("cannot be unpacked: ") + zip_strerror(_zip.get()));
    // The packed size may be a lie, too; it is never more than the archive.
    const auto packed =
        std::min<zip_uint64_t>(stat.valid & ZIP_STAT_COMP_SIZE ? stat.comp_size : _size, _size);
    limit = std::min(limit, mostUnpacked(static_cast<std::size_t>(packed)));
    const auto refuseSize = [&](zip_uint64_t size) {
        if (size > limit)
            refuse(name,
                   "unpacks to more than a score can be (" + std::to_string(packed)
                       + " bytes to more than " + std::to_string(limit) + ")");
    };
    // What the archive states is believed when it is too much, and watched otherwise.
    const auto stated = stat.valid & ZIP_STAT_SIZE ? stat.size : 0;
    refuseSize(stated);

    std::string text;
    text.reserve(static_cast<std::size_t>(stated));
    char block[1 << 16];
    for (;;) {
        const auto count = zip_fread(file.get(), block, sizeof block);
        if (count < 0)
            refuse(name, std::string("cannot be unpacked: ") + zip_file_strerror(file.get()));
        if (count == 0)
            return text;
        refuseSize(text.size() + static_cast<std::size_t>(count));
        text.append(block, static_cast<std::size_t>(count));
    }
}

std::vector<std::string> Archive::scores() const
{
    std::vector<std::string> names;
    const auto count = zip_get_num_entries(_zip.get(), 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        const char *raw = zip_get_name(_zip.get(), static_cast<zip_uint64_t>(i), 0);
        const std::string name = raw ? raw : "";
        const auto dot = name.rfind('.');
        const auto suffix = dot == name.npos ? std::string() : name.substr(dot);
        if ((suffix == ".xml" || suffix == ".musicxml") && name.compare(0, 9, "META-INF/") != 0
            && name.compare(0, 9, "__MACOSX/") != 0)
            names.push_back(name);
    }
    return names;
}

bool leavesArchive(const std::string &path)
{
    if (path.empty() || path[0] == '/' || path[0] == '\\' || path.find(':') != path.npos)
        return true;
    std::size_t start = 0;
    for (;;) {
        const auto end = path.find_first_of("/\\", start);
        if (path.compare(start, end == path.npos ? end : end - start, "..") == 0)
            return true;
        if (end == path.npos)
            return false;
        start = end + 1;
    }
}

bool isScoreType(std::string_view mediaType)
{
    return mediaType.empty() || mediaType == "application/vnd.recordare.musicxml+xml"
        || mediaType == "application/vnd.recordare.musicxml" || mediaType == "text/xml"
        || mediaType == "application/xml";
}

/// Local part of a tag name: the container may use a namespace prefix.
std::string_view localName(pugi::xml_node node)
{
    const std::string_view name = node.name();
    const auto colon = name.rfind(':');
    return colon == name.npos ? name : name.substr(colon + 1);
}

std::optional<std::string> rootFilePath(pugi::xml_node container)
{
    for (const auto list : container.children())
        for (const auto file : list.children())
            if (localName(file) == "rootfile" && isScoreType(file.attribute("media-type").value()))
                return std::string(file.attribute("full-path").value());
    return std::nullopt;
}

} // namespace

bool isZipArchive(const std::string &start)
{
    return start.compare(0, 4, "PK\x03\x04") == 0 || start.compare(0, 4, "PK\x05\x06") == 0;
}

std::string unpackMxl(const std::string &document, const std::string &bytes, ImportReport &report)
{
    const Archive archive(document, bytes);
    if (!archive.has(containerName)) {
        const auto scores = archive.scores();
        if (scores.size() != 1)
            archive.refuse(containerName, "is missing from the archive");
        report.addProblem({"META-INF/container.xml is missing; the only score of the archive, "
                           + scores.front() + ", was read"});
        return archive.read(scores.front());
    }
    const XmlDocument container(document + ": " + containerName,
                                archive.read(containerName, longestContainer), report);
    const auto path = rootFilePath(container.root());
    if (!path)
        archive.refuse(containerName, "names no MusicXML file");
    if (leavesArchive(*path))
        archive.refuse(containerName, "names a file outside of the archive (\"" + *path + "\")");
    if (!archive.has(*path))
        archive.refuse(containerName, "names \"" + *path + "\", which the archive does not hold");
    return archive.read(*path);
}

} // namespace zarn::io
