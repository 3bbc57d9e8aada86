// SPDX-License-Identifier: MIT
#include <ZarnViews/widgets/ZarnScoreCanvas.h>

#include <ZarnViews/widgets/CanvasSheets.h>
#include <ZarnViews/widgets/CanvasTiles.h>

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace zarn::views {
namespace {

/// A hand's reach for the mouse, in pixels.
constexpr double mouseReach = 4;
constexpr double wheelStep = 1.1;
constexpr double playbackWidth = 2;

QColor overlayColour(const QPalette &palette, int alpha)
{
    QColor colour = palette.color(QPalette::Highlight);
    colour.setAlpha(alpha);
    return colour;
}

} // namespace

ScoreCanvas::ScoreCanvas(QWidget *parent)
    : QAbstractScrollArea(parent), _sheets(std::make_unique<Sheets>()),
      _tiles(std::make_unique<Tiles>())
{
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
    viewport()->setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::StrongFocus);
    _sheets->setScale(logicalDpiX() / 25.4);
}

ScoreCanvas::~ScoreCanvas() = default;

void ScoreCanvas::setLayout(std::shared_ptr<const layout::Layout> layout)
{
    _sheets->setLayout(std::move(layout));
    updateScrollBars();
    viewport()->update();
}

const std::shared_ptr<const layout::Layout> &ScoreCanvas::layout() const noexcept
{
    return _sheets->layout();
}

double ScoreCanvas::zoom() const noexcept
{
    return _sheets->scale() * 25.4 / logicalDpiX();
}

void ScoreCanvas::setZoom(double zoom)
{
    zoomAt(zoom, QPointF(0, 0));
}

void ScoreCanvas::fitWidth()
{
    const double width = _sheets->largestSheet().width();
    if (width > 0)
        setZoom((viewport()->width() - 2 * Sheets::gap) / width * 25.4 / logicalDpiX());
}

void ScoreCanvas::fitPage()
{
    const QSizeF sheet = _sheets->largestSheet();
    if (!sheet.isEmpty())
        setZoom(std::min((viewport()->width() - 2 * Sheets::gap) / sheet.width(),
                         (viewport()->height() - 2 * Sheets::gap) / sheet.height())
                * 25.4 / logicalDpiX());
}

void ScoreCanvas::fitHeight()
{
    const double height = _sheets->largestSheet().height();
    if (height > 0)
        setZoom((viewport()->height() - 2 * Sheets::gap) / height * 25.4 / logicalDpiX());
}

void ScoreCanvas::zoomBy(double factor, const QPointF &fixed)
{
    zoomAt(zoom() * factor, fixed);
}

void ScoreCanvas::zoomAt(double zoom, const QPointF &fixed)
{
    const double before = this->zoom();
    const double after = std::isfinite(zoom) ? std::clamp(zoom, smallestZoom, largestZoom) : before;
    if (after == before)
        return;
    // What lay under the fixed point goes on doing so; gaps between sheets do not grow.
    const auto anchor = sheetPoint(fixed.toPoint());
    const QPointF onDesk = (fixed - origin()) * (after / before);
    _sheets->setScale(after * logicalDpiX() / 25.4);
    updateScrollBars();
    QPointF offset = onDesk + origin() - fixed;
    if (anchor) {
        const layout::Point at = anchor->second;
        offset = viewRect({anchor->first, {at.x, at.y, at.x, at.y}}).topLeft() - fixed;
    }
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(offset.x()));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(offset.y()));
    viewport()->update();
    Q_EMIT zoomChanged(this->zoom());
}

void ScoreCanvas::setCursorPlace(const std::optional<layout::DrawPlace> &place)
{
    _cursor = place;
    viewport()->update();
}

void ScoreCanvas::setCursorSpot(const std::optional<layout::FoundSpot> &spot)
{
    _cursorSpot = spot;
    viewport()->update();
}

void ScoreCanvas::setSelection(std::vector<layout::DrawPlace> places)
{
    _selection = std::move(places);
    viewport()->update();
}

void ScoreCanvas::setPlayback(
    const std::optional<std::pair<std::int32_t, utils::rational>> &position)
{
    const auto line = [this] {
        const auto box = _playback && layout() != nullptr
            ? layout::playbackLine(*layout(), _playback->first, _playback->second)
            : std::nullopt;
        return box
            ? viewRect(*box).adjusted(-playbackWidth, -playbackWidth, playbackWidth, playbackWidth)
            : QRectF();
    };
    viewport()->update(line().toAlignedRect());
    _playback = position;
    viewport()->update(line().toAlignedRect());
}

