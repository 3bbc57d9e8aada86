// SPDX-License-Identifier: MIT
#include "support/DrawnSample.h"

#include <ZarnViews/widgets/ZarnScoreCanvas.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>

namespace {

using namespace zarn;
using namespace zarn::views;

constexpr layout::Unit sp = layout::staffSpace;

class ScoreCanvasTest : public testing::Test {
protected:
    ScoreCanvasTest()
    {
        _canvas.resize(500, 400);
        _canvas.setLayout(_layout);
        _canvas.show();
        QCoreApplication::processEvents();
    }

    static layout::DrawPlace head()
    {
        layout::DrawPlace place;
        place.track = 0;
        place.bar = 2;
        place.staff = 0;
        place.voice = 0;
        place.beat = 0;
        place.note = 0;
        return place;
    }

    QPoint middleOf(const layout::DrawPlace &place, std::size_t sheet = 0) const
    {
        return _canvas.viewRect(layout::boxesOf(*_layout, place).at(sheet)).center().toPoint();
    }

    void press(const QPoint &at)
    {
        QMouseEvent event(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton,
                          Qt::ShiftModifier);
        QCoreApplication::sendEvent(_canvas.viewport(), &event);
    }

    int darkPixels(const QRect &rect)
    {
        const QImage image = _canvas.viewport()->grab(rect).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
        return count;
    }

