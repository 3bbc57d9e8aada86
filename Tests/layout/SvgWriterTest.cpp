// SPDX-License-Identifier: MIT
#include "support/DrawnSample.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnLayout/export/ZarnLayoutDump.h>
#include <ZarnLayout/export/ZarnSvgWriter.h>

#include <gtest/gtest.h>

#include <QBuffer>

#include <pugixml.hpp>
#include <rapidjson/document.h>

#include <map>
#include <set>
#include <string>

namespace {

using namespace zarn;
using namespace zarn::layout;

constexpr int userSpace = 128; ///< user units of a staff space

/// One sheet of the sample, parsed.
class SvgWriterTest : public testing::Test {
protected:
    void write(std::size_t page, SvgText text)
    {
        _bytes.clear();
        QBuffer buffer(&_bytes);
        ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
        SvgWriter(text).write(*_layout, page, buffer);
        const auto result =
            _document.load_buffer(_bytes.constData(), static_cast<std::size_t>(_bytes.size()));
        ASSERT_TRUE(result) << result.description() << '\n' << _bytes.toStdString();
    }

    pugi::xml_node root() const { return _document.child("svg"); }

    pugi::xml_node markOf(const char *kind, const char *place) const
    {
        return root().find_node([&](const pugi::xml_node &node) {
            return std::string(node.attribute("data-kind").value()) == kind
                && std::string(node.attribute("data-place").value()) == place;
        });
    }

