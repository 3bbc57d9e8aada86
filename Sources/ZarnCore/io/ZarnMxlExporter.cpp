// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnMxlExporter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/io/musicxml/MxlArchive.h>
#include <filesystem/FileHandle.h>

namespace zarn::io {

MxlExporter::~MxlExporter() = default;

std::string MxlExporter::description() const
{
    return "Compressed MusicXML";
}

std::list<std::string> MxlExporter::extensions() const
{
    return {"mxl"};
}

void MxlExporter::write(const ScoreModel &model, filesystem::FileHandle &handle,
                        ExportReport &report) const
{
    packMxl(MusicXmlExporter().toText(model, report), handle);
    if (!handle.close())
        ZARN_RAISE_IN("zarn::io::MxlExporter::write", handle.errorText());
}

} // namespace zarn::io
