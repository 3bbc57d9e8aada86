// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/score/ZarnScore.h>

#include "support/Random.h"
#include "support/RandomScore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using namespace zarn;
using Utils = ZarnCoreUtils;
using Places = Utils::BarPlaces;

std::vector<int> keysOf(const Bar &bar)
{
    std::vector<int> keys;
    for (const auto &voice : bar.voices()) {
        if (voice == nullptr)
            continue;
        for (const auto &beat : voice->beats()) {
            for (const auto &note : beat->notes())
                keys.push_back(note->midi());
        }
    }
    return keys;
}

TEST(CoreUtilsPreview, allTracksAreTheWholeScore)
{
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
        Score score;
        score.setScoreModel(test::RandomScore(static_cast<std::uint32_t>(seed)).make());
        score.scoreModel()->clearAudioTracks();
        std::vector<unsigned> tracks;
        Places places;
        for (unsigned track = 0; track < score.trackCount(); ++track) {
            tracks.push_back(track);
            for (unsigned bar = score.masterTrack()->masterBarCount(); bar-- > 0;)
                places.emplace_back(track, bar);
        }
        const auto whole = Utils::make_score_preview(score, tracks);
        EXPECT_TRUE(*whole->scoreModel() == *score.scoreModel()) << seed;
        EXPECT_TRUE(*Utils::make_score_preview(score, places)->scoreModel() == *score.scoreModel());
        EXPECT_EQ(whole->scoreModel()->parentScore(), whole.get());
        EXPECT_FALSE(whole->commandStack().undoAvailable());
        EXPECT_NE(whole->track(0), score.track(0));
    }
}

TEST(CoreUtilsPreview, anyPartOfAScoreIsASoundScoreWithItsMusic)
{
    for (std::uint64_t seed = 1; seed <= 30; ++seed) {
        Random random(seed);
        Score score;
        score.setScoreModel(test::RandomScore(static_cast<std::uint32_t>(seed)).make(4, 12));
        for (unsigned track = 0; track < score.trackCount(); ++track) {
            for (const auto &bar : score.track(track)->bars())
                bar->setSimileMark(SimileMark::None);
        }
        Places places;
        for (unsigned i = random.below(20); i > 0; --i)
            places.emplace_back(random.below(5), random.below(14));
        const auto preview = Utils::make_score_preview(score, places);
        EXPECT_EQ(checkModel(*preview->scoreModel()), std::vector<std::string>());

        std::vector<unsigned> tracks;
        std::set<unsigned> columns;
        for (const auto &[track, bar] : places) {
            if (track >= 4 || bar >= 12)
                continue;
            if (std::find(tracks.begin(), tracks.end(), track) == tracks.end())
                tracks.push_back(track);
            columns.insert(bar);
        }
        ASSERT_EQ(preview->trackCount(), tracks.size());
        ASSERT_EQ(preview->masterTrack()->masterBarCount(), columns.size());
        for (std::size_t t = 0; t < tracks.size(); ++t) {
            unsigned column = 0;
            for (const unsigned bar : columns) {
                const auto shown = preview->track(static_cast<unsigned>(t))->bar(column++);
                const auto source = score.track(tracks[t])->bar(bar);
                const bool isListed =
                    std::find(places.begin(), places.end(), Places::value_type(tracks[t], bar))
                    != places.end();
                EXPECT_EQ(keysOf(*shown), isListed ? keysOf(*source) : std::vector<int>());
                EXPECT_EQ(shown->clef(), source->clef());
            }
        }
    }
}

TEST(CoreUtilsPreview, tiesToBarsThatAreNotThereAreUndone)
{
    const auto score = Utils::make_from_string("guitar: 6:1w~ | 6:1w~ | 6:1w~ | 6:1w");
    const auto preview = Utils::make_score_preview(*score, Places{{0, 1}, {0, 2}});
    const auto note = [&](unsigned bar) {
        return preview->track(0)->bar(bar)->voice(0)->beat(0)->note(0);
    };
    EXPECT_FALSE(note(0)->isTied());
    EXPECT_TRUE(note(0)->isTieOrigin() && note(1)->isTied());
    EXPECT_FALSE(note(1)->isTieOrigin());
}

