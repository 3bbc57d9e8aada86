// SPDX-License-Identifier: MIT
#include "support/DrawnSample.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnLayout/font/ZarnTextMeasure.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using namespace zarn::layout;

constexpr Unit sp = staffSpace;

DrawList oneGlyph(const GlyphForm &form)
{
    DrawListBuilder list;
    list.glyph(MarkKind::Arpeggio, {}, MusicFont::builtIn()->glyph("wiggleArpeggiatoUp"), {0, 0},
               form);
    return list.build();
}

TEST(DrawListTest, boxesFollowTurnsAndScales)
{
    const MusicFont &font = *MusicFont::builtIn();
    const Box plain = oneGlyph({}).box(font);
    ASSERT_GT(plain.width(), plain.height() / 2);
    const Box turned = oneGlyph({{1024, 1024}, 1}).box(font);
    EXPECT_EQ(turned.width(), plain.height());
    EXPECT_EQ(turned.height(), plain.width());
    EXPECT_EQ(turned.top, -plain.right) << "a quarter turn to the left lets it grow upwards";
    EXPECT_EQ(oneGlyph({{1024, 1024}, 2}).box(font).left, -plain.right);
    EXPECT_EQ(oneGlyph({{2048, 512}, 0}).box(font).width(), 2 * plain.width());
    EXPECT_NEAR(oneGlyph({{2048, 512}, 0}).box(font).height(), plain.height() / 2, 1);

    DrawListBuilder list;
    list.line(MarkKind::Stem, {}, {0, 0}, {0, 4 * sp}, 100);
    list.line(MarkKind::Slide, {}, {0, 0}, {3 * sp, 4 * sp}, 1000);
    list.line(MarkKind::Pedal, {}, {0, 0}, {4 * sp, 0}, 100, {}, LineCap::Round);
    const DrawList lines = list.build();
    EXPECT_EQ(lines.box(lines.marks()[0], font), (Box{-50, 0, 50, 4 * sp}));
    EXPECT_EQ(lines.box(lines.marks()[1], font), (Box{-400, -300, 3 * sp + 400, 4 * sp + 300}));
    EXPECT_EQ(lines.box(lines.marks()[2], font), (Box{-50, -50, 4 * sp + 50, 50}));
}

/// A list with three texts, of bars, and a mark of no bar.
DrawList withMiddleText(const std::string &text, Point at, std::int32_t bar)
{
    const TextStyle style;
    DrawPlace place;
    place.bar = bar;
    DrawListBuilder list;
    const auto add = [&](const std::string &words, Point point) {
        list.text(MarkKind::BarNumber, place, words, style, point,
                  builtInTextMeasure().measure(words, style));
    };
    add("first", {0, 0});
    list.line(MarkKind::StaffLine, {}, {0, 0}, {9 * sp, 0}, 100);
    add(text, at);
    add("last", {0, 3 * sp});
    return list.build();
}

TEST(DrawListTest, anotherTextOrBarMakesTheListThatIsDrawnSo)
{
    const DrawList list = withMiddleText("99", {sp, 0}, 98);
    const auto extent = builtInTextMeasure().measure("100", TextStyle());
    EXPECT_EQ(list.withText(2, "100", {sp, -sp}, extent), withMiddleText("100", {sp, -sp}, 98));
    EXPECT_EQ(list.movedByBars(3), withMiddleText("99", {sp, 0}, 101));
    EXPECT_NE(list.movedByBars(3), list);
}

TEST(DrawListTest, anAppendedListIsTheSameElsewhere)
{
    const auto layout = zarn::test::drawnSample();
    const DrawList &original = layout->pages()[0].systems[0].drawing->marks;
    DrawListBuilder list;
    list.append(original, {0, 0});
    EXPECT_EQ(list.build(), original);

    list.append(original, {7, 9});
    list.append(original, {-3, 0});
    const DrawList both = list.build();
    const std::size_t count = original.marks().size();
    ASSERT_EQ(both.marks().size(), 2 * count);
    EXPECT_EQ(list.build(), DrawList()) << "the builder is not empty again";
    for (std::size_t i = 0; i < 2 * count; ++i) {
        const DrawMark &mark = both.marks()[i];
        const DrawMark &source = original.marks()[i % count];
        EXPECT_EQ(
            both.box(mark, layout->font()),
            original.box(source, layout->font()).movedBy(i < count ? Point{7, 9} : Point{-3, 0}));
        if (mark.shape == MarkShape::Text) {
            EXPECT_EQ(both.characters(mark), original.characters(source));
        }
    }
}

TEST(LayoutTest, layoutsAreComparedByValue)
{
    EXPECT_EQ(*zarn::test::drawnSample(), *zarn::test::drawnSample());
    Layout::Content content;
    EXPECT_THROW(Layout{content}, CoreException);
    content.font = MusicFont::builtIn();
    content.pages.resize(1);
    const Layout blank(content);
    content.pages[0].marks = std::make_shared<DrawList>();
    EXPECT_NE(blank, Layout(content));
    content.pages[0].systems = std::vector<PlacedSystem>(1);
    EXPECT_THROW(Layout{content}, CoreException);
    EXPECT_DOUBLE_EQ(blank.millimetres(4 * sp), 7);
    EXPECT_EQ(blank.fromMicrometres(7000), 4 * sp);
}

TEST(PathShapeTest, boxesEndWhereCurvesTurn)
{
    DrawListBuilder list;
    list.fill(MarkKind::Slur, {},
              PathShape().moveTo({0, 0}).curveTo({0, -400}, {800, -400}, {800, 0}).close());
    list.stroke(MarkKind::Bend, {},
                PathShape().moveTo({0, 0}).curveTo({-300, 0}, {200, 0}, {100, 90}), 20);
    const DrawList curves = list.build();
    const MusicFont &font = *MusicFont::builtIn();
    EXPECT_EQ(curves.box(curves.marks()[0], font), (Box{0, -300, 800, 0}));
    const Box bent = curves.box(curves.marks()[1], font);
    EXPECT_EQ(bent.left, -98 - 10);
    EXPECT_EQ(bent.right, 114 + 10);
    EXPECT_EQ(bent.bottom, 100);
}

TEST(PathShapeTest, aCircleIsRound)
{
    DrawListBuilder list;
    list.fill(MarkKind::ChordDiagram, {}, PathShape::circle({sp, sp}, sp));
    const DrawList circle = list.build();
    EXPECT_EQ(circle.box(*MusicFont::builtIn()), (Box{0, 0, 2 * sp, 2 * sp}));
    EXPECT_THROW(PathShape().lineTo({0, 0}), CoreException);
}

} // namespace
