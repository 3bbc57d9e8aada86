// SPDX-License-Identifier: MIT
#include "support/ScoreFiles.h"
#include "support/SmallScore.h"

#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using namespace zarn;

using Places = std::vector<std::pair<int, int>>; // bar and beat

/// The places of one voice that a plain look at every bar finds: its beats, and where the next one
/// is entered.
Places plainPlaces(const ScoreModel &model, const Staff &staff, unsigned voice)
{
    Places places;
    for (const auto &bar : staff.bars()) {
        const int number = static_cast<int>(bar->index());
        const MasterBar &master = *model.masterTrack()->masterBars()[bar->index()];
        utils::rational length;
        int beats = 0;
        if (const auto held = bar->voice(voice)) {
            for (const auto &beat : held->beats()) {
                places.emplace_back(number, beats++);
                length += beat->length();
            }
        }
        if (beats == 0 || master.isFreeTime() || length < master.length())
            places.emplace_back(number, beats);
    }
    return places;
}

std::pair<int, int> here(const ScoreCursor &cursor)
{
    return {cursor.index().barIndex(), cursor.index().beatIndex()};
}

void expectToBeWalked(Score &score)
{
    ScoreModel &model = *score.scoreModel();
    ScoreCursor &cursor = score.scoreCursor();
    for (const auto &track : model.tracks()) {
        for (const auto &staff : track->staves()) {
            for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice) {
                const Places expected = plainPlaces(model, *staff, voice);
                cursor.setIndex(ScoreModelIndex(&model, static_cast<int>(track->index()), 0, 0,
                                                voice, staff->index()));
                Places forth;
                do
                    forth.push_back(here(cursor));
                while (cursor.next(CursorStep::Beat));
                Places back;
                do
                    back.push_back(here(cursor));
                while (cursor.previous(CursorStep::Beat));
                std::reverse(back.begin(), back.end());
                ASSERT_EQ(forth, expected) << "track " << track->index() << " voice " << voice;
                ASSERT_EQ(back, expected) << "track " << track->index() << " voice " << voice;
            }
        }
    }
}

TEST(ScoreCursorWalkTest, visitsEveryBeatAndEveryPlaceForOneForthAndBack)
{
    SmallScore small;
    expectToBeWalked(small.score);
    const auto paths = scoreFiles();
    ASSERT_FALSE(paths.empty());
    for (const std::string &path : paths) {
        SCOPED_TRACE(path);
        Score score;
        score.setScoreModel(readScore(path));
        expectToBeWalked(score);
    }
}

} // namespace
