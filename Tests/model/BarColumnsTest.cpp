// SPDX-License-Identifier: MIT
#include "ModelSamples.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>

#include <random>

using namespace zarn;

namespace {

void addTempo(AutomationContainer &container, unsigned bar, float position, float value)
{
    auto tempo = std::make_unique<TempoAutomation>();
    tempo->setIndex(bar);
    tempo->setPosition(position);
    tempo->setValue(value);
    container.insertAutomation(std::move(tempo));
}

/// Ties a note over the bar line in front of a bar of the first track.
void tieOver(const ScoreModel &model, unsigned bar)
{
    const auto from = std::make_shared<Note>(33);
    const auto to = std::make_shared<Note>(33);
    model.track(0)->bar(bar - 1)->ensureVoice(0)->addBeat(
        makeBeat(RhythmValue::NoteValue::Quarter));
    model.track(0)->bar(bar - 1)->voice(0)->beats().back()->addNote(from);
    model.track(0)->bar(bar)->ensureVoice(0)->insertBeat(0,
                                                         makeBeat(RhythmValue::NoteValue::Quarter));
    model.track(0)->bar(bar)->voice(0)->beats().front()->addNote(to);
    from->setTieOrigin(true);
    to->setTied(true);
}

/// Marks, ties, automations and directions everywhere, so that every joint has something to lose.
void decorate(ScoreModel &model, std::mt19937 &random)
{
    MasterTrack &master = *model.masterTrack();
    const unsigned count = master.masterBarCount();
    if (count == 0)
        return;
    const auto bar = [&] { return static_cast<unsigned>(random() % count); };
    master.setDirection(static_cast<int>(random() % DirectionMarkCount), static_cast<int>(bar()));
    addTempo(master, bar(), random() % 2 == 0 ? 0.f : 0.5f, static_cast<float>(60 + random() % 99));
    if (count > 1)
        tieOver(model, 1 + bar() % (count - 1));
    for (const auto &track : model.tracks()) {
        addTempo(track->mutableAutomations(), bar(), 0.f, static_cast<float>(1 + random() % 99));
        for (const auto &staff : track->staves()) {
            const unsigned at = bar();
            staff->unmarkSimile(at);
            if (at + 1 < count && random() % 2 == 0) {
                staff->unmarkSimile(at + 1);
                staff->bar(at)->setSimileMark(SimileMark::FirstOfDouble);
                staff->bar(at + 1)->setSimileMark(SimileMark::SecondOfDouble);
            } else if (at > 0) {
                staff->bar(at)->setSimileMark(SimileMark::Simple);
            }
        }
    }
}

} // namespace

TEST(BarColumns, directionsAndAutomationsFollowTheirBars)
{
    const auto model = makeBand(6);
    MasterTrack &master = *model->masterTrack();
    master.setSegno(1);
    master.setCoda(3);
    master.setFine(5);
    addTempo(master, 0, 0, 120);
    addTempo(master, 3, 0.5f, 90);
    addTempo(model->track(0)->mutableAutomations(), 4, 0, 7);
    model->insertEmptyBarColumns(3, 2);
    EXPECT_EQ(master.segno(), 1);
    EXPECT_EQ(master.coda(), 5);
    EXPECT_TRUE(master.hasAutomation(Automation::Type::Tempo, 5, 0.5f));
    EXPECT_TRUE(model->track(0)->automations().hasAutomation(Automation::Type::Tempo, 6, 0));
    model->takeBarColumns(5, 5);
    EXPECT_EQ(master.coda(), -1);
    EXPECT_EQ(master.fine(), 6);
    EXPECT_EQ(master.automationCount(), 1u);
    EXPECT_TRUE(isSound(*model));

    // The starting tempo survives a new front.
    model->insertEmptyBarColumns(0, 1);
    EXPECT_TRUE(master.hasAutomation(Automation::Type::Tempo, 0, 0));
    EXPECT_EQ(master.segno(), 2);
}

