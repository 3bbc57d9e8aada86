// SPDX-License-Identifier: MIT
#include "editor/RandomUser.h"

#include <gtest/gtest.h>

namespace {

using test::EditorDriver;
using test::RandomUser;

/// A part of what `zarn_random_user` does for long.
TEST(RandomUserTest, nothingThatIsPressedBreaksTheScoreOrLeavesAStalePicture)
{
    constexpr int steps = 120;
    for (unsigned seed = 1; seed <= 3; ++seed) {
        EditorDriver driver(
            QStringLiteral(ZARN_SOURCE_DIR "/Samples/romance-guitar-study.musicxml"));
        RandomUser user(driver, seed);
        for (int step = 0; step < steps; ++step) {
            const std::string done = user.act();
            ASSERT_EQ(user.checkPicture(), "")
                << "seed " << seed << ", step " << step << ": " << done;
        }
        EXPECT_EQ(user.checkUndo(), "") << "seed " << seed;
    }
}

} // namespace
