// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/MxlArchive.h>

#include <ZarnCore/ZarnAssert.h>

#include <ZarnCore/io/FileContent.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/musicxml/ImportLimits.h>
#include <ZarnCore/io/musicxml/XmlDocument.h>
#include <streams/MemberName.h>
#include <streams/MemoryStream.h>
#include <streams/ZipArchive.h>

#include <algorithm>
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
    Archive(const std::string &document, const std::string &bytes) : _document(document)
    {
        std::string error;
        _zip = streams::ZipArchive::open(streams::MemoryStream::over(document, bytes), &error);
        if (_zip == nullptr)
            refuse("", error);
    }

    bool has(const std::string &name) const { return _zip->find(name) != nullptr; }

    /// The text of a member; refuses one of more than `limit` bytes, and of more than its packed
    /// size explains.
    std::string read(const std::string &name, std::size_t limit = maximumDocumentSize) const
    {
        const auto *const member = _zip->find(name);
        if (member == nullptr)
            refuse(name, "the archive has no such file");
        limit = std::min(limit, mostUnpacked(static_cast<std::size_t>(member->packedSize)));
        std::string text;
        std::string error;
        if (!_zip->read(*member, static_cast<std::int64_t>(limit), text, &error))
            refuse(name, error);
        return text;
    }

    /// Names of the scores, judging by suffix, outside of META-INF.
    std::vector<std::string> scores() const;

    [[noreturn]] void refuse(const std::string &name, const std::string &reason) const
    {
        ZARN_REFUSE_IN("zarn::io::unpackMxl", _document, name, reason);
    }

private:
    const std::string &_document;
    std::unique_ptr<streams::ZipArchive> _zip;
};

std::vector<std::string> Archive::scores() const
{
    std::vector<std::string> names;
    for (const auto &member : _zip->members()) {
        const std::string &name = member.name;
        const auto dot = name.rfind('.');
        const auto suffix = dot == name.npos ? std::string() : name.substr(dot);
        if ((suffix == ".xml" || suffix == ".musicxml") && name.compare(0, 9, "META-INF/") != 0
            && name.compare(0, 9, "__MACOSX/") != 0)
            names.push_back(name);
    }
    return names;
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
    return streams::ZipArchive::isZip(start);
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
    if (!streams::staysInside(*path))
        archive.refuse(containerName, "names a file outside of the archive (\"" + *path + "\")");
    if (!archive.has(*path))
        archive.refuse(containerName, "names \"" + *path + "\", which the archive does not hold");
    return archive.read(*path);
}

namespace {

constexpr const char *scoreName = "score.musicxml";
constexpr const char *mimeType = "application/vnd.recordare.musicxml";

/// An archive that grows in memory.
class NewArchive {
public:
    NewArchive()
    {
        zip_error_t error;
        zip_error_init(&error);
        _source = zip_source_buffer_create(nullptr, 0, 0, &error);
        if (_source) {
            zip_source_keep(_source); // to be read when the archive is closed
            _zip = zip_open_from_source(_source, ZIP_TRUNCATE, &error);
        }
        const std::string reason = _zip ? std::string() : zip_error_strerror(&error);
        zip_error_fini(&error);
        if (!_zip)
            fail(reason);
    }
    NewArchive(const NewArchive &) = delete;
    NewArchive &operator=(const NewArchive &) = delete;
    ~NewArchive()
    {
        if (_zip)
            zip_discard(_zip);
        zip_source_free(_source);
    }

    /// The content has to stay where it is until `finish`.
    void add(const char *name, const std::string &content, int method)
    {
        auto *const source = zip_source_buffer(_zip, content.data(), content.size(), 0);
        const auto index = source ? zip_file_add(_zip, name, source, ZIP_FL_ENC_UTF_8) : -1;
        if (source && index < 0)
            zip_source_free(source);
        // The first minute that a zip archive can tell.
        constexpr std::uint16_t firstDay = 1 << 5 | 1;
        const auto at = static_cast<zip_uint64_t>(index);
        if (index < 0 || zip_set_file_compression(_zip, at, method, 0) != 0
            || zip_file_set_dostime(_zip, at, 0, firstDay, 0) != 0)
            fail(zip_strerror(_zip));
    }

    std::string finish()
    {
        if (zip_close(_zip) != 0)
            fail(zip_strerror(_zip));
        _zip = nullptr;
        zip_stat_t stat;
        if (zip_source_stat(_source, &stat) != 0 || zip_source_open(_source) != 0)
            fail(zip_error_strerror(zip_source_error(_source)));
        std::string bytes(static_cast<std::size_t>(stat.size), '\0');
        const auto count = zip_source_read(_source, bytes.data(), bytes.size());
        zip_source_close(_source);
        if (count != static_cast<zip_int64_t>(bytes.size()))
            fail("the archive cannot be read again");
        return bytes;
    }

private:
    [[noreturn]] static void fail(const std::string &reason)
    {
        ZARN_RAISE_IN("zarn::io::packMxl", "the archive cannot be made: " + reason);
    }

    zip_source_t *_source = nullptr;
    zip_t *_zip = nullptr;
};

} // namespace

std::string packMxl(const std::string &score)
{
    const std::string type = mimeType;
    const std::string container = std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                              "<container>\n <rootfiles>\n"
                                              "  <rootfile full-path=\"")
        + scoreName + "\" media-type=\"application/vnd.recordare.musicxml+xml\"/>\n"
        + " </rootfiles>\n</container>\n";
    NewArchive archive;
    archive.add("mimetype", type, ZIP_CM_STORE);
    archive.add(containerName, container, ZIP_CM_DEFLATE);
    archive.add(scoreName, score, ZIP_CM_DEFLATE);
    return archive.finish();
}

} // namespace zarn::io
