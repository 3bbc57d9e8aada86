// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnDrumKeys.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace zarn;

namespace {

TEST(DrumKeys, everyKeyHasWordsOfItsOwnThatLengthsCannotBlur)
{
    std::set<std::string_view> seen;
    for (const std::string_view word : drumWords())
        EXPECT_TRUE(seen.insert(word).second) << word;
    for (int key = firstDrumKey; key <= lastDrumKey; ++key) {
        ASSERT_NE(drumKey(key), nullptr);
        EXPECT_EQ(drumKeyOf(drumKey(key)->word), key);
    }
    // "hats" is a hat of a sixteenth: no word may be another one and a length.
    for (const std::string_view word : seen)
        for (const char letter : std::string("whqestx"))
            EXPECT_EQ(seen.count(std::string(word) + letter), 0U) << word << letter;
    EXPECT_EQ(drumKey(firstDrumKey - 1), nullptr);
    EXPECT_EQ(drumKey(lastDrumKey + 1), nullptr);
}

TEST(DrumKeys, theLongestWordCounts)
{
    EXPECT_EQ(drumWordAt("hatq.")->key, 42);
    EXPECT_EQ(drumWordAt("hatq.")->length, 3U);
    EXPECT_EQ(drumWordAt("ridebelle")->key, 53);
    EXPECT_EQ(drumWordAt("crash2h")->key, 57);
    EXPECT_FALSE(drumWordAt("bang"));
    EXPECT_EQ(drumKeyOf("hihat"), 42);
    EXPECT_EQ(drumKeyOf("hihatq"), -1);
    EXPECT_EQ(drumKeyOf(""), -1);
}

} // namespace
