// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnMusicXmlExporter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/musicxml/writer/ScoreWriter.h>
#include <ZarnCore/io/musicxml/writer/XmlSink.h>
#include <filesystem/FileHandle.h>

namespace zarn::io {

MusicXmlExporter::~MusicXmlExporter() = default;

std::string MusicXmlExporter::description() const
{
    return "MusicXML";
}

std::list<std::string> MusicXmlExporter::extensions() const
{
    return {"musicxml", "xml"};
}

void MusicXmlExporter::write(const ScoreModel &model, filesystem::FileHandle &handle,
                             ExportReport &report) const
{
    FileSink sink(handle);
    writeScore(model, sink, report);
    sink.flush();
    if (!handle.close())
        ZARN_RAISE_IN("zarn::io::MusicXmlExporter::write", handle.errorText());
}

std::string MusicXmlExporter::toText(const ScoreModel &model, ExportReport &report) const
{
    TextSink sink;
    writeScore(model, sink, report);
    return sink.take();
}

} // namespace zarn::io
