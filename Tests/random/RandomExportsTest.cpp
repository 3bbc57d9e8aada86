// SPDX-License-Identifier: MIT
#include "support/NativeDocument.h"
#include "support/RandomOperations.h"
#include "support/ScoreFiles.h"
#include "support/SmallScore.h"
#include "support/TextDifference.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <filesystem/RAMFileSystem.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;

std::shared_ptr<ScoreModel> readAgain(const std::string &text)
{
    filesystem::RAMFileSystem files;
    auto writing = files.open("again.musicxml", filesystem::OpenMode::Write);
    writing->writeBlock(text.data(), static_cast<std::int64_t>(text.size()));
    writing->close();
    io::ImportReport report;
    return io::MusicXmlImporter().read(*files.open("again.musicxml", filesystem::OpenMode::Read),
                                       report);
}

std::shared_ptr<ScoreModel> throughMusicXml(const ScoreModel &model, io::ExportReport &report)
{
    return readAgain(io::MusicXmlExporter().toText(model, report));
}

/// Calls for each voice with beats.
template <class Action>
void forEachVoice(const ScoreModel &model, Action action)
{
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (const auto &bar : staff->bars())
                for (const auto &voice : bar->voices())
                    if (voice && !voice->isEmpty())
                        action(*voice);
}

/// Readers fill up what a bar has no beats for.
bool areBarsFull(const ScoreModel &model)
{
    bool areFull = true;
    forEachVoice(model, [&](const Voice &voice) {
        areFull = areFull && voice.length() == voice.parentBar()->length();
    });
    return areFull;
}

/// A score as a text. What can be said in several ways is said in one, as reading settles it: how
/// notes are spelled that say nothing, what a rest of a whole bar would be elsewhere, which way a
/// sheet of paper is turned, and notations that an instrument is read from anyway.
std::string asSettled(const ScoreModel &model)
{
    const auto copy = model.clone();
    forEachVoice(*copy, [](const Voice &voice) {
        for (const auto &beat : voice.beats()) {
            for (const auto &note : beat->notes())
                note->clearSpelling();
            if (beat->isWholeBarRest())
                beat->setRhythmValue(RhythmValue(RhythmValue::NoteValue::Whole));
        }
    });
    auto page = copy->pageSetup();
    if (page.width > page.height) {
        std::swap(page.width, page.height);
        page.orientation = page.orientation == PageSetup::Orientation::Portrait
            ? PageSetup::Orientation::Landscape
            : PageSetup::Orientation::Portrait;
        copy->setPageSetup(page);
    }
    for (const auto &track : copy->tracks()) {
        const auto chosen = track->chosenNotations();
        track->setChosenNotations(std::nullopt);
        if (chosen && *chosen != track->notations())
            track->setChosenNotations(chosen);
    }
    return test::writeNative(*copy);
}

/// A score is edited a little and written; what is read again is the same, or the report says why
/// not. Answers how many scores were the same.
unsigned expectSameOrTold(const ScoreModel &model, std::uint64_t seeds)
{
    io::ExportReport first;
    // What MusicXML leaves open, such as the spelling of notes, is settled once it was read.
    const auto settled = throughMusicXml(*throughMusicXml(model, first), first);
    const auto &operations = randomOperations();
    unsigned same = 0;
    for (std::uint64_t seed = 0; seed < seeds; ++seed) {
        Random random(seed);
        Score score;
        score.setScoreModel(settled->clone());
        EditedScore edited(score, random);
        std::string done;
        for (unsigned left = 1 + random.below(3), tries = 0; left > 0 && tries < 40; ++tries) {
            const auto &operation = operations[random.below(operations.size())];
            try {
                if (operation.act(edited)) {
                    done += std::string(" ") + operation.name;
                    --left;
                }
            } catch (const CoreException &) { // a place that is not there
            }
        }
        if (!areBarsFull(*score.scoreModel()))
            continue;
        const auto before = asSettled(*score.scoreModel());
        io::ExportReport report;
        const auto text = io::MusicXmlExporter().toText(*score.scoreModel(), report);
        if (!report.unheld().empty() || !report.problems().empty())
            continue;
        const auto copy = readAgain(text);
        const auto after = asSettled(*copy);
        ++same;
        EXPECT_TRUE(before == after) << "seed " << seed << ':' << done << '\n'
                                     << textDifference(before, after);
        const auto second = io::MusicXmlExporter().toText(*copy, report);
        EXPECT_TRUE(second == text) << "seed " << seed << ", the second export:" << done << '\n'
                                    << textDifference(text, second);
    }
    return same;
}

TEST(RandomExportsTest, editsComeBackThroughMusicXmlOrAreTold)
{
    EXPECT_GT(expectSameOrTold(SmallScore().model, 400), 100U);
}

} // namespace
