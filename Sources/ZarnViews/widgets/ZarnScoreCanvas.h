// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>
#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnLayout/draw/ZarnLayoutSearch.h>
#include <ZarnViews/ZarnViewsExport.h>

#include <QAbstractScrollArea>

#include <cstddef>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace zarn::views {

/// What a point of a sheet means: the mark that is there, and the nearest spot of a staff. A sheet
/// without staves has neither.
struct PointedAt {
    std::optional<layout::FoundMark> mark;
    std::optional<layout::FoundSpot> spot;
};

/// Shows a layout: its sheets below one another, scrolled and zoomed, with a cursor, a selection
/// and a playback line over them. Sheets are painted into tiles that are kept, so that scrolling
/// paints nothing anew, and a new layout only those sheets that differ.
///
/// It knows nothing of the score: whoever listens to its signals moves the cursor. Belongs to the
/// thread of the user interface.
class ZARNVIEWS_EXPORT ScoreCanvas : public QAbstractScrollArea {
    Q_OBJECT
public:
    static constexpr double smallestZoom = 0.1;
    static constexpr double largestZoom = 8;

    explicit ScoreCanvas(QWidget *parent = nullptr);
    ~ScoreCanvas() override;

    /// Nothing at first. Where the view stands stays as far as the new layout goes.
    void setLayout(std::shared_ptr<const layout::Layout> layout);
    const std::shared_ptr<const layout::Layout> &layout() const noexcept;

    /// 1 is as large as on paper, by what the screen says of itself; held between the limits.
    double zoom() const noexcept;
    void setZoom(double zoom);
    /// So that the widest sheet fills the width, or the first sheet the whole view.
    void fitWidth();
    void fitPage();
    /// So that the first sheet fills the height.
    void fitHeight();
    /// Zooms by a factor around a point of the viewport, which stays where it is.
    void zoomBy(double factor, const QPointF &fixed);

    /// The place where the next edit happens; nothing hides it.
    void setCursorPlace(const std::optional<layout::DrawPlace> &place);
    /// Where the next note is entered, be there a mark or not; nothing hides it.
    void setCursorSpot(const std::optional<layout::FoundSpot> &spot);
    /// Places that are selected, with all that lies in them.
    void setSelection(std::vector<layout::DrawPlace> places);
    /// What sounds now: a bar and the quarters from its begin; nothing hides the line.
    void setPlayback(const std::optional<std::pair<std::int32_t, utils::rational>> &position);

    /// Scrolls no more than needed to show a place.
    void reveal(const layout::DrawPlace &place);
    /// The same for a spot, with all of its system where there is room for it.
    void reveal(const layout::FoundSpot &spot);

    /// What a point of the viewport shows; nothing beside the sheets.
    std::optional<PointedAt> pointedAt(const QPoint &position) const;

    /// The sheet and the point on it, in units of the layout, that a point of the viewport shows.
    std::optional<std::pair<std::size_t, layout::Point>> sheetPoint(const QPoint &position) const;
    /// Where the viewport shows a part of a sheet.
    QRectF viewRect(const layout::PlacedBox &box) const;

Q_SIGNALS:
    /// The left mouse button went down on a sheet; with a modifier, such as Shift, it may mean
    /// more.
    void pressed(const zarn::views::PointedAt &at, Qt::KeyboardModifiers modifiers);
    /// The mouse moved over a sheet, that button still down.
    void dragged(const zarn::views::PointedAt &at);
    void doubleClicked(const zarn::views::PointedAt &at);
    void zoomChanged(double zoom);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    class Sheets;
    class Tiles;

    void updateScrollBars();
    void reveal(const layout::PlacedBox &box);
    void zoomAt(double zoom, const QPointF &fixed);
    QPointF origin() const;
    void paintOverlays(QPainter &painter, const QRectF &exposed) const;

    std::unique_ptr<Sheets> _sheets;
    std::unique_ptr<Tiles> _tiles;
    std::optional<layout::DrawPlace> _cursor;
    std::optional<layout::FoundSpot> _cursorSpot;
    std::vector<layout::DrawPlace> _selection;
    std::optional<std::pair<std::int32_t, utils::rational>> _playback;
};

} // namespace zarn::views
