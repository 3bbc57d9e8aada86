// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnLilyPondExporter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/lilypond/Document.h>

#include <filesystem/FileHandle.h>

namespace zarn::io {

LilyPondExporter::~LilyPondExporter() = default;

std::string LilyPondExporter::description() const
{
    return "LilyPond";
}

std::list<std::string> LilyPondExporter::extensions() const
{
    return {"ly"};
}

void LilyPondExporter::write(const ScoreModel &model, filesystem::FileHandle &handle,
                             ExportReport &report) const
{
    const std::string text = toText(model, report);
    handle.writeBlock(text.data(), static_cast<std::int64_t>(text.size()));
    if (!handle.close())
        ZARN_RAISE_IN("zarn::io::LilyPondExporter::write", handle.errorText());
}

std::string LilyPondExporter::toText(const ScoreModel &model, ExportReport &report) const
{
    return lilypond::documentOf(model, report);
}

} // namespace zarn::io
