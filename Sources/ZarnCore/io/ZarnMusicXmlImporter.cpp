// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnMusicXmlImporter.h>

#include <ZarnCore/io/FileContent.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/musicxml/MxlArchive.h>
#include <ZarnCore/io/musicxml/ScoreReader.h>
#include <ZarnCore/io/musicxml/XmlDocument.h>
#include <ZarnCore/io/musicxml/XmlText.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/FileHandle.h>

#include <new>
#include <optional>

namespace zarn::io {

MusicXmlImporter::~MusicXmlImporter() = default;

QString MusicXmlImporter::description() const
{
    return QStringLiteral("MusicXML");
}

QStringList MusicXmlImporter::extensions() const
{
    return {QStringLiteral("musicxml"), QStringLiteral("mxl"), QStringLiteral("xml")};
}

bool MusicXmlImporter::acceptsHandle(filesystem::FileHandle &handle) const
{
    constexpr std::size_t enoughForProlog = 16384;
    const auto start = peek(handle, enoughForProlog);
    if (isZipArchive(start))
        return true;
    const auto root = rootElementName(start);
    return root == "score-partwise" || root == "score-timewise";
}

std::shared_ptr<ScoreModel> MusicXmlImporter::read(filesystem::FileHandle &handle,
                                                   ImportReport &report) const
{
    const auto name = handle.path();
    try {
        auto bytes = readWhole(handle);
        std::optional<std::size_t> packedSize;
        if (isZipArchive(bytes)) {
            packedSize = bytes.size();
            bytes = unpackMxl(name, bytes, report);
        }
        const XmlDocument document(name, std::move(bytes), report, packedSize);
        return readScore(document, report);
    } catch (const ImportException &) {
        throw;
    } catch (const CoreException &error) {
        // A number that the tree refuses; the readers answer for those that they know of.
        ZARN_REFUSE_IN("zarn::io::MusicXmlImporter::read", name, "", error.message());
    } catch (const std::bad_alloc &) {
        ZARN_REFUSE_IN("zarn::io::MusicXmlImporter::read", name, "",
                       "there is not enough memory for the document");
    }
}

} // namespace zarn::io