    std::shared_ptr<const Layout> _layout = zarn::test::drawnSample();
    QByteArray _bytes;
    pugi::xml_document _document;
};

TEST_F(SvgWriterTest, everyMarkSaysWhatItDrawsAndWhere)
{
    write(0, SvgText::Outlines);
    EXPECT_STREQ(root().attribute("width").value(), "210mm");
    EXPECT_STREQ(root().attribute("viewBox").value(), "0 0 15360 21723");
    EXPECT_STREQ(root().child_value("title"), "A Study");

    const auto head = markOf("noteHead", "0,2,0,0,0,0");
    EXPECT_STREQ(head.name(), "use");
    EXPECT_STREQ(head.attribute("xlink:href").value(), "#noteheadBlack");
    EXPECT_EQ(head.attribute("x").as_int(), 8 * userSpace);
    EXPECT_STREQ(head.parent().attribute("transform").value(), "translate(1280 3200)");
    EXPECT_STREQ(markOf("noteHead", "0,2,0,0,1,1").attribute("transform").value(),
                 "translate(2816 128) scale(0.7002 0.7002)");
    EXPECT_STREQ(markOf("arpeggio", "0,2,0,0,1").attribute("transform").value(),
                 "translate(2560 512) rotate(-90) scale(1 1)");
    EXPECT_STREQ(markOf("clef", "0,2,0").attribute("xlink:href").value(), "#gClef");
    EXPECT_STREQ(markOf("fret", "0,2,0,0,1,0").attribute("data-text").value(), "12");
    EXPECT_STREQ(markOf("lyric", "0,2,0,0,1").attribute("data-text").value(), "Größe & <AVA>");
    EXPECT_STREQ(markOf("stem", "0,2,0,0,0").attribute("d").value(), "M1144 256v-448h15v448");

    // As many marks as the layout has, lines of one place in one, and a symbol for each glyph,
    // once.
    std::map<std::string, int> symbols;
    for (const auto &symbol : root().child("defs").children("symbol"))
        ++symbols[symbol.attribute("id").value()];
    EXPECT_EQ(symbols,
              (std::map<std::string, int>{{"gClef", 1},
                                          {"noteheadBlack", 1},
                                          {"noteheadHalf", 1},
                                          {"wiggleArpeggiatoUp", 1},
                                          {"brace", 1}}));
    std::size_t marks = 0;
    std::set<std::string> ids;
    root().find_node([&](const pugi::xml_node &node) {
        marks += node.attribute("data-kind").empty() ? 0 : 1;
        if (!node.attribute("id").empty())
            ids.insert(node.attribute("id").value());
        return false;
    });
    const auto &drawn = _layout->pages()[0].systems[0].drawing->marks.marks();
    std::size_t joined = 0;
    for (std::size_t i = 1; i < drawn.size(); ++i)
        joined += drawn[i].kind == MarkKind::StaffLine && drawn[i - 1].kind == MarkKind::StaffLine
            && drawn[i].place == drawn[i - 1].place;
    EXPECT_EQ(joined, 4U);
    EXPECT_EQ(marks + joined, drawn.size() + 1);
    root().find_node([&](const pugi::xml_node &node) {
        const std::string target = node.attribute("xlink:href").value();
        EXPECT_TRUE(target.empty() || ids.count(target.substr(1)) == 1) << target;
        return false;
    });
}

TEST_F(SvgWriterTest, charactersThatTheFontLacksStayCharacters)
{
    write(1, SvgText::Outlines);
    EXPECT_STREQ(root().attribute("width").value(), "148mm");
    const auto lyric = markOf("lyric", "0,2,0,0,0");
    EXPECT_STREQ(lyric.name(), "text");
    EXPECT_STREQ(lyric.child_value(), "日本 \uFFFD") << "a control character is no XML";
    EXPECT_GT(lyric.attribute("textLength").as_int(), 4 * userSpace);

    write(1, SvgText::Characters);
    const auto fret = markOf("fret", "0,2,0,0,1,0");
    EXPECT_STREQ(fret.name(), "text");
    EXPECT_STREQ(fret.child_value(), "12");
    EXPECT_STREQ(fret.attribute("font-weight").value(), "bold");
}

TEST_F(SvgWriterTest, aPageThatIsNotThereOrADeviceThatIsClosedIsAnError)
{
    QBuffer closed;
    EXPECT_THROW(SvgWriter().write(*_layout, 0, closed), CoreException);
    QBuffer open;
    ASSERT_TRUE(open.open(QIODevice::WriteOnly));
    EXPECT_THROW(SvgWriter().write(*_layout, 2, open), CoreException);
    EXPECT_TRUE(open.data().isEmpty());
}

TEST(LayoutDumpTest, theDumpHasEveryMarkWhereItIsOnItsSheet)
{
    const auto layout = zarn::test::drawnSample();
    rapidjson::Document dump;
    dump.Parse(layoutDump(*layout).c_str());
    ASSERT_FALSE(dump.HasParseError());
    EXPECT_EQ(dump["pages"].Size(), 2u);
    EXPECT_EQ(dump["pages"][1]["width"].GetDouble(), 148);
    EXPECT_EQ(dump["problems"][0]["message"], "The string is missing.");
    const auto &list = layout->pages()[0].systems[0].drawing->marks;
    ASSERT_EQ(dump["marks"].Size(), 2 * list.marks().size() + 1);
    for (const auto &mark : dump["marks"].GetArray()) {
        const auto &box = mark["box"];
        EXPECT_LT(box[0].GetInt(), box[2].GetInt());
        EXPECT_LT(box[1].GetInt(), box[3].GetInt());
        if (mark["kind"] != "noteHead" || mark["glyph"] != "noteheadBlack" || mark["page"] != 0)
            continue;
        EXPECT_EQ(mark["at"][0], 18 * staffSpace);
        EXPECT_EQ(mark["at"][1], 27 * staffSpace);
        EXPECT_EQ(mark["place"][5], 0);
        EXPECT_EQ(box[2].GetInt() - box[0].GetInt(), fromSpaces(1.18));
    }
    // The ink of a glyph fills its box.
    const auto &ink = dump["glyphs"]["noteheadBlack"]["ink"][0];
    int right = 0;
    for (rapidjson::SizeType i = 0; i < ink.Size(); i += 2)
        right = std::max(right, ink[i].GetInt());
    EXPECT_NEAR(right, fromSpaces(1.18), 4);
}

} // namespace
