// SPDX-License-Identifier: MIT
#include "app/ScoreView.h"

#include "document/Document.h"
#include "document/Places.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <iterator>

namespace zarn::editor {
namespace {

constexpr layout::StaffKind kinds[] = {layout::StaffKind::Notation, layout::StaffKind::Tablature,
                                       layout::StaffKind::Slash};

/// The staff that shows the track of a place in the kind that is wanted, else in one that it has.
layout::StaffKind shownKind(const layout::Layout &layout, const ScoreModelIndex &place,
                            layout::StaffKind wanted)
{
    std::optional<layout::StaffKind> found;
    for (const layout::LayoutPage &page : layout.pages())
        for (const layout::PlacedSystem &system : page.systems)
            for (const layout::StaffFrame &staff : system.drawing->staves) {
                if (staff.track != place.trackIndex()
                    || staff.staff != static_cast<std::int32_t>(place.staffIndex()))
                    continue;
                if (staff.kind == wanted)
                    return wanted;
                if (!found)
                    found = staff.kind;
            }
    return found.value_or(wanted);
}

} // namespace

ScoreView::ScoreView(Document &document, LaidOut laidOut, QWidget *parent)
    : ScoreCanvas(parent), _document(document), _layouts(document, std::move(laidOut))
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setAccessibleName(tr("Score"));
    setAccessibleDescription(tr("The pages of the score. Arrow keys move the cursor."));
    connect(&_layouts, &LayoutKeeper::layoutChanged, this, &ScoreView::showLayout);
    connect(&_document, &Document::placeChanged, this, &ScoreView::showPlace);
    connect(this, &ScoreCanvas::pressed, this, &ScoreView::press);
    connect(this, &ScoreCanvas::dragged, this, &ScoreView::drag);
    connect(this, &ScoreCanvas::doubleClicked, this, &ScoreView::selectBar);
    showLayout();
}

ScoreView::~ScoreView() = default;

void ScoreView::setZoomPolicy(ZoomPolicy policy)
{
    _zoomPolicy = policy;
    applyZoomPolicy();
    Q_EMIT zoomPolicyChanged();
}

void ScoreView::applyZoomPolicy()
{
    switch (_zoomPolicy) {
    case ZoomPolicy::Free:
        break;
    case ZoomPolicy::Width:
        fitWidth();
        break;
    case ZoomPolicy::Height:
        fitHeight();
        break;
    case ZoomPolicy::Page:
        fitPage();
        break;
    }
}

void ScoreView::showLayout()
{
    setLayout(_layouts.layout());
    showPlace();
}

void ScoreView::showPlace()
{
    const ScoreModelIndex &place = _document.cursor();
    if (layout() == nullptr || !place.isBarValid()) {
        setCursorSpot(std::nullopt);
        setSelection({});
        return;
    }
    EntryState entry = _document.entry();
    entry.staffKind = shownKind(*layout(), place, entry.wantedKind);
    const layout::FoundSpot spot = spotOfPlace(place, entry.staffKind);
    setCursorSpot(spot);
    const bool isNotation = entry.staffKind != layout::StaffKind::Tablature;
    setCursorPlace(isNotation && place.isNoteValid()
                       ? std::optional<layout::DrawPlace>(drawPlaceOf(place))
                       : std::nullopt);
    setSelection(
        _document.selection().isEmpty()
            ? std::vector<layout::DrawPlace>()
            : drawPlacesOf(*place.model(), _document.selection().beats(_document.score())));
    if (_isRevealing)
        reveal(spot);
    // Windows on one document may show the track in other ways: the one that is used decides.
    if (isActiveWindow())
        _document.setEntry(entry);
}

void ScoreView::changeEvent(QEvent *event)
{
    ScoreCanvas::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        showPlace();
}