    /// Between grey values of the pixels of two images; more than there is for another size.
    static int mostDifference(const QImage &a, const QImage &b)
    {
        if (a.size() != b.size())
            return 256;
        int most = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                most = std::max(most, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
        return most;
    }

    const std::shared_ptr<const layout::Layout> _layout = test::drawnSample();
    ScoreCanvas _canvas;
};

TEST_F(ScoreCanvasTest, aPressOnANoteNamesIt)
{
    std::vector<PointedAt> points;
    Qt::KeyboardModifiers keys;
    QObject::connect(&_canvas, &ScoreCanvas::pressed,
                     [&](const PointedAt &at, Qt::KeyboardModifiers modifiers) {
                         points.push_back(at);
                         keys = modifiers;
                     });
    for (const double zoom : {1.0, 0.5, 2.5}) {
        _canvas.setZoom(zoom);
        _canvas.reveal(head());
        press(middleOf(head()));
        ASSERT_FALSE(points.empty()) << zoom;
        ASSERT_TRUE(points.back().mark.has_value()) << zoom;
        EXPECT_EQ(points.back().mark->place, head()) << zoom;
        points.clear();
    }
    EXPECT_EQ(keys, Qt::ShiftModifier);

    _canvas.setZoom(1);
    press(_canvas.viewRect({0, {45 * sp, 26 * sp, 45 * sp, 26 * sp}}).center().toPoint());
    ASSERT_EQ(points.size(), 1u);
    EXPECT_FALSE(points[0].mark.has_value());
    ASSERT_TRUE(points[0].spot.has_value());
    EXPECT_EQ(points[0].spot->bar, 2);
    press({1, 1}); // beside all sheets
    EXPECT_EQ(points.size(), 1u);
}

TEST_F(ScoreCanvasTest, aDragNamesEverySpotOnItsWay)
{
    std::vector<std::int32_t> bars;
    QObject::connect(&_canvas, &ScoreCanvas::dragged,
                     [&](const PointedAt &at) { bars.push_back(at.spot ? at.spot->bar : -1); });
    const auto move = [this](const QPoint &at, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, at, Qt::NoButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(_canvas.viewport(), &event);
    };
    move(middleOf(head()), Qt::LeftButton);
    EXPECT_EQ(bars, std::vector<std::int32_t>{2});
    move(middleOf(head()), Qt::NoButton);
    EXPECT_EQ(bars.size(), 1u);
}

TEST_F(ScoreCanvasTest, theCursorShowsWhereNoNoteIs)
{
    const auto &staff = _layout->pages()[0].systems[0].drawing->staves[0];
    layout::FoundSpot spot;
    spot.staff = staff;
    spot.bar = 2;
    spot.offset = utils::rational(7, 2);
    const auto box = layout::boxOfSpot(*_layout, spot);
    ASSERT_TRUE(box.has_value());
    const QRect rect = _canvas.viewRect(*box).toAlignedRect().adjusted(-3, -3, 3, 3);
    const QImage without = _canvas.viewport()->grab(rect).toImage();
    _canvas.setCursorSpot(spot);
    EXPECT_NE(_canvas.viewport()->grab(rect).toImage(), without);
    _canvas.setCursorSpot(std::nullopt);
    EXPECT_EQ(_canvas.viewport()->grab(rect).toImage(), without);
    spot.bar = 99;
    EXPECT_FALSE(layout::boxOfSpot(*_layout, spot).has_value());
}

TEST_F(ScoreCanvasTest, theNoteIsPaintedWhereItIsFound)
{
    for (const double zoom : {0.8, 1.7}) {
        _canvas.setZoom(zoom);
        _canvas.reveal(head());
        const auto head = layout::boxesOf(*_layout, ScoreCanvasTest::head())[0];
        const QRect rect = _canvas.viewRect(head).toAlignedRect();
        EXPECT_GT(darkPixels(rect), rect.width() * rect.height() * 2 / 5) << zoom;
        // Between two lines of the staff, beside the head, there is nothing.
        const QRectF beside =
            _canvas.viewRect({0, {15 * sp, 27 * sp + 200, 17 * sp, 28 * sp - 200}});
        EXPECT_EQ(darkPixels(beside.toRect().adjusted(0, 1, 0, -1)), 0) << zoom;
    }
}

TEST_F(ScoreCanvasTest, zoomKeepsWhatIsUnderThePointerAndItsLimits)
{
    double told = 0;
    QObject::connect(&_canvas, &ScoreCanvas::zoomChanged, [&](double zoom) { told = zoom; });
    _canvas.setZoom(2);
    _canvas.reveal(head());
    const QPoint pointer = middleOf(head());
    QWheelEvent wheel(pointer, _canvas.viewport()->mapToGlobal(pointer), QPoint(), QPoint(0, 240),
                      Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(_canvas.viewport(), &wheel);
    EXPECT_NEAR(_canvas.zoom(), 2 * 1.21, 1e-9);
    EXPECT_EQ(told, _canvas.zoom());
    EXPECT_LE((middleOf(head()) - pointer).manhattanLength(), 3);

    _canvas.setZoom(1000);
    EXPECT_EQ(_canvas.zoom(), ScoreCanvas::largestZoom);
    _canvas.setZoom(-1);
    EXPECT_EQ(_canvas.zoom(), ScoreCanvas::smallestZoom);
    _canvas.setZoom(std::nan(""));
    EXPECT_EQ(_canvas.zoom(), ScoreCanvas::smallestZoom);
    _canvas.fitWidth();
    EXPECT_EQ(_canvas.horizontalScrollBar()->maximum(), 0);
    _canvas.fitPage();
    EXPECT_LT(_canvas.viewRect({0, {0, 0, sp, _layout->fromMicrometres(297000)}}).height(), 400);
}

TEST_F(ScoreCanvasTest, cursorSelectionAndPlaybackLineAreSeenAndGoAgain)
{
    _canvas.setZoom(1);
    _canvas.reveal(head());
    const QImage before = _canvas.viewport()->grab().toImage();
    const auto differs = [&] { return _canvas.viewport()->grab().toImage() != before; };
    _canvas.setSelection({head()});
    EXPECT_TRUE(differs());
    _canvas.setSelection({});
    EXPECT_FALSE(differs());
    _canvas.setCursorPlace(head());
    EXPECT_TRUE(differs());
    _canvas.setCursorPlace(std::nullopt);
    _canvas.setPlayback(std::pair{2, utils::rational(1, 2)});
    EXPECT_TRUE(differs());
    _canvas.setPlayback(std::pair{99, utils::rational(0)});
    EXPECT_FALSE(differs()) << "a bar that is not drawn has no line";
    _canvas.setPlayback(std::nullopt);
    EXPECT_FALSE(differs());

    _canvas.setLayout(nullptr);
    press({100, 100});
    _canvas.reveal(head());
    EXPECT_FALSE(_canvas.sheetPoint({100, 100}));
}

TEST_F(ScoreCanvasTest, whatChangesOnASheetIsPaintedAsOnANewCanvas)
{
    using Content = layout::Layout::Content;
    using Systems = std::vector<layout::PlacedSystem>;
    const auto changeSystems = [](Content &content, const auto &change) {
        auto &systems = content.pages[0].systems;
        Systems changed(systems.begin(), systems.end());
        change(changed);
        systems = std::move(changed);
    };
    const auto changeMarks = [&](Content &content, const auto &change) {
        changeSystems(content, [&](Systems &systems) {
            auto drawing = std::make_shared<layout::SystemDrawing>(*systems[0].drawing);
            drawing->marks = change(drawing->marks);
            systems[0].drawing = drawing;
        });
    };
    const auto moveMarks = [](layout::MarkShape shape, layout::Unit by) {
        return [=](const layout::DrawList &marks) {
            std::vector<layout::MarkMove> moves;
            for (const layout::DrawMark &mark : marks.marks())
                moves.push_back(mark.shape == shape ? layout::MarkMove{by, by}
                                                    : layout::MarkMove());
            return marks.movedBy(moves);
        };
    };
    const std::pair<const char *, std::function<void(Content &)>> steps[] = {
        {"other words",
         [&](Content &content) {
             changeMarks(content, [](const layout::DrawList &marks) {
                 std::size_t text = 0;
                 while (marks.marks()[text].shape != layout::MarkShape::Text)
                     ++text;
                 const layout::DrawMark &mark = marks.marks()[text];
                 return marks.withText(
                     text, "7", mark.at,
                     layout::builtInTextMeasure().measure("7", marks.textOf(mark).style));
             });
         }},
        {"moved curves",
         [&](Content &content) { changeMarks(content, moveMarks(layout::MarkShape::Path, -sp)); }},
        {"moved lines",
         [&](Content &content) {
             changeMarks(content, moveMarks(layout::MarkShape::Line, sp / 3));
         }},
        {"a moved system",
         [&](Content &content) {
             changeSystems(content, [](Systems &systems) { systems[0].at.y += 3 * sp; });
         }},
        {"one more system",
         [&](Content &content) {
             changeSystems(content, [](Systems &systems) {
                 systems.push_back(systems[0]);
                 systems[1].at.y += 20 * sp;
             });
         }},
        {"nothing", [](Content &) {}},
        {"one system less",
         [&](Content &content) {
             changeSystems(content, [](Systems &systems) { systems.pop_back(); });
         }},
        {"no title", [](Content &content) { content.pages[0].marks = nullptr; }},
        {"a narrower sheet", [](Content &content) { content.pages[0].width -= 20000; }},
        {"as in the beginning", [this](Content &content) { content.pages = _layout->pages(); }},
    };
    for (const double zoom : {1.0, 0.43, 2.5}) {
        _canvas.setLayout(_layout);
        _canvas.setZoom(zoom);
        _canvas.reveal(head());
        _canvas.viewport()->grab();
        Content content;
        content.font = layout::MusicFont::builtIn();
        content.staffSpace = _layout->staffSpace();
        content.pages = _layout->pages();
        for (const auto &[name, change] : steps) {
            change(content);
            const auto next = std::make_shared<layout::Layout>(content);
            _canvas.setLayout(next);
            ScoreCanvas fresh;
            fresh.resize(_canvas.size());
            fresh.setLayout(next);
            fresh.setZoom(zoom);
            fresh.show();
            fresh.horizontalScrollBar()->setValue(_canvas.horizontalScrollBar()->value());
            fresh.verticalScrollBar()->setValue(_canvas.verticalScrollBar()->value());
            QCoreApplication::processEvents(); // what the scroll bars leave
            // The edge of a part may round what is painted across it.
            EXPECT_LE(mostDifference(_canvas.viewport()->grab().toImage(),
                                     fresh.viewport()->grab().toImage()),
                      4)
                << name << ", zoom " << zoom;
        }
    }
}

} // namespace
