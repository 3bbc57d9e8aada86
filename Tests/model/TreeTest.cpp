// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnScoreModel.h>

#include <gtest/gtest.h>

using namespace zarn;

TEST(Tree, columnsStayAlignedAndParentsAreKnown)
{
    auto model = std::make_shared<ScoreModel>();
    model->insertEmptyBarColumns(0, 3);
    const auto piano = model->createAndInsertTrack(0, InstrumentSet::acousticPiano);
    const auto guitar = model->createAndInsertTrack(7, InstrumentSet::steelGuitar);
    EXPECT_EQ(guitar->index(), 1u);
    EXPECT_EQ(piano->staffCount(), 2u);
    EXPECT_EQ(piano->barCount(), 3u);
    EXPECT_EQ(piano->bar(0, 1)->clef(), ClefType::F4);
    EXPECT_EQ(guitar->staff(0)->tuning().stringCount(), 6u);
    model->insertEmptyBarColumns(1, 2);
    EXPECT_EQ(model->masterTrack()->masterBarCount(), 5u);
    EXPECT_EQ(guitar->bar(4)->index(), 4u);
    EXPECT_EQ(guitar->bar(4)->masterBar(), model->masterTrack()->masterBar(4));
    EXPECT_EQ(model->masterTrack()->masterBar(4)->barOfTrack(1), guitar->bar(4));

    const auto copy = model->clone();
    EXPECT_EQ(*copy, *model);
    EXPECT_EQ(copy->track(1)->bar(4)->masterTrack(), copy->masterTrack());
}