namespace {

/// The system of a spot, with what stands above and below its staves, as wide as the box of the
/// spot. The first one of a sheet has what the sheet begins with.
layout::PlacedBox systemAround(const layout::Layout &layout, const layout::FoundSpot &spot,
                               const layout::PlacedBox &box)
{
    layout::PlacedBox whole = box;
    const auto &systems = layout.pages()[box.page].systems;
    const auto holdsSpot = [&](const layout::PlacedSystem &system) {
        const auto &bars = system.drawing->bars;
        return !bars.empty() && spot.bar >= bars.front().firstBar
            && spot.bar < bars.back().firstBar + bars.back().barCount;
    };
    const auto around = std::find_if(systems.begin(), systems.end(), holdsSpot);
    if (around == systems.end())
        return whole;
    // Parts of a line stand beside one another: the view stays at the height of them all.
    for (const layout::PlacedSystem &system : systems) {
        if (system.at.y != around->at.y)
            continue;
        const layout::Box ink = system.drawing->marks.box(layout.font()).movedBy(system.at);
        whole.box.top = std::min(ink.top, whole.box.top);
        whole.box.bottom = std::max(ink.bottom, whole.box.bottom);
    }
    if (around->at.y == systems.front().at.y)
        whole.box.top = 0;
    return whole;
}

} // namespace

void ScoreCanvas::reveal(const layout::DrawPlace &place)
{
    if (layout() == nullptr)
        return;
    const auto boxes = layout::boxesOf(*layout(), place);
    if (!boxes.empty())
        reveal(boxes.front());
}

void ScoreCanvas::reveal(const layout::FoundSpot &spot)
{
    if (layout() == nullptr)
        return;
    const auto box = layout::boxOfSpot(*layout(), spot);
    if (!box)
        return;
    const layout::PlacedBox system = systemAround(*layout(), spot, *box);
    if (viewRect(system).height() + 2 * Sheets::gap <= viewport()->height())
        reveal(system);
    reveal(*box);
}

void ScoreCanvas::reveal(const layout::PlacedBox &box)
{
    const QRectF rect =
        viewRect(box).adjusted(-Sheets::gap, -Sheets::gap, Sheets::gap, Sheets::gap);
    const auto scroll = [](QScrollBar &bar, double from, double to, int length) {
        if (from < 0)
            bar.setValue(bar.value() + static_cast<int>(std::floor(from)));
        else if (to > length)
            bar.setValue(bar.value() + static_cast<int>(std::ceil(std::min(to - length, from))));
    };
    scroll(*horizontalScrollBar(), rect.left(), rect.right(), viewport()->width());
    scroll(*verticalScrollBar(), rect.top(), rect.bottom(), viewport()->height());
}

std::optional<std::pair<std::size_t, layout::Point>>
ScoreCanvas::sheetPoint(const QPoint &position) const
{
    const QPointF onDesk = QPointF(position) - origin();
    for (std::size_t sheet = 0; sheet < _sheets->count(); ++sheet) {
        const QRectF &rect = _sheets->rect(sheet);
        if (!rect.contains(onDesk))
            continue;
        const QPointF inside = (onDesk - rect.topLeft()) / _sheets->pixelsPerUnit();
        return std::pair{sheet,
                         layout::Point{static_cast<layout::Unit>(std::lround(inside.x())),
                                       static_cast<layout::Unit>(std::lround(inside.y()))}};
    }
    return std::nullopt;
}

std::optional<PointedAt> ScoreCanvas::pointedAt(const QPoint &position) const
{
    const auto hit = layout() == nullptr ? std::nullopt : sheetPoint(position);
    if (!hit)
        return std::nullopt;
    const auto reach = static_cast<layout::Unit>(mouseReach / _sheets->pixelsPerUnit());
    return PointedAt{layout::markAt(*layout(), hit->first, hit->second, reach),
                     layout::spotAt(*layout(), hit->first, hit->second)};
}

