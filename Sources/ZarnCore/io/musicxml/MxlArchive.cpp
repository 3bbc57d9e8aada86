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
#include <streams/ZipArchiveWriter.h>

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

} // namespace

void packMxl(const std::string &score, filesystem::FileHandle &handle)
{
    using Packing = streams::ZipArchiveWriter::Packing;
    const std::string container = std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                              "<container>\n <rootfiles>\n"
                                              "  <rootfile full-path=\"")
        + scoreName + "\" media-type=\"application/vnd.recordare.musicxml+xml\"/>\n"
        + " </rootfiles>\n</container>\n";
    streams::ZipArchiveWriter archive(handle);
    archive.add("mimetype", mimeType, Packing::Stored);
    archive.add(containerName, container, Packing::Deflated);
    archive.add(scoreName, score, Packing::Deflated);
    if (!archive.finish())
        ZARN_RAISE_IN("zarn::io::packMxl", archive.errorText());
}

} // namespace zarn::io
