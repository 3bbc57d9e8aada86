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

#include <cstdlib>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>

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

/// Readers make a bar as long as its notes are.
bool areBarsFull(const ScoreModel &model)
{
    bool areFull = true;
    forEachVoice(model, [&](const Voice &voice) {
        areFull = areFull && voice.length() <= voice.parentBar()->length();
    });
    return areFull;
}

std::string nameOf(const Beat &beat)
{
    const auto &voice = *beat.parentVoice();
    const auto &bar = *voice.parentBar();
    return std::to_string(bar.parentStaff()->index()) + '.' + std::to_string(bar.index()) + '.'
        + std::to_string(voice.index()) + '.' + std::to_string(beat.index());
}

/// Takes the slurs off a track; a line for each, which tells the beats at its ends and its look. A
/// slur over the beats of one voice is marks of theirs or has a number.
std::multiset<std::string> takeSlurs(const Track &track)
{
    std::multiset<std::string> slurs;
    const auto add = [&](const Beat &begin, const Beat &end, SlurLine line, SlurSide side) {
        slurs.insert("slur " + nameOf(begin) + " to " + nameOf(end) + ' ' + slurLineToString(line)
                     + ' ' + markSideToString(side));
    };
    using Time = std::pair<unsigned, utils::rational>;
    std::map<int, std::multimap<Time, std::pair<const Beat *, SlurEnd>>> numbered;
    for (const auto &staff : track.staves())
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
            const Beat *begin = nullptr;
            SlurLine line = SlurLine::Solid;
            SlurSide side = SlurSide::Auto;
            for (const auto &bar : staff->bars()) {
                utils::rational onset;
                for (unsigned i = 0; bar->voice(slot) && i < bar->voice(slot)->beatCount(); ++i) {
                    auto &beat = *bar->voice(slot)->beat(i);
                    for (const auto &end : beat.slurEnds())
                        numbered[end.number].insert({{bar->index(), onset}, {&beat, end}});
                    onset += beat.length();
                    if (begin && (!beat.isSlurredToNext() || beat.beginsSlur()))
                        add(*std::exchange(begin, nullptr), beat, line, side);
                    if (!begin && beat.isSlurredToNext()) {
                        begin = &beat;
                        line = beat.slurLine();
                        side = beat.slurSide();
                    }
                    beat.setSlurredToNext(false);
                    beat.setSlurredToPrevious(false);
                    beat.setSlurBegins(false);
                    beat.setSlurEnds({});
                    beat.setSlurLine(SlurLine::Solid);
                    beat.setSlurSide(SlurSide::Auto);
                }
            }
        }
    for (const auto &[number, ends] : numbered)
        for (auto end = ends.begin(); end != ends.end() && std::next(end) != ends.end();
             std::advance(end, 2)) {
            const auto &[begin, look] = end->second;
            add(*begin, *std::next(end)->second.first, look.line, look.side);
        }
    return slurs;
}

/// A score as a text. What can be said in several ways is said in one, as reading settles it: how
/// notes are spelled that say nothing, what a rest of a whole bar would be elsewhere, which way a
/// sheet of paper is turned, notations that an instrument is read from anyway, and slurs.
std::string asSettled(const ScoreModel &model, bool areSlursSettled = true)
{
    const auto copy = model.clone();
    std::string slurs;
    for (const auto &track : copy->tracks())
        if (areSlursSettled)
            for (const auto &slur : takeSlurs(*track))
                slurs += slur + '\n';
    forEachVoice(*copy, [](const Voice &voice) {
        for (const auto &beat : voice.beats()) {
            for (const auto &note : beat->notes())
                note->clearSpelling();
            // A document says it where a hairpin begins, and readers of all of its beats.
            beat->setHairpinSide(MarkSide::Auto);
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
    return slurs + test::writeNative(*copy);
}

/// A score is edited a little and written; what is read again is the same, or the report says why
/// not. Answers how many scores were the same.
unsigned expectSameOrTold(const ScoreModel &start, std::uint64_t seeds)
{
    io::ExportReport unused;
    // What MusicXML leaves open, such as the spelling of notes, is settled once it was read.
    const auto settled = throughMusicXml(*throughMusicXml(start, unused), unused);
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
        const auto &model = *score.scoreModel();
        if (!model.hasTracks() || model.masterTrack()->masterBarCount() == 0 || !areBarsFull(model))
            continue;
        const auto before = asSettled(model);
        io::ExportReport report;
        const auto text = io::MusicXmlExporter().toText(model, report);
        if (!report.unheld().empty() || !report.problems().empty())
            continue;
        const auto copy = readAgain(text);
        const auto after = asSettled(*copy);
        ++same;
        EXPECT_TRUE(before == after) << "seed " << seed << ':' << done << '\n'
                                     << textDifference(before, after);
        // The export of a score whose slurs were said in another way is the first of those alike.
        const auto second = io::MusicXmlExporter().toText(*copy, report);
        const bool areSaidAnew = asSettled(model, false) != asSettled(*copy, false);
        const auto first = areSaidAnew ? second : text;
        const auto next =
            areSaidAnew ? io::MusicXmlExporter().toText(*readAgain(second), report) : second;
        EXPECT_TRUE(first == next) << "seed " << seed << ", the next export:" << done << '\n'
                                   << textDifference(first, next);
    }
    return same;
}

/// How many scores are edited; ZARN_EXPORTED_SCORES asks for more.
std::uint64_t seedCount()
{
    const char *const chosen = std::getenv("ZARN_EXPORTED_SCORES");
    return chosen ? std::strtoull(chosen, nullptr, 10) : 400;
}

TEST(RandomExportsTest, editsComeBackThroughMusicXmlOrAreTold)
{
    const auto count = seedCount();
    const auto same = expectSameOrTold(SmallScore().model, count);
    std::cout << same << " of " << count << " scores whose reports are empty came back\n";
    EXPECT_GT(same, count / 4);
}

TEST(RandomExportsTest, graceNotesAndVoicesAcrossStavesComeBackOrAreTold)
{
    const auto note = [](const char *step, int octave, int staff, const std::string &how) {
        return "<note>" + (how.empty() ? std::string("<grace/>") : std::string()) + "<pitch><step>"
            + step + "</step><octave>" + std::to_string(octave) + "</octave></pitch>"
            + (how.empty() ? "" : "<duration>1</duration>") + "<voice>1</voice><type>"
            + (how.empty() ? "16th" : "eighth") + "</type><staff>" + std::to_string(staff)
            + "</staff>" + (how.empty() ? "" : "<beam number=\"1\">" + how + "</beam>") + "</note>";
    };
    const std::string measure = "<measure number=\"1\"><attributes><divisions>2</divisions><time>"
                                "<beats>2</beats><beat-type>4</beat-type></time><staves>2</staves>"
                                "</attributes>"
        + note("D", 5, 1, {}) + note("C", 5, 1, "begin") + note("E", 3, 2, "continue")
        + note("F", 3, 2, {}) + note("G", 3, 2, "continue") + note("G", 4, 1, "end")
        + note("A", 4, 1, {}) + "</measure>";
    const auto model =
        readAgain("<score-partwise version=\"4.0\"><part-list><score-part id=\"P\">"
                  "<part-name>Piano</part-name></score-part></part-list><part id=\"P\">"
                  + measure + measure + measure + "</part></score-partwise>");
    const auto count = seedCount() / 2;
    const auto same = expectSameOrTold(*model, count);
    std::cout << same << " of " << count << " scores whose reports are empty came back\n";
    EXPECT_GT(same, count / 5);
}

} // namespace
