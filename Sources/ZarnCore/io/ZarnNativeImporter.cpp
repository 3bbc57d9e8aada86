// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnNativeImporter.h>

#include <ZarnCore/io/FileContent.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/native/BarFields.h>
#include <ZarnCore/io/native/ScoreFields.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/clip/ZarnClip.h>
#include <ZarnCore/model/notes/LinkFaults.h>
#include <ZarnCore/model/notes/SpanFaults.h>
#include <ZarnCore/model/notes/Ties.h>

#include <filesystem/FileHandle.h>

#include <algorithm>
#include <cctype>
#include <string_view>
#include <vector>

namespace zarn::io {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr const char *here = "zarn::io::NativeImporter::read";

/// Line and column (in bytes), both from 1, and the offset from 0.
std::string placeOf(std::string_view bytes, std::size_t offset)
{
    const std::string_view before = bytes.substr(0, offset);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t lineEnd = before.rfind('\n');
    const std::size_t column = lineEnd == std::string_view::npos ? offset + 1 : offset - lineEnd;
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ", byte "
        + std::to_string(offset);
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

/// Parses in place: the texts of the values stay in `bytes`.
std::vector<native::Json> parse(std::string &bytes, filesystem::FileHandle &handle,
                                native::JsonStream &stream)
{
    const std::size_t zero = bytes.find('\0');
    if (zero != std::string::npos)
        ZARN_REFUSE_IN(here, handle.path(), placeOf(bytes, zero), "a zero byte is no text");
    const std::size_t start = startsWith(bytes, byteOrderMark) ? byteOrderMark.size() : 0;
    std::vector<native::Json> values;
    const native::JsonError error = native::parseJson(bytes, start, values, stream);
    if (error.reason.empty())
        return values;
    // Parsing has overwritten what lies before the place.
    const std::string original = readWhole(handle);
    ZARN_REFUSE_IN(here, handle.path(), placeOf(original, start + error.offset), error.reason);
}

/// Takes away what repeats nothing, and says so.
void mendSimileMarks(ScoreModel &model, ImportReport &report)
{
    for (const auto &track : model.tracks()) {
        for (const auto &staff : track->staves()) {
            if (staff->barCount() == 0 || staff->bars()[0]->simileMark() != SimileMark::Simple)
                continue;
            staff->bars()[0]->setSimileMark(SimileMark::None);
            report.addProblem({"a simile mark repeats the bar in front, and there is none: it was "
                               "left out",
                               static_cast<int>(track->index()), 0, 0});
        }
    }
}

/// Groups hold tracks that are there.
void mendTrackGroups(ScoreModel &model, ImportReport &report)
{
    TrackGroups kept;
    const unsigned count = model.trackCount();
    for (std::size_t i = 0; i < model.trackGroups().size(); ++i) {
        TrackGroup group = model.trackGroups()[i];
        if (group.last >= count) {
            const bool isAnyThere = group.first < count;
            report.addProblem(
                {"/trackGroups/" + std::to_string(i) + ": the group reaches to track "
                     + std::to_string(group.last + 1) + " of " + std::to_string(count)
                     + (isAnyThere ? "; it ends with the last one" : "; it was left out"),
                 -1, -1, 0});
            if (!isAnyThere)
                continue;
            group.last = count - 1;
        }
        kept.push_back(std::move(group));
    }
    model.setTrackGroups(std::move(kept));
}

/// A track plays with a sound that it has.
void mendForcedSounds(ScoreModel &model, ImportReport &report)
{
    for (const auto &track : model.tracks()) {
        if (track->forcedSoundIndex() < static_cast<int>(track->sounds().size()))
            continue;
        report.addProblem({"sound " + std::to_string(track->forcedSoundIndex() + 1) + " of "
                               + std::to_string(track->sounds().size())
                               + " is to be played throughout; the sounds change as written",
                           static_cast<int>(track->index()), -1, 0});
        track->setForcedSoundIndex(TrackSettings::NoForcedSound);
    }
}

/// Takes away what leads to nothing, and says so.
void mendLinks(const ScoreModel &model, ImportReport &report)
{
    for (const auto &track : model.tracks()) {
        for (const auto &staff : track->staves())
            for (const BrokenLink &link : takeBrokenLinksOff(*staff))
                report.addProblem({textOf(link.kind) + std::string(" was left out"),
                                   static_cast<int>(track->index()), static_cast<int>(link.bar),
                                   0});
        for (const BrokenSpan &span : mendBrokenSpans(*track))
            report.addProblem({span.text + std::string(" was mended"),
                               static_cast<int>(track->index()), static_cast<int>(span.place.bar),
                               0});
    }
}

/// Loose ties stay as they are: they are how a note rings on, or is held into a second ending.
void tellOfLooseTies(const ScoreModel &model, ImportReport &report)
{
    for (const auto &track : model.tracks())
        for (const LooseTie &tie : looseTies(*track))
            report.addProblem({tie.isBegun ? "a tie is begun here that nothing ends"
                                           : "a tie ends here that nothing begins",
                               static_cast<int>(track->index()), static_cast<int>(tie.bar), 0});
}

/// Reads a document, and into `clip` what it says of a clip.
std::shared_ptr<ScoreModel> readDocument(filesystem::FileHandle &handle, ImportReport &report,
                                         Clip &clip)
{
    std::string bytes = readWhole(handle);
    native::DocumentReader reader(handle.path(), report);
    native::BarStream stream(reader);
    const std::vector<native::Json> values = parse(bytes, handle, stream);
    auto model = std::make_shared<ScoreModel>();
    native::readScore(reader, values.front(), *model);
    native::readClip(reader, values.front(), clip);
    mendTrackGroups(*model, report);
    mendForcedSounds(*model, report);
    mendSimileMarks(*model, report);
    mendLinks(*model, report);
    for (const std::string &problem : checkModelDownToBars(*model))
        report.addProblem({problem, -1, -1, 0});
    tellOfLooseTies(*model, report);
    return model;
}

} // namespace

NativeImporter::~NativeImporter() = default;

QString NativeImporter::description() const
{
    return QStringLiteral("Zarn score");
}

QStringList NativeImporter::extensions() const
{
    return {QStringLiteral("zarn")};
}

bool NativeImporter::acceptsHandle(filesystem::FileHandle &handle) const
{
    std::string start = peek(handle, 256);
    if (startsWith(start, byteOrderMark))
        start.erase(0, byteOrderMark.size());
    start.erase(std::remove_if(start.begin(), start.end(),
                               [](unsigned char letter) { return std::isspace(letter) != 0; }),
                start.end());
    return startsWith(start, "{\"" + std::string(native::formatKey) + "\":");
}

std::shared_ptr<ScoreModel> NativeImporter::read(filesystem::FileHandle &handle,
                                                 ImportReport &report) const
{
    Clip whole;
    return readDocument(handle, report, whole);
}

Clip NativeImporter::readClip(filesystem::FileHandle &handle, ImportReport &report) const
{
    Clip clip;
    clip.model = readDocument(handle, report, clip);
    return clip;
}

} // namespace zarn::io
