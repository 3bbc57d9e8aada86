// SPDX-License-Identifier: MIT
#include "support/LayoutLaw.h"
#include "support/ScoreFiles.h"
#include "support/SmallScore.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>
#include <ZarnLayout/export/ZarnLayoutDump.h>
#include <ZarnLayout/session/ZarnLayoutSession.h>

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

/// A score of some pages: its bars hold the same notes, but not all of them.
std::shared_ptr<ScoreModel> somePages(unsigned barCount)
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
                beat->addNote(std::make_shared<Note>(static_cast<int>(50 + bar->index() % 9 + b)));
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
