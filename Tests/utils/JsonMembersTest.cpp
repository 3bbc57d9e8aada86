// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/JsonMembers.h>

#include <gtest/gtest.h>

#include <rapidjson/document.h>

#include <functional>
#include <string>

namespace {

using utils::JsonError;
using utils::JsonMembers;

rapidjson::Document parsed(const char *text)
{
    rapidjson::Document document;
    document.Parse(text);
    return document;
}

std::string messageOf(const std::function<void()> &read)
{
    try {
        read();
    } catch (const JsonError &error) {
        EXPECT_EQ(error.function(), "f");
        return error.message();
    }
    return "nothing was raised";
}

TEST(JsonMembers, readsWhatIsThere)
{
    const auto document =
        parsed(R"({"t": "a\u0000b", "i": -7, "u": 4294967295, "b": true, "o": {"x": 1}})");
    const JsonMembers members(document, "f");
    EXPECT_EQ(members.text("t"), std::string_view("a\0b", 3));
    EXPECT_EQ(members.integer("i"), -7);
    EXPECT_EQ(members.count("u"), 4294967295u);
    EXPECT_TRUE(members.flagOr("b", false));
    EXPECT_TRUE(members.flagOr("none", true));
    EXPECT_EQ(members.textOr("none", "else"), "else");
    EXPECT_EQ(members.integerOr("none", 3), 3);
    int x = 0;
    members.object("o", [&x](const JsonMembers &inner) { x = inner.integer("x"); });
    EXPECT_EQ(x, 1);
}

TEST(JsonMembers, sayWhereSomethingIsWrong)
{
    const auto read = [](const char *text) {
        const auto document = parsed(text);
        return messageOf([&document] {
            JsonMembers::forEachIn(
                document, "sets", "f", [](const rapidjson::Value &value, unsigned) {
                    const JsonMembers set(value, "f");
                    set.object("notation", [](const JsonMembers &notation) {
                        notation.integer("line");
                        notation.forEach("keys", [](const rapidjson::Value &key, unsigned) {
                            utils::jsonInteger(key, "f");
                        });
                    });
                    set.textOr("bank", {});
                });
        });
    };
    EXPECT_EQ(read("{}"), "sets: is no array");
    EXPECT_EQ(read("17 18"), "sets: is no array") << "a document that could not be parsed";
    EXPECT_EQ(read("[7]"), "sets[0]: is no object");
    EXPECT_EQ(read(R"([{"notation": []}])"),
              "sets[0]: member \"notation\" is missing or no object");
    const std::string good = R"({"notation": {"line": 1, "keys": [1]}})";
    EXPECT_EQ(read(("[" + good + R"(, {"notation": {"line": 1.5, "keys": []}}])").c_str()),
              "sets[1].notation: member \"line\" is missing or no whole number");
    EXPECT_EQ(read(R"([{"notation": {"line": 1, "keys": [1, "2"]}}])"),
              "sets[0].notation.keys[1]: is no whole number");
    EXPECT_EQ(read(R"([{"notation": {"line": 1, "keys": []}, "bank": 3}])"),
              "sets[0]: member \"bank\" is missing or no string");
    EXPECT_EQ(read(("[" + good + "]").c_str()), "nothing was raised");
}

} // namespace
