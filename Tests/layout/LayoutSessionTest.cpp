// SPDX-License-Identifier: MIT
#include "support/LayoutLaw.h"
#include "support/ScoreFiles.h"
#include "support/SmallScore.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>
#include <ZarnLayout/export/ZarnLayoutDump.h>
#include <ZarnLayout/session/ZarnLayoutSession.h>

#include <QString>

#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace zarn;
using namespace zarn::layout;

/// The ways to look at a score, each with something of its own to keep up to date.
std::map<std::string, LayoutOptions> waysToLook()
{
    std::map<std::string, LayoutOptions> ways;
    ways["pages"] = {};
    ways["one sheet, rests joined"].view = ViewLayout::Continuous;
    ways["one sheet, rests joined"].multiRest = true;
    ways["one line"].view = ViewLayout::SingleLine;
    ways["the first track, as its lists say"].tracks = {0};
    ways["the first track, as its lists say"].breaks = SystemBreaks::AsDocument;
    LayoutOptions &part = ways["some bars in tablature and slashes on small sheets"];
    part.firstBar = 1;
    part.lastBar = 20;
    part.notations = TrackNotations();
    part.notations->standard = false;
    part.notations->slash = part.notations->tablature = true;
    part.breaks = SystemBreaks::ByThemselves;
    part.page = PageSetup();
    part.page->width = part.page->height = 105000;
    return ways;
}

void expectToShow(const ScoreModel &model, const LayoutOptions &options, unsigned edits,
                  std::uint64_t seed)
{
    const auto result = LayoutLaw{model, options, edits, seed}.run();
    EXPECT_EQ(result.fault, "") << "seed " << seed << ", after " << result.edits << " edits";
}

TEST(LayoutSessionTest, showsRandomEditsOfASmallScoreAsTheyAre)
{
    const SmallScore small;
    small.model.setTrackGroups(
        {{0, 1, "Band", GroupSymbol::Bracket, true}, {1, 1, "Keys", GroupSymbol::Brace, false}});
    for (const auto &[name, options] : waysToLook()) {
        SCOPED_TRACE(name);
        for (std::uint64_t seed = 1; seed <= 3; ++seed)
            expectToShow(small.model, options, 100, seed);
    }
}

TEST(LayoutSessionTest, showsRandomEditsOfRealScoresAsTheyAre)
{
    const auto ways = waysToLook();
    auto way = ways.begin();
    for (const std::string &path : scoreFiles()) {
        const auto model = readScore(path);
        const unsigned bars = model->masterTrack()->masterBarCount() * model->trackCount();
        SCOPED_TRACE(path + ": " + way->first);
        expectToShow(*model, way->second, bars > 1000 ? 4 : bars > 200 ? 10 : 25, 5);
        if (++way == ways.end())
            way = ways.begin();
    }
}

/// What is sung at the end of a system shows at the beginning of the next one.
TEST(LayoutSessionTest, showsEditsOfLyricsAsTheyAre)
{
    for (const std::string &path : scoreFiles())
        if (path.find("lyrics") != std::string::npos) {
            SCOPED_TRACE(path);
            expectToShow(*readScore(path), {}, 100, 222199);
            expectToShow(*readScore(path), {}, 110, 214280);
        }
}

/// A score of some pages: its bars hold the same notes, but not all of them.
std::shared_ptr<ScoreModel> somePages(unsigned barCount, bool isSteady = false)
{
    auto model = std::make_shared<ScoreModel>();
    model->insertEmptyBarColumns(0, barCount);
    for (unsigned t = 0; t < 3; ++t)
        model->createAndInsertTrack(t, InstrumentSet::steelGuitar);
    for (const auto &track : model->tracks())
        for (const auto &bar : track->bars(0)) {
            const auto voice = bar->ensureVoice(0);
            for (unsigned b = 0; b < 4; ++b) {
                const auto beat = std::make_shared<Beat>();
                voice->addBeat(beat);
                const auto step = isSteady ? 0 : bar->index() % 9 + b;
                beat->addNote(std::make_shared<Note>(static_cast<int>(50 + step)));
            }
        }
    return model;
}

