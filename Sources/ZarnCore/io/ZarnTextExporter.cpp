// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnTextExporter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/sheet/PostedPage.h>

#include <filesystem/FileHandle.h>

#include <algorithm>

namespace zarn::io {

namespace {

constexpr int LeastWidth = 20;

} // namespace

TextExporter::TextExporter(TabRhythm rhythm, int width) noexcept
    : _rhythm(rhythm), _width(std::max(LeastWidth, width))
{
}

TextExporter::~TextExporter() = default;

std::string TextExporter::description() const
{
    return "Tablature as text";
}

std::list<std::string> TextExporter::extensions() const
{
    return {"tab", "txt"};
}

void TextExporter::write(const ScoreModel &model, filesystem::FileHandle &handle,
                         ExportReport &) const
{
    const std::string text = toText(model);
    handle.writeBlock(text.data(), static_cast<std::int64_t>(text.size()));
    if (!handle.close())
        ZARN_RAISE_IN("zarn::io::TextExporter::write", handle.errorText());
}

std::string TextExporter::toText(const ScoreModel &model) const
{
    return sheet::postedPageOf(model, {_width, _rhythm == TabRhythm::Shown});
}

} // namespace zarn::io