TEST(CoreUtilsPreview, similesGiveWayToTheMusicWhenItIsNotThere)
{
    const auto score = Utils::make_from_string("guitar: 6:1w | r | r | 6:4w | r | r");
    const auto mark = [&](unsigned bar, SimileMark mark) {
        score->track(0)->bar(bar)->setVoice(0, nullptr);
        score->track(0)->bar(bar)->setSimileMark(mark);
    };
    mark(1, SimileMark::Simple);
    mark(2, SimileMark::Simple);
    mark(4, SimileMark::FirstOfDouble);
    mark(5, SimileMark::SecondOfDouble);

    auto preview = Utils::make_score_preview(*score, Places{{0, 1}, {0, 2}});
    EXPECT_FALSE(preview->track(0)->bar(0)->isSimile());
    EXPECT_EQ(keysOf(*preview->track(0)->bar(0)), keysOf(*score->track(0)->bar(0)));
    EXPECT_TRUE(preview->track(0)->bar(1)->isSimile());

    preview = Utils::make_score_preview(*score, Places{{0, 3}, {0, 4}, {0, 5}});
    EXPECT_EQ(keysOf(*preview->track(0)->bar(1)), keysOf(*score->track(0)->bar(0)))
        << "by way of the similes before";
    EXPECT_EQ(keysOf(*preview->track(0)->bar(2)), keysOf(*score->track(0)->bar(3)));
    EXPECT_EQ(checkModel(*preview->scoreModel()), std::vector<std::string>());

    preview = Utils::make_score_preview(*score, Places{{0, 2}, {0, 3}, {0, 4}, {0, 5}});
    EXPECT_TRUE(preview->track(0)->bar(2)->isSimile() && preview->track(0)->bar(3)->isSimile());
}

TEST(CoreUtilsPreview, theTempoIsThatOfItsBars)
{
    const auto score = Utils::make_from_string("voice tempo=60: r | r | r | r | r");
    const auto set = [&](unsigned bar, float tempo) {
        auto automation = Automation::create(Automation::Tempo);
        automation->setIndex(bar);
        automation->setValue(tempo);
        score->masterTrack()->insertAutomation(std::move(automation));
    };
    set(1, 90);
    set(4, 120);
    const auto preview = Utils::make_score_preview(*score, Places{{0, 0}, {0, 2}, {0, 3}, {0, 4}});
    std::vector<std::pair<unsigned, float>> tempos;
    for (const auto *automation : preview->masterTrack()->automations(Automation::Tempo))
        tempos.emplace_back(automation->index(), automation->value());
    EXPECT_EQ(tempos, (std::vector<std::pair<unsigned, float>>{{1, 90}, {3, 120}}));
}

TEST(CoreUtilsPreview, anotherTuningKeepsThePitches)
{
    const auto score = Utils::make_from_string("guitar: 6:3q 5:0 1:0 6:0 ; piano: c4w + r");
    const GuitarTuning dropD(GuitarTuning::Guitar, {38, 45, 50, 55, 59, 64});
    const auto preview = Utils::make_score_preview(*score, Places{{0, 0}, {1, 0}}, dropD);
    const auto &voice = *preview->track(0)->bar(0)->voice(0);
    EXPECT_EQ(voice.beats()[0]->notes()[0]->fret(), 5);
    EXPECT_EQ(voice.beats()[1]->notes()[0]->fret(), 0);
    EXPECT_EQ(keysOf(*preview->track(0)->bar(0)), keysOf(*score->track(0)->bar(0)));
    EXPECT_EQ(preview->track(0)->staff(0)->tuning(), dropD);
    EXPECT_FALSE(preview->track(1)->staff(0)->isFretted());
    EXPECT_FALSE(preview->commandStack().undoAvailable());
    EXPECT_EQ(score->track(0)->bar(0)->voice(0)->beats()[0]->notes()[0]->fret(), 3);

    const auto same = Utils::make_score_preview(*score, Places{{0, 0}}, GuitarTuning());
    EXPECT_EQ(same->track(0)->staff(0)->tuning(), score->track(0)->staff(0)->tuning());
}

TEST(CoreUtilsPreview, whatIsNotThereIsLeftOut)
{
    const auto score = Utils::make_from_string("guitar: 6:3w; piano: c4w + r");
    EXPECT_EQ(Utils::make_score_preview(*score, Places{{7, 0}, {0, 9}})->trackCount(), 0u);
    const auto preview = Utils::make_score_preview(*score, std::vector<unsigned>{1, 7, 1, 0});
    ASSERT_EQ(preview->trackCount(), 2u);
    EXPECT_EQ(preview->track(0)->name(), score->track(1)->name());
    EXPECT_EQ(Utils::make_score_preview(Score(), Places{})->trackCount(), 0u);
}

} // namespace