TEST(BarColumns, tiesThatAChangeTearsApartAreUndone)
{
    const auto model = makeBand(4);
    tieOver(*model, 1);
    tieOver(*model, 2);
    const auto begins = [&](unsigned bar) {
        return model->track(0)->bar(bar)->voice(0)->beats().front()->notes().front()->isTied();
    };
    const auto ends = [&](unsigned bar) {
        return model->track(0)->bar(bar)->voice(0)->beats().back()->notes().front()->isTieOrigin();
    };
    // Without bar 1 the tie into it and the tie out of it are one: the key is the same.
    auto columns = model->takeBarColumns(1, 1);
    EXPECT_TRUE(ends(0) && begins(1));
    model->putBackBarColumns(std::move(columns));
    EXPECT_TRUE(ends(0) && begins(1) && ends(1) && begins(2));

    const auto surroundings = model->insertEmptyBarColumns(1, 1);
    EXPECT_FALSE(ends(0) || begins(2));
    EXPECT_TRUE(ends(2) && begins(3));
    model->takeBarColumns(1, 1);
    model->restoreSurroundings(surroundings);
    EXPECT_TRUE(ends(0) && begins(1));

    // At the end nothing is parted.
    model->track(0)->bar(3)->voice(0)->beats().front()->notes().front()->setTieOrigin(true);
    model->track(0)->bar(3)->voice(0)->takeBeats(1, 9);
    model->insertEmptyBarColumns(4, 1);
    EXPECT_TRUE(ends(3));

    // A tie out of what was removed in front.
    columns = model->takeBarColumns(0, 1);
    EXPECT_FALSE(begins(0));
    model->putBackBarColumns(std::move(columns));
    EXPECT_TRUE(ends(1) && begins(2));
}

TEST(BarColumns, newBarsHaveMeterAndKeyOfTheBarBefore)
{
    const auto model = makeBand(2);
    MasterTrack &master = *model->masterTrack();
    master.masterBar(0)->setTimeSignature(TimeSignature(3, 4));
    master.masterBar(0)->setConcertKeySignature(KeySignature(2, true, true));
    master.masterBar(0)->setRepeatStart(true);
    model->insertEmptyBarColumns(1, 1);
    EXPECT_EQ(master.masterBar(1)->length(), utils::rational(3));
    EXPECT_EQ(master.masterBar(1)->concertKeySignature().accidentalCount(), 2);
    EXPECT_FALSE(master.masterBar(1)->isRepeatStart());
    model->insertEmptyBarColumns(0, 1);
    EXPECT_EQ(master.masterBar(0)->length(), utils::rational(3));
}

TEST(BarColumns, takingPastTheEndTakesNothing)
{
    const auto model = makeBand(2);
    const auto before = model->clone();
    EXPECT_EQ(model->takeBarColumns(2, 5).count(), 0u);
    EXPECT_EQ(model->takeBarColumns(1, 0).count(), 0u);
    model->putBackBarColumns({});
    EXPECT_EQ(*model, *before);
    EXPECT_EQ(model->takeBarColumns(1, 0xFFFFFFFF).count(), 1u);
}

/// Random edits, each taken back and done again; every state is compared with a deep copy, and the
/// columns with a list of their first bars.
TEST(BarColumns, everyChangeCanBeTakenBackExactly)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto model = makeBand(random() % 7);
        std::vector<const Bar *> naive;
        for (const auto &bar : model->track(0)->bars())
            naive.push_back(bar.get());
        for (int step = 0; step < 25; ++step) {
            decorate(*model, random);
            const unsigned count = model->masterTrack()->masterBarCount();
            const auto before = model->clone();
            if (random() % 2 == 0 || count == 0) {
                const unsigned at = static_cast<unsigned>(random() % (count + 1));
                const unsigned added = 1 + static_cast<unsigned>(random() % 3);
                const auto surroundings = model->insertEmptyBarColumns(at, added);
                const auto after = model->clone();
                auto columns = model->takeBarColumns(at, at + added - 1);
                model->restoreSurroundings(surroundings);
                ASSERT_EQ(*model, *before) << "undo of insertion at " << at << ", seed " << seed;
                model->putBackBarColumns(std::move(columns));
                ASSERT_EQ(*model, *after) << "redo of insertion at " << at << ", seed " << seed;
                for (unsigned i = 0; i < added; ++i)
                    naive.insert(naive.begin() + at + i, model->track(0)->bar(at + i).get());
            } else {
                const unsigned first = static_cast<unsigned>(random() % count);
                const unsigned last = first + static_cast<unsigned>(random() % (count - first));
                auto columns = model->takeBarColumns(first, last);
                const auto after = model->clone();
                ASSERT_TRUE(isSound(*model));
                model->putBackBarColumns(std::move(columns));
                ASSERT_EQ(*model, *before) << "undo of removal, seed " << seed;
                for (unsigned i = 0; i < count; ++i)
                    ASSERT_EQ(model->track(0)->bar(i).get(), naive[i]);
                columns = model->takeBarColumns(first, last);
                ASSERT_EQ(*model, *after) << "redo of removal, seed " << seed;
                naive.erase(naive.begin() + first, naive.begin() + last + 1);
            }
            ASSERT_TRUE(isSound(*model)) << "seed " << seed;
            ASSERT_EQ(model->track(0)->barCount(), naive.size());
            for (unsigned i = 0; i < naive.size(); ++i)
                ASSERT_EQ(model->track(0)->bar(i).get(), naive[i]);
        }
    }
}