QRectF ScoreCanvas::viewRect(const layout::PlacedBox &box) const
{
    if (box.page >= _sheets->count())
        return {};
    const double scale = _sheets->pixelsPerUnit();
    const QPointF corner = _sheets->rect(box.page).topLeft() + origin();
    return {corner.x() + box.box.left * scale, corner.y() + box.box.top * scale,
            box.box.width() * scale, box.box.height() * scale};
}

void ScoreCanvas::paintEvent(QPaintEvent *event)
{
    if (layout() == nullptr)
        return;
    QPainter painter(viewport());
    const QPointF desk = origin();
    const QRectF exposed = event->rect();
    painter.save();
    painter.translate(desk);
    _tiles->paint(painter, *_sheets, exposed.translated(-desk), devicePixelRatioF());
    painter.restore();
    paintOverlays(painter, exposed);
}

void ScoreCanvas::paintOverlays(QPainter &painter, const QRectF &exposed) const
{
    constexpr double margin = 2;
    const auto paintBoxes = [&](const layout::DrawPlace &place) {
        for (const layout::PlacedBox &box : layout::boxesOf(*layout(), place)) {
            const QRectF rect = viewRect(box).adjusted(-margin, -margin, margin, margin);
            if (rect.intersects(exposed))
                painter.drawRect(rect);
        }
    };
    painter.setPen(Qt::NoPen);
    painter.setBrush(overlayColour(palette(), 70));
    for (const layout::DrawPlace &place : _selection)
        paintBoxes(place);
    if (_cursor) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(overlayColour(palette(), 220), 1.5));
        paintBoxes(*_cursor);
    }
    const auto spot = _cursorSpot ? layout::boxOfSpot(*layout(), *_cursorSpot)
                                  : std::optional<layout::PlacedBox>();
    if (spot && viewRect(*spot).intersects(exposed)) {
        painter.setBrush(overlayColour(palette(), 40));
        painter.setPen(QPen(overlayColour(palette(), 255), 1.5));
        painter.drawRoundedRect(viewRect(*spot), margin, margin);
    }
    if (!_playback)
        return;
    if (const auto line = layout::playbackLine(*layout(), _playback->first, _playback->second)) {
        const QRectF rect = viewRect(*line);
        painter.fillRect(
            QRectF(rect.left() - playbackWidth / 2, rect.top(), playbackWidth, rect.height()),
            overlayColour(palette(), 200));
    }
}

void ScoreCanvas::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void ScoreCanvas::mousePressEvent(QMouseEvent *event)
{
    const auto at = event->button() == Qt::LeftButton ? pointedAt(event->pos()) : std::nullopt;
    if (!at) {
        QAbstractScrollArea::mousePressEvent(event);
        return;
    }
    Q_EMIT pressed(*at, event->modifiers());
    event->accept();
}

void ScoreCanvas::mouseMoveEvent(QMouseEvent *event)
{
    if ((event->buttons() & Qt::LeftButton) != 0)
        if (const auto at = pointedAt(event->pos()))
            Q_EMIT dragged(*at);
}

void ScoreCanvas::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (const auto at = pointedAt(event->pos()))
        Q_EMIT doubleClicked(*at);
}

void ScoreCanvas::wheelEvent(QWheelEvent *event)
{
    if ((event->modifiers() & Qt::ControlModifier) == 0) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    const double notches = event->angleDelta().y() / 120.0;
    zoomBy(std::pow(wheelStep, notches), event->position());
    event->accept();
}

void ScoreCanvas::scrollContentsBy(int dx, int dy)
{
    viewport()->scroll(dx, dy);
}

void ScoreCanvas::updateScrollBars()
{
    const QSize desk = _sheets->deskSize().toSize();
    const QSize view = viewport()->size();
    horizontalScrollBar()->setRange(0, std::max(0, desk.width() - view.width()));
    horizontalScrollBar()->setPageStep(view.width());
    horizontalScrollBar()->setSingleStep(20);
    verticalScrollBar()->setRange(0, std::max(0, desk.height() - view.height()));
    verticalScrollBar()->setPageStep(view.height());
    verticalScrollBar()->setSingleStep(20);
}

/// The upper left corner of the desk in the viewport; sheets that are narrower stand in its middle.
QPointF ScoreCanvas::origin() const
{
    const double free = viewport()->width() - _sheets->deskSize().width();
    return {free > 0 ? std::floor(free / 2) : -horizontalScrollBar()->value(),
            static_cast<double>(-verticalScrollBar()->value())};
}

} // namespace zarn::views
