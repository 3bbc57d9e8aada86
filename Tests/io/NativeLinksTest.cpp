// SPDX-License-Identifier: MIT
#include "support/NativeDocument.h"
#include "support/SmallScore.h"

#include <ZarnCore/model/ZarnModelCheck.h>

#include <gtest/gtest.h>

using namespace zarn;

/// Links that a document has only one end of are left out, and told with their bar; the others
/// stay as they were.
TEST(NativeLinks, brokenOnesAreLeftOutAndTold)
{
    const SmallScore small;
    small.beat(0, 3).setSlurredToNext(true);
    small.beat(1, 0).setSlurredToPrevious(true);
    small.beat(1, 0).setSlurBegins(true);
    small.beat(2, 1).setSlurredToPrevious(true);
    small.beat(4, 3).notes()[0]->setHopo(true);
    small.beat(3, 3).notes()[0]->setSlideOut(SlideOut::Downwards);
    io::ImportReport report;
    const auto model = test::readNative(test::writeNative(small.model), report);
    EXPECT_EQ(checkModel(*model), std::vector<std::string>());
    const auto beat = [&](unsigned bar, unsigned number) -> const Beat & {
        return *model->track(0)->bar(bar)->voice(0)->beats()[number];
    };
    EXPECT_TRUE(beat(0, 3).isSlurredToNext() && beat(1, 0).isSlurredToPrevious());
    EXPECT_FALSE(beat(1, 0).beginsSlur());
    EXPECT_FALSE(beat(2, 1).isSlurredToPrevious());
    EXPECT_FALSE(beat(4, 3).notes()[0]->isHopo());
    EXPECT_EQ(beat(3, 3).notes()[0]->slideOut(), SlideOut::Downwards);
    EXPECT_TRUE(report.hasProblem("part 1, bar 2: the begin of a slur where there is none"));
    EXPECT_TRUE(report.hasProblem("part 1, bar 3: a slur that comes from no beat was left out"));
    EXPECT_TRUE(report.hasProblem("part 1, bar 5: a hammer-on or pull-off that leads to no note"));
}
