// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/JsonDocument.h>

#include <ZarnCore/ZarnException.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include <string>
#include <vector>

namespace {

/// What reading the text raises; "read" when it is read.
std::string refusal(const std::string &text)
{
    try {
        utils::jsonDocument(text, "x.json");
    } catch (const zarn::CoreException &error) {
        return error.message();
    }
    return "read";
}

TEST(JsonDocument, numbersFromOutsideAreExactHoweverManyDigitsTheyHave)
{
    const std::string zeros(350, '0');
    const std::vector<std::pair<std::string, double>> reals = {
        {"0." + zeros + "1", 0.0},
        {"0." + zeros + "1e360", 1e9},
        {"0." + std::string(27, '0'), 0.0},
        {"0e308", 0.0},
        {"-1.5e-" + std::string(20, '9'), 0.0},
        {"184467440737095516155", 184467440737095516155.0},
        {"9007199254740993.0", 9007199254740992.0},
        {"9007199254740993." + zeros + "1", 9007199254740994.0},
        {"2.2250738585072011e-308", 2.2250738585072011e-308},
        {"1.7976931348623157e308", 1.7976931348623157e308},
    };
    for (const auto &[text, number] : reals) {
        const auto document = utils::jsonDocument("[" + text + "]", "x.json");
        EXPECT_EQ(document[0].GetDouble(), number) << text;
        EXPECT_FALSE(document[0].IsInt64()) << text;
    }
    const auto whole = utils::jsonDocument("[-9223372036854775808, 4294967295, -0, 7]", "x.json");
    EXPECT_EQ(whole[0].GetInt64(), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(whole[1].GetUint(), 4294967295U);
    EXPECT_EQ(whole[2].GetInt(), 0);
    EXPECT_TRUE(whole[3].IsInt() && whole[3].IsUint());
}

TEST(JsonDocument, whatIsNoJsonIsRefusedWithItsPlace)
{
    EXPECT_EQ(refusal("{\n \"a\": 1.9e308}"), "x.json:2:7: The number is too large.");
    EXPECT_EQ(refusal("[1e" + std::string(30, '9') + "]").find("x.json:1:2: "), 0U);
    EXPECT_EQ(refusal("[1.]").find("x.json:1:4: "), 0U);
    EXPECT_EQ(refusal("[\"\xFF\"]").find("x.json:1:3: Invalid encoding"), 0U);
    EXPECT_EQ(refusal(std::string(1'000'000, '[')).find("x.json:1:1000001: "), 0U);
    EXPECT_EQ(refusal("\xEF\xBB\xBF[1, [2.5e1, \"a\"], {\"b\": null}]"), "read");
}

} // namespace