/// An edit that is seen: a dynamic under a beat.
bool setDynamic(Score &score, int track, int bar, int beat, NoteDynamic dynamic)
{
    const ScoreModelIndex place(score.scoreModel().get(), track, bar, beat, 0, 0);
    return score.setBeatDynamic(ScoreModelRange(place), dynamic);
}

const NoteDynamic forte(NoteDynamic::Value::F);

std::size_t sharedSystems(const Layout &before, const Layout &after)
{
    std::size_t count = 0;
    for (const LayoutPage &page : after.pages())
        for (const PlacedSystem &system : page.systems)
            for (const LayoutPage &old : before.pages())
                for (const PlacedSystem &other : old.systems)
                    count += other.drawing == system.drawing ? 1 : 0;
    return count;
}

std::size_t systemCount(const Layout &layout)
{
    std::size_t count = 0;
    for (const LayoutPage &page : layout.pages())
        count += page.systems.size();
    return count;
}

TEST(LayoutSessionTest, laysOutOnlyWhatAnEditReaches)
{
    Score score;
    score.setScoreModel(somePages(120));
    LayoutSession session(score);
    unsigned calls = 0;
    session.setOutdatedHandler([&] { ++calls; });
    const LayoutUpdate first = session.update();
    ASSERT_GT(first.layout->pages().size(), 2U);
    EXPECT_EQ(first.changed.size(), first.layout->pages().size());
    EXPECT_FALSE(session.isOutdated());

    // A sign in the last bars leaves all that is above alone.
    ASSERT_TRUE(setDynamic(score, 0, 118, 1, forte));
    EXPECT_TRUE(session.isOutdated());
    EXPECT_EQ(calls, 1U);
    const LayoutUpdate second = session.update();
    EXPECT_GE(sharedSystems(*first.layout, *second.layout), systemCount(*second.layout) - 2);
    ASSERT_FALSE(second.changed.empty());
    for (const PlacedBox &box : second.changed)
        EXPECT_EQ(box.page, second.layout->pages().size() - 1);
    EXPECT_EQ(first.layout->pages().front().systems.data(),
              second.layout->pages().front().systems.data())
        << "sheets that stay as they are share their systems";

    // What nobody sees is no other layout.
    score.commandStack().undo();
    score.commandStack().redo();
    EXPECT_EQ(calls, 2U);
    EXPECT_TRUE(session.update().changed.empty());

    // A macro of many commands is one layout.
    score.commandStack().beginMacroCommand();
    for (int bar = 0; bar < 100; ++bar)
        setDynamic(score, 0, bar, 0, forte);
    score.commandStack().endMacroCommand(true);
    EXPECT_EQ(calls, 3U);
    EXPECT_EQ(differenceOf(*layOut(*score.scoreModel()), *session.update().layout), "");

    // Other options, and another score.
    LayoutOptions scroll;
    scroll.view = ViewLayout::Continuous;
    session.setOptions(scroll);
    EXPECT_EQ(session.update().layout->pages().size(), 1U);
    score.setScoreModel(somePages(8));
    EXPECT_EQ(differenceOf(*layOut(*score.scoreModel(), scroll), *session.update().layout), "");
}

