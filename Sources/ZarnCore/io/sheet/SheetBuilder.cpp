// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/SheetBuilder.h>

#include <ZarnCore/io/sheet/BarHeadings.h>
#include <ZarnCore/io/sheet/CharacterRow.h>
#include <ZarnCore/io/sheet/DrumWriter.h>
#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/io/sheet/NoteNameWriter.h>
#include <ZarnCore/io/sheet/TabWriter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <memory>

namespace zarn::sheet {

namespace {

struct ShownStaff {
    const Staff *staff;
    std::unique_ptr<StaffWriter> writer;
};

constexpr int WidestNumberedName = 11;

QString nameOf(const Track &track, const Staff &staff, const Glyphs &glyphs)
{
    // A name may stand on two lines.
    QString name =
        QString::fromStdString(track.shortName().empty() ? track.name() : track.shortName())
            .simplified();
    if (name.isEmpty())
        name = QStringLiteral("track %1").arg(track.index() + 1);
    if (track.staffCount() > 1)
        name = QStringLiteral("%1 %2")
                   .arg(shortened(name, WidestNumberedName, glyphs.isUtf8))
                   .arg(staff.index() + 1);
    return name;
}

std::unique_ptr<StaffWriter> writerFor(const Track &track, const Staff &staff,
                                       const ShownPart &part, Sheet &sheet, const Glyphs &glyphs,
                                       Legend &legend)
{
    const QString name = nameOf(track, staff, glyphs);
    if (isShownAsDrums(track, staff))
        return std::make_unique<DrumWriter>(sheet, staff, name, glyphs, legend);
    if (isShownAsTab(staff)) {
        const QString shown = glyphs.isPosted ? QString() : name;
        auto writer = std::make_unique<TabWriter>(sheet, staff, shown, glyphs, legend);
        if (!part.hasTabRhythm)
            writer->hideRhythm();
        return writer;
    }
    return std::make_unique<NoteNameWriter>(sheet, staff, name, glyphs, legend);
}

} // namespace

Sheet buildSheet(const ScoreModel &model, const ShownPart &part, const Glyphs &glyphs,
                 Legend &legend)
{
    Sheet sheet;
    sheet.labelGap = glyphs.isPosted ? 0 : 1;
    std::vector<ShownStaff> staves;
    for (const auto &track : model.tracks()) {
        if (part.track && *part.track != track->index())
            continue;
        const std::size_t first = staves.size();
        for (const auto &staff : track->staves()) {
            staves.push_back({staff.get(), writerFor(*track, *staff, part, sheet, glyphs, legend)});
            StaffWriter &writer = *staves.back().writer;
            if (staves.size() > first + 1)
                writer.joinTrackOf(*staves[first].writer);
            writer.showOnlyLyrics(track->lyricsVisible());
            if (part.voice)
                writer.showOnlyVoice(*part.voice);
        }
    }
    const MasterTrack &master = *model.masterTrack();
    const unsigned end = std::min(master.masterBarCount(), part.lastBar + 1);
    for (unsigned index = part.firstBar; index < end; ++index) {
        const bool isFirst = index == part.firstBar;
        SheetBar bar;
        bar.number = static_cast<int>(index) + 1;
        bar.length = master.masterBars()[index]->length();
        addBarHeadings(master, index, isFirst, glyphs, bar);
        if (master.masterBars()[index]->repeatCount() > 2)
            legend.use(Legend::Sign::PlayedTimes);
        for (const ShownStaff &shown : staves) {
            if (showsTimeSignature(master, index, isFirst))
                shown.writer->writeTimeSignature(master.masterBars()[index]->timeSignature(), bar);
            if (index < shown.staff->barCount())
                shown.writer->writeBar(*shown.staff->bars()[index], *master.masterBars()[index],
                                       bar);
        }
        sheet.bars.push_back(std::move(bar));
    }
    for (const ShownStaff &shown : staves)
        shown.writer->finish();
    return sheet;
}

} // namespace zarn::sheet
