// SPDX-License-Identifier: MIT
#include "support/DrawnSample.h"

#include <ZarnLayout/draw/ZarnLayoutSearch.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using namespace zarn::layout;

constexpr Unit sp = staffSpace;

/// The sample's system lies at 10, 25 staff spaces on its first sheet, at 10, 15 on the second.
class LayoutSearchTest : public testing::Test {
protected:
    const std::shared_ptr<const Layout> _layout = zarn::test::drawnSample();

    static DrawPlace place(int beat, int note)
    {
        DrawPlace place;
        place.track = 0;
        place.bar = 2;
        place.staff = 0;
        place.voice = 0;
        place.beat = static_cast<std::int16_t>(beat);
        place.note = static_cast<std::int16_t>(note);
        return place;
    }
};

TEST_F(LayoutSearchTest, aClickFindsNotesBeforeWhatElseIsThere)
{
    // The middle of the head, whose stem touches it; a little beside it; and far from everything.
    const auto head = markAt(*_layout, 0, {18 * sp + sp / 2, 27 * sp});
    ASSERT_TRUE(head);
    EXPECT_EQ(head->kind, MarkKind::NoteHead);
    EXPECT_EQ(head->place, place(0, 0));
    EXPECT_EQ(markAt(*_layout, 1, {18 * sp - 100, 17 * sp})->place, place(0, 0));
    EXPECT_EQ(markAt(*_layout, 0, {35 * sp, 33 * sp - 100})->kind, MarkKind::Fret);
    EXPECT_EQ(markAt(*_layout, 0, {42 * sp, 14 * sp})->kind, MarkKind::Title);
    EXPECT_FALSE(markAt(*_layout, 0, {45 * sp, 26 * sp})) << "a staff line was hit";
    EXPECT_FALSE(markAt(*_layout, 7, {0, 0}));

    // Every note that is drawn is found where it is drawn.
    const PlacedSystem &system = _layout->pages()[0].systems[0];
    for (const DrawMark &mark : system.drawing->marks.marks()) {
        if (mark.kind != MarkKind::NoteHead && mark.kind != MarkKind::Fret)
            continue;
        const Box box = system.drawing->marks.box(mark, _layout->font()).movedBy(system.at);
        EXPECT_EQ(
            markAt(*_layout, 0, {(box.left + box.right) / 2, (box.top + box.bottom) / 2})->place,
            mark.place);
    }
}

TEST_F(LayoutSearchTest, anEmptySpotIsStillSomewhereInTheMusic)
{
    const auto spot = spotAt(*_layout, 0, {33 * sp, 28 * sp + 100});
    ASSERT_TRUE(spot);
    EXPECT_EQ(spot->bar, 2);
    EXPECT_EQ(spot->offset, utils::rational(1));
    EXPECT_EQ(spot->step, 6) << "the fourth line";
    EXPECT_EQ(spotAt(*_layout, 0, {0, 0})->offset, utils::rational(0));
    EXPECT_EQ(spotAt(*_layout, 0, {0, 24 * sp})->step, -2);
    EXPECT_FALSE(spotAt(*_layout, 2, {0, 0}));
}

TEST_F(LayoutSearchTest, systemsMayStandBesideOneAnother)
{
    Layout::Content content;
    content.font = MusicFont::builtIn();
    content.pages.push_back(_layout->pages()[0]);
    const PlacedSystem first = content.pages[0].systems[0];
    const auto second = std::make_shared<SystemDrawing>(*first.drawing);
    second->bars[0].firstBar = 3;
    content.pages[0].systems = {{first, {second, first.at + Point{40 * sp, 0}}}};
    const Layout layout(std::move(content));
    for (const Unit y : {0, 27 * sp, 60 * sp}) {
        EXPECT_EQ(spotAt(layout, 0, {0, y})->bar, 2);
        EXPECT_EQ(spotAt(layout, 0, {33 * sp, y})->bar, 2);
        const auto spot = spotAt(layout, 0, {73 * sp, y});
        EXPECT_EQ(spot->bar, 3);
        EXPECT_EQ(spot->offset, utils::rational(1));
        EXPECT_EQ(spotAt(layout, 0, {500 * sp, y})->bar, 3);
    }
}

TEST_F(LayoutSearchTest, placesHaveBoxesOnEverySheetThatShowsThem)
{
    const auto boxes = boxesOf(*_layout, place(0, 0));
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].page, 0u);
    EXPECT_EQ(boxes[0].box.left, 18 * sp);
    EXPECT_EQ(boxes[1].box.top, boxes[0].box.top - 10 * sp);
    const auto beat = boxesOf(*_layout, place(0, -1));
    EXPECT_LT(beat[0].box.top, 24 * sp) << "the stem belongs to the beat";
    DrawPlace elsewhere = place(0, 0);
    elsewhere.bar = 3;
    EXPECT_TRUE(boxesOf(*_layout, elsewhere).empty());
}

TEST_F(LayoutSearchTest, thePlaybackLineGoesFromColumnToColumn)
{
    const auto x = [&](std::int64_t numerator, std::int64_t denominator) {
        return playbackLine(*_layout, 2, {numerator, denominator})->box.left;
    };
    EXPECT_EQ(x(0, 1), 18 * sp);
    EXPECT_EQ(x(1, 2), 25 * sp);
    EXPECT_EQ(x(1, 1), 32 * sp);
    EXPECT_EQ(x(9, 1), 32 * sp);
    EXPECT_EQ(playbackLine(*_layout, 2, 0)->box.bottom, 29 * sp);
    EXPECT_FALSE(playbackLine(*_layout, 0, 0));
}

} // namespace