TEST(LayoutSessionTest, laysOutOnlyTheBarsOfALineThatAnEditReaches)
{
    Score score;
    score.setScoreModel(somePages(120));
    LayoutOptions line;
    line.view = ViewLayout::SingleLine;
    LayoutSession session(score, line);
    const auto first = session.update().layout;
    ASSERT_EQ(first->pages().size(), 1U);
    const std::size_t count = systemCount(*first);
    ASSERT_GE(count, 10U);

    // What finds room changes the bars around it, and is drawn again there alone.
    const auto boxOf = [](const LayoutUpdate &update) {
        Box box = update.changed.front().box;
        for (const PlacedBox &other : update.changed)
            box = box.unitedWith(other.box);
        return box;
    };
    ASSERT_TRUE(setDynamic(score, 0, 60, 1, forte));
    const LayoutUpdate second = session.update();
    EXPECT_GE(sharedSystems(*first, *second.layout), count - 2);
    const Unit width = first->fromMicrometres(first->pages()[0].width);
    ASSERT_FALSE(second.changed.empty());
    EXPECT_LT(boxOf(second).right - boxOf(second).left, width / 4);

    // What needs more of it moves all bars behind, which are the same; so is what is in front.
    const ScoreModelIndex place(score.scoreModel().get(), 1, 61, 1, 0, 0);
    ASSERT_TRUE(score.setBeatFreeText(ScoreModelRange(place), QStringLiteral("pizzicato")));
    ASSERT_TRUE(score.createBars(62, 1));
    const LayoutUpdate third = session.update();
    EXPECT_GT(third.layout->pages()[0].systems.back().at.x,
              second.layout->pages()[0].systems.back().at.x);
    EXPECT_EQ(third.layout->pages()[0].systems[5].drawing,
              second.layout->pages()[0].systems[5].drawing);
    EXPECT_GT(boxOf(third).left, width / 4);
    EXPECT_GE(boxOf(third).right, third.layout->fromMicrometres(third.layout->pages()[0].width));

    // All parts have their staves at the same heights, also when one pushes them apart.
    ScoreModelIndex high(score.scoreModel().get(), 1, 30, 1, 0, 0);
    ASSERT_TRUE(score.setBeatFreeText(ScoreModelRange(high), QStringLiteral("high")));
    high.setNoteMidi(static_cast<std::uint32_t>(high.beat()->notes().front()->midi()));
    ASSERT_TRUE(score.setMIDINote(high, 86));
    const auto fourth = session.update().layout;
    const auto &systems = fourth->pages()[0].systems;
    EXPECT_GT(systems[0].drawing->staves.back().top,
              third.layout->pages()[0].systems[0].drawing->staves.back().top);
    for (const PlacedSystem &system : systems) {
        EXPECT_EQ(system.drawing->staves, systems[0].drawing->staves);
        EXPECT_EQ(system.at.y, systems[0].at.y);
    }
    score.commandStack().undo();
    score.commandStack().undo();
    EXPECT_EQ(differenceOf(*third.layout, *session.update().layout), "");
}

/// All bars but the first are the same: a part of a line shows none of its ends.
TEST(LayoutSessionTest, drawsALineWithoutSeams)
{
    Score score;
    score.setScoreModel(somePages(40, true));
    const auto at = [&](int bar, int beat) {
        return ScoreModelIndex(score.scoreModel().get(), 0, bar, beat, 0, 0);
    };
    for (int bar = 1; bar < 40; ++bar)
        ASSERT_TRUE(score.setBeatTied(ScoreModelRange(at(bar, 0)), true));
    ASSERT_TRUE(score.setBeatHairpin(ScoreModelRange(at(3, 0), at(29, 3)), Hairpin::Crescendo));
    LayoutOptions line;
    line.view = ViewLayout::SingleLine;
    const auto layout = layOut(*score.scoreModel(), line);
    const auto &systems = layout->pages()[0].systems;
    ASSERT_GE(systems.size(), 5U);
    std::map<MarkKind, unsigned> counts;
    std::vector<std::pair<Unit, Unit>> staffLines; ///< of the uppermost line
    std::vector<Unit> columns;
    for (const PlacedSystem &system : systems) {
        for (const DrawMark &mark : system.drawing->marks.marks()) {
            ++counts[mark.kind];
            const Box box = system.drawing->marks.box(mark, layout->font()).movedBy(system.at);
            if (mark.kind == MarkKind::StaffLine && mark.place.track == 0 && box.top < system.at.y
                && box.bottom > system.at.y)
                staffLines.push_back({box.left, box.right});
            if (mark.kind == MarkKind::Tie) {
                EXPECT_GT(box.right - box.left, 2 * staffSpace);
            }
        }
        for (const BarFrame &bar : system.drawing->bars)
            for (const ColumnFrame &column : bar.columns)
                columns.push_back(system.at.x + column.x);
    }
    EXPECT_EQ(counts[MarkKind::NoteHead], 40U * 4 * 3);
    EXPECT_EQ(counts[MarkKind::Tie], 39U);
    EXPECT_EQ(counts[MarkKind::Hairpin], 2U);
    EXPECT_EQ(counts[MarkKind::BarLine], 41U * 3);
    ASSERT_EQ(staffLines.size(), systems.size());
    for (std::size_t i = 1; i < staffLines.size(); ++i) {
        EXPECT_GT(staffLines[i - 1].second, staffLines[i].first);
        EXPECT_LT(staffLines[i - 1].second, staffLines[i].first + staffSpace / 4);
    }
    ASSERT_EQ(columns.size(), 160U);
    for (std::size_t i = 12; i < columns.size(); ++i)
        EXPECT_NEAR(columns[i] - columns[i - 4], columns[8] - columns[4], 2);
}

