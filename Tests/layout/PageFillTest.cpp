// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/ViolinPiece.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

using namespace zarn;
using ::test::LaidOut;
using ::test::ViolinPiece;
using NoteValue = RhythmValue::NoteValue;

std::shared_ptr<ScoreModel> musicOf(const std::vector<int> &keys)
{
    constexpr unsigned bars = 40;
    ViolinPiece piece(bars);
    for (unsigned bar = 0; bar < bars; ++bar)
        for (const int key : keys)
            piece.add({key}, NoteValue::Quarter, 0, 0, bar);
    return piece.model;
}

/// Music that keeps inside its staff: bar numbers alone stand outside of it.
std::shared_ptr<ScoreModel> plainMusic()
{
    return musicOf({67, 69, 71, 72});
}

LaidOut onPages(const ScoreModel &model, int height)
{
    layout::LayoutOptions options;
    options.page = PageSetup();
    options.page->height = height;
    return LaidOut(model, options);
}

/// Heights of pages in micrometres, on the higher of which all systems find room.
std::pair<int, int> lowestPageFor(const ScoreModel &model)
{
    int tooLow = 40000;
    int enough = 400000;
    while (enough - tooLow > 200) {
        const int height = (tooLow + enough) / 2;
        (onPages(model, height).layout->pages().size() > 1 ? tooLow : enough) = height;
    }
    return {tooLow, enough};
}

/// The least and the greatest distance between the ink of systems that follow on a page, in staff
/// spaces; without the first system of a score, whose line is shorter, so that ink below it and ink
/// of the next one may stand side by side.
std::pair<double, double> gapsOn(const LaidOut &laid, const layout::LayoutPage &page)
{
    std::pair<double, double> gaps = {1e9, 0};
    const bool isFirst = &page == &laid.layout->pages().front();
    for (std::size_t i = isFirst ? 2 : 1; i < page.systems.size(); ++i) {
        const auto boxOf = [&](const layout::PlacedSystem &system) {
            return system.drawing->marks.box(laid.layout->font()).movedBy(system.at);
        };
        const double gap =
            layout::toSpaces(boxOf(page.systems[i]).top - boxOf(page.systems[i - 1]).bottom);
        gaps = {std::min(gaps.first, gap), std::max(gaps.second, gap)};
    }
    return gaps;
}

} // namespace

/// Systems stand nearer than they like where all of them find room by it, evenly and never so near
/// that they touch; on the lowest page that holds them as well as on one that nearly has the room.
TEST(PageFillTest, systemsMoveTogetherWhereOneMoreFits)
{
    const auto model = plainMusic();
    const auto [tooLow, enough] = lowestPageFor(*model);
    const LaidOut lowest = onPages(*model, enough);
    const auto &page = lowest.layout->pages().front();
    ASSERT_GT(page.systems.size(), 5U);
    const auto squeezed = gapsOn(lowest, page);
    EXPECT_GT(squeezed.first, 0.4);
    EXPECT_LT(squeezed.second, 0.7);
    EXPECT_NEAR(squeezed.first, squeezed.second, 0.05);

    // A page that is a little too low for the systems as they like to stand.
    const double gaps = static_cast<double>(page.systems.size() - 1);
    const auto micrometres = [&](double spaces) {
        return static_cast<int>(spaces * 1000
                                / layout::toSpaces(lowest.layout->fromMicrometres(1000)));
    };
    const auto nearly = onPages(*model, enough + micrometres(gaps * 1.0));
    const auto middle = gapsOn(nearly, nearly.layout->pages().front());
    EXPECT_NEAR(middle.first, squeezed.first + 1.0, 0.05);
    EXPECT_NEAR(middle.second, squeezed.second + 1.0, 0.05);

    // On two pages there is no need for it.
    const LaidOut two = onPages(*model, tooLow);
    ASSERT_EQ(two.layout->pages().size(), 2U);
    for (const auto &half : two.layout->pages())
        if (half.systems.size() > 1) {
            EXPECT_GT(gapsOn(two, half).first, squeezed.second + 1.0);
        }
}

/// What hangs below a staff or stands above one keeps off the staff of another system, however near
/// the systems come: one sees to which of them it belongs.
TEST(PageFillTest, inkStaysAwayFromTheStavesOfOtherSystems)
{
    for (const int key : {57, 88}) {
        const auto model = musicOf({71, key, key, 71});
        const LaidOut lowest = onPages(*model, lowestPageFor(*model).second);
        const auto &systems = lowest.layout->pages().front().systems;
        ASSERT_GT(systems.size(), 5U);
        const bool isBelow = key < 71;
        for (std::size_t i = 2; i < systems.size(); ++i) {
            const auto &upper = systems[i - 1];
            const auto &lower = systems[i];
            double edge = isBelow ? -1e9 : 1e9;
            const auto &list = (isBelow ? upper : lower).drawing->marks;
            for (const auto &mark : list.marks())
                if (mark.kind == layout::MarkKind::NoteHead) {
                    const auto box = list.box(mark, lowest.layout->font());
                    edge = isBelow ? std::max<double>(edge, box.bottom + upper.at.y)
                                   : std::min<double>(edge, box.top + lower.at.y);
                }
            const double staff = isBelow ? lower.drawing->staves.front().top + lower.at.y
                                         : upper.drawing->staves.back().bottom + upper.at.y;
            EXPECT_GT(layout::toSpaces(static_cast<layout::Unit>(std::abs(staff - edge))), 1.5)
                << key << ", " << i;
        }
    }
}

/// Words may reach over bar lines into empty room; where others stand behind the line, they count
/// when lines are broken.
TEST(PageFillTest, linesAreNotFullerThanTheirWordsLet)
{
    for (std::size_t length = 9; length < 13; ++length) {
        constexpr unsigned bars = 60;
        ViolinPiece piece(bars);
        for (unsigned bar = 0; bar < bars; ++bar) {
            Syllable syllable;
            syllable.text = std::string(length + bar % 3, 'n');
            piece.add({72}, NoteValue::Whole, 0, 0, bar).setLyrics({syllable});
        }
        const LaidOut laid(*piece.model);
        for (const auto &problem : laid.layout->problems())
            ADD_FAILURE() << length << ": " << problem.message;
    }
}