void ScoreView::showPlayback(
    const std::optional<std::pair<std::int32_t, utils::rational>> &position)
{
    setPlayback(position);
    const auto line = position && layout() != nullptr
        ? layout::playbackLine(*layout(), position->first, position->second)
        : std::nullopt;
    if (!line) {
        _playbackLine = {};
        return;
    }
    // What sounds is followed from system to system and along a line; a user who scrolls away from
    // it is left alone until it is seen again.
    const QRectF now(line->box.left, line->box.top + static_cast<double>(line->page) * 1e7, 0,
                     line->box.height());
    const bool isOtherSystem = now.top() != _playbackLine.top();
    const bool isFirst = _playbackLine.isNull();
    _playbackLine = now;
    const QRectF seen(viewport()->rect());
    const QRectF shown = viewRect(*line).adjusted(0, 0, 1, 0); // a line without width is nowhere
    const auto scrolledTo = [this] {
        return QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
    };
    if (isFirst || seen.intersects(shown))
        _isFollowingPlayback = true;
    else if (scrolledTo() != _playbackScroll)
        _isFollowingPlayback = false;
    const auto bring = [](QScrollBar &bar, double place, int length) {
        bar.setValue(bar.value() + qRound(place) - length / 4);
    };
    if (_isFollowingPlayback && isOtherSystem
        && (shown.top() < seen.top() || shown.bottom() > seen.bottom()))
        bring(*verticalScrollBar(), shown.top(), viewport()->height());
    if (_isFollowingPlayback && (shown.left() < seen.left() || shown.right() > seen.right()))
        bring(*horizontalScrollBar(), shown.left(), viewport()->width());
    _playbackScroll = scrolledTo();
}

std::optional<ScoreModelIndex> ScoreView::placeOf(const views::PointedAt &at) const
{
    ScoreModel &model = *_document.score().scoreModel();
    const ScoreModelIndex &cursor = _document.cursor();
    if (at.mark && at.mark->place.beat >= 0 && at.mark->place.track >= 0)
        return placeOfMark(model, at.mark->place);
    if (at.spot)
        return placeOfSpot(model, *at.spot,
                           at.spot->staff.track == cursor.trackIndex() ? cursor.voiceIndex() : 0);
    return std::nullopt;
}

void ScoreView::go(const views::PointedAt &at, bool extends)
{
    const auto place = placeOf(at);
    if (!place)
        return;
    _isRevealing = false; // what is pointed at is seen
    _document.moveCursorTo(*place, extends);
    if (at.spot)
        choose(at.spot->staff.kind);
    _isRevealing = true;
}

void ScoreView::choose(layout::StaffKind kind)
{
    const ScoreModelIndex &place = _document.cursor();
    EntryState entry = _document.entry();
    entry.staffKind = kind;
    const bool hasOther = std::any_of(std::begin(kinds), std::end(kinds), [&](auto other) {
        return other != kind && shownKind(*layout(), place, other) == other;
    });
    if (hasOther)
        entry.wantedKind = kind;
    _document.setEntry(entry);
}

void ScoreView::goToOtherKind()
{
    if (layout() == nullptr || !_document.cursor().isBarValid())
        return;
    const layout::StaffKind present = _document.entry().staffKind;
    const auto here = std::find(std::begin(kinds), std::end(kinds), present);
    for (std::size_t step = 1; step < std::size(kinds); ++step) {
        const auto at = static_cast<std::size_t>(here - std::begin(kinds)) + step;
        const layout::StaffKind kind = kinds[at % std::size(kinds)];
        if (shownKind(*layout(), _document.cursor(), kind) != kind)
            continue;
        choose(kind);
        return;
    }
}

void ScoreView::press(const views::PointedAt &at, Qt::KeyboardModifiers modifiers)
{
    setFocus(Qt::MouseFocusReason);
    go(at, (modifiers & Qt::ShiftModifier) != 0);
}

void ScoreView::drag(const views::PointedAt &at)
{
    // A hand that trembles selects nothing.
    const auto place = placeOf(at);
    if (place && !place->equalBeat(_document.cursor()))
        go(at, true);
}

void ScoreView::selectBar(const views::PointedAt &at)
{
    if (!at.spot)
        return;
    ScoreModel &model = *_document.score().scoreModel();
    const ScoreModelIndex place = placeOfSpot(model, *at.spot, _document.cursor().voiceIndex());
    _document.select(place, place, SelectedPart::Bars);
}

void ScoreView::resizeEvent(QResizeEvent *event)
{
    ScoreCanvas::resizeEvent(event);
    // Another zoom may show or hide a scroll bar, which is another size again.
    if (_isFitting)
        return;
    const QScopedValueRollback<bool> fitting(_isFitting, true);
    applyZoomPolicy();
}

void ScoreView::wheelEvent(QWheelEvent *event)
{
    if ((event->modifiers() & Qt::ControlModifier) != 0 && _zoomPolicy != ZoomPolicy::Free) {
        _zoomPolicy = ZoomPolicy::Free;
        Q_EMIT zoomPolicyChanged();
    }
    ScoreCanvas::wheelEvent(event);
}

} // namespace zarn::editor