TEST(LayoutSessionTest, doesNotTakeAnOldJobForTheNewestLayout)
{
    Score score;
    score.setScoreModel(somePages(40));
    LayoutSession session(score);
    const auto job = session.startJob();
    EXPECT_THROW(session.finishJob(*job), CoreException);
    score.createBars(3, 5);
    const auto newest = session.update().layout;
    job->run();
    const LayoutUpdate late = session.finishJob(*job);
    EXPECT_EQ(late.layout, newest);
    EXPECT_TRUE(late.changed.empty());
    // The engine has seen the older score last; the next layout is right all the same.
    score.removeBarRange(0, 1);
    EXPECT_EQ(differenceOf(*layOut(*score.scoreModel()), *session.update().layout), "");
}

TEST(LayoutSessionTest, pagesAreTheSameBehindALine)
{
    Score score;
    score.setScoreModel(somePages(40));
    LayoutOptions options;
    options.view = ViewLayout::SingleLine;
    LayoutSession session(score, options);
    session.update();
    // Bars around an edit are engraved for the line, which has their places already.
    ASSERT_TRUE(setDynamic(score, 0, 20, 1, forte));
    session.update();
    session.setOptions({});
    EXPECT_EQ(differenceOf(*layOut(*score.scoreModel()), *session.update().layout), "");
    session.setOptions(options);
    EXPECT_EQ(differenceOf(*layOut(*score.scoreModel(), options), *session.update().layout), "");
}

TEST(LayoutSessionTest, goesOnFromALayoutThatWasThere)
{
    Score score;
    score.setScoreModel(somePages(40));
    FirstLayout first(*score.scoreModel());
    const auto layout = first.layout();
    LayoutSession session(score, std::move(first));
    EXPECT_FALSE(session.isOutdated());
    EXPECT_EQ(session.update().layout, layout);
    score.createBars(30, 1);
    const LayoutUpdate update = session.update();
    EXPECT_EQ(differenceOf(*layOut(*score.scoreModel()), *update.layout), "");
    EXPECT_EQ(update.layout->pages().front().systems.front().drawing,
              layout->pages().front().systems.front().drawing); // is not drawn again
    EXPECT_THROW(LayoutSession(score, std::move(first)), CoreException) << "it is taken";
    EXPECT_THROW(LayoutSession(score, FirstLayout(*somePages(1))), CoreException);
}

/// Under ThreadSanitizer: the score is edited while threads lay it out and export what they got.
TEST(LayoutSessionTest, isEditedWhileOtherThreadsLayOutAndExport)
{
    Score score;
    score.setScoreModel(somePages(60));
    LayoutSession session(score);
    std::mutex mutex;
    std::shared_ptr<const Layout> shown = session.update().layout;
    std::atomic<bool> isOver = false;
    std::atomic<unsigned> exported = 0;
    std::vector<std::thread> readers;
    for (int i = 0; i < 2; ++i)
        readers.emplace_back([&] {
            do {
                std::shared_ptr<const Layout> layout;
                {
                    const std::lock_guard<std::mutex> lock(mutex);
                    layout = shown;
                }
                exported += layoutDump(*layout).empty() ? 0 : 1;
            } while (!isOver);
        });
    for (int i = 0; i < 6; ++i) {
        const auto job = session.startJob();
        std::thread worker([&job] { job->run(); });
        for (int bar = 0; bar < 10; ++bar)
            setDynamic(score, i % 3, 5 * bar + i, bar % 4, forte);
        score.createBars(7, 1);
        worker.join();
        const LayoutUpdate update = session.finishJob(*job);
        const std::lock_guard<std::mutex> lock(mutex);
        shown = update.layout;
    }
    isOver = true;
    for (std::thread &reader : readers)
        reader.join();
    EXPECT_GE(exported, 2U);
    EXPECT_EQ(differenceOf(*layOut(*score.scoreModel()), *session.update().layout), "");
}

} // namespace
