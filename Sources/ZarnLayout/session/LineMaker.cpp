// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/LineMaker.h>

#include <ZarnLayout/session/SystemBreaks.h>

#include <algorithm>
#include <utility>

namespace zarn::engraving {

namespace {

constexpr unsigned barsOfPart = 6;

/// A part that is shorter ends for nothing that is written.
constexpr unsigned fewestBars = 3;

/// Where a part ends rather than elsewhere, so that parts behind bars that come and go are the same
/// as before.
bool beginsAfresh(const EngravedScore &score, unsigned shownBar)
{
    const ColumnSource &column = score.column(shownBar);
    const ColumnSource &before = score.lastColumn(shownBar - 1);
    return column.movementStart || column.repeatStart || !column.section.letter.empty()
        || before.doubleBar || before.repeatCount > 0;
}

std::int32_t barAt(const EngravedScore &score, unsigned shownBar)
{
    return static_cast<std::int32_t>(score.shown[shownBar].bar);
}

std::shared_ptr<const layout::SystemDrawing>
movedByBars(const std::shared_ptr<const layout::SystemDrawing> &drawing, std::int32_t bars)
{
    auto moved = std::make_shared<layout::SystemDrawing>(*drawing);
    for (layout::BarFrame &bar : moved->bars)
        bar.firstBar += bars;
    moved->marks = moved->marks.movedByBars(bars);
    return moved;
}

/// A part so many bars further on, where it begins with a shown bar.
std::shared_ptr<const BuiltLinePart> movedTo(unsigned first, const BuiltLinePart &part,
                                             std::int32_t bars)
{
    auto moved = std::make_shared<BuiltLinePart>(part);
    const LineWindow &was = part.window;
    moved->window = {first - (was.first - was.from), first, first + (was.end - was.first),
                     first + (was.to - was.first)};
    moved->drawing = movedByBars(part.drawing, bars);
    Problems problems;
    problems.add(*part.problems, bars);
    moved->problems = std::make_shared<const Problems>(std::move(problems));
    return moved;
}

/// How far the rows of a drawing are from where they should stand; empty where all are there.
RowShifts shiftsTo(const std::vector<layout::Unit> &heights, const layout::SystemDrawing &drawing)
{
    RowShifts shifts;
    for (std::size_t row = 0; row < heights.size(); ++row)
        shifts.push_back(heights[row] - drawing.staves[row].top);
    if (std::all_of(shifts.begin(), shifts.end(), [](layout::Unit shift) { return shift == 0; }))
        shifts.clear();
    return shifts;
}

std::vector<layout::Unit> heightsOf(const RowDistances &distances)
{
    std::vector<layout::Unit> heights;
    double y = 0;
    for (const double distance : distances)
        heights.push_back(layout::fromSpaces(y += distance));
    return heights;
}

} // namespace

std::vector<unsigned> LineMaker::endsOf(const EngravedScore &score)
{
    std::vector<unsigned> ends;
    const auto count = static_cast<unsigned>(score.shown.size());
    unsigned first = 0;
    for (unsigned i = 1; i < count; ++i)
        if (i - first == barsOfPart || (i - first >= fewestBars && beginsAfresh(score, i))) {
            ends.push_back(i);
            first = i;
        }
    ends.push_back(count);
    return ends;
}

const std::vector<LinePart> &LineMaker::make(const Change &change)
{
    const std::vector<LinePart> old = std::exchange(_parts, {});
    placeParts(change, old);
    buildParts(change);
    alignRows(change);
    return _parts;
}

void LineMaker::placeParts(const Change &change, const std::vector<LinePart> &old)
{
    const EngravedScore &score = change.score;
    std::vector<const LinePart *> oldAt(change.old.shown.size(), nullptr);
    if (!change.hasOtherHeads)
        for (const LinePart &part : old)
            oldAt[part.place.first] = &part;
    _origins.clear();
    const auto count = static_cast<unsigned>(score.shown.size());
    const auto oldCount = static_cast<unsigned>(change.old.shown.size());
    WordReach before;
    layout::Unit left = 0;
    unsigned first = 0;
    for (const unsigned end : endsOf(score)) {
        // A new bar may stand where another one was.
        std::uint32_t origin = change.origins[first];
        if (origin == SystemBreaks::isNew && count == oldCount)
            origin = first;
        const LinePart *was = origin < oldCount ? oldAt[origin] : nullptr;
        if (was
            && (was->place.end - was->place.first != end - first
                || (was->place.first == 0) != (first == 0)
                || (was->place.end == oldCount) != (end == count)))
            was = nullptr;
        bool isSame = was && was->before == before;
        for (unsigned i = first == 0 ? 0 : first - 1; isSame && i < end; ++i)
            isSame = score.columns[i] == change.old.columns[was->place.first + i - first];
        LinePart part;
        part.before = before;
        part.place = {first, end, left, nullptr};
        if (isSame) {
            part.place.places = was->place.places;
        } else {
            for (unsigned i = first; i < end; ++i)
                change.engrave(i);
            LinePlaces places = placeLinePart(score, first, end, before, _pen);
            part.place.places = was && *was->place.places == places
                ? was->place.places
                : std::make_shared<const LinePlaces>(std::move(places));
        }
        left += part.place.places->width;
        before = part.place.places->after;
        _parts.push_back(std::move(part));
        _origins.push_back(was);
        first = end;
    }
}

std::vector<LinePartPlace> LineMaker::placesOfParts() const
{
    std::vector<LinePartPlace> places;
    places.reserve(_parts.size());
    for (const LinePart &part : _parts)
        places.push_back(part.place);
    return places;
}

std::vector<std::shared_ptr<const LinePlaces>> LineMaker::seenBy(const LineWindow &window) const
{
    std::vector<std::shared_ptr<const LinePlaces>> seen;
    auto part =
        std::upper_bound(_parts.begin(), _parts.end(), window.from,
                         [](unsigned bar, const LinePart &other) { return bar < other.place.end; });
    for (; part != _parts.end() && part->place.first < window.to; ++part)
        seen.push_back(part->place.places);
    return seen;
}

/// What is drawn of a part depends on the bars that it looks at, the one in front of them, the one
/// behind, and where they stand.
bool LineMaker::hasSameWindow(const Change &change, const LinePart &old, std::size_t number) const
{
    const auto count = static_cast<unsigned>(change.score.shown.size());
    const auto oldCount = static_cast<unsigned>(change.old.shown.size());
    const LineWindow &was = old.built->window;
    const unsigned first = _parts[number].place.first;
    const unsigned inFront = was.first - was.from;
    if (inFront > first || was.to - was.first > count - first)
        return false;
    const LineWindow window = {first - inFront, first, first + (was.end - was.first),
                               first + (was.to - was.first)};
    if ((window.from == 0) != (was.from == 0) || (window.to == count) != (was.to == oldCount))
        return false;
    const unsigned from = window.from - (window.from == 0 ? 0 : 1);
    const unsigned to = window.to + (window.to == count ? 0 : 1);
    for (unsigned i = from; i < to; ++i)
        if (change.score.columns[i] != change.old.columns[was.first + i - first])
            return false;
    return seenBy(window) == old.seen;
}

void LineMaker::takeOver(const Change &change, const LinePart &old, LinePart &part) const
{
    const std::int32_t bars =
        barAt(change.score, part.place.first) - barAt(change.old, old.place.first);
    part.given = old.given;
    part.shifts = old.shifts;
    part.seen = old.seen;
    if (bars == 0 && part.place.first == old.place.first) {
        part.bare = old.bare;
        part.built = old.built;
        part.drawing = old.drawing;
        return;
    }
    const unsigned first = part.place.first;
    part.bare = movedTo(first, *old.bare, bars);
    part.built = old.built == old.bare ? part.bare : movedTo(first, *old.built, bars);
    part.drawing =
        old.drawing == old.built->drawing ? part.built->drawing : movedByBars(old.drawing, bars);
}

void LineMaker::buildParts(const Change &change)
{
    const std::vector<LinePartPlace> places = placesOfParts();
    const LinePartBuilder builder(change.score, _pen);
    for (std::size_t i = 0; i < _parts.size(); ++i) {
        LinePart &part = _parts[i];
        if (_origins[i] && hasSameWindow(change, *_origins[i], i)) {
            takeOver(change, *_origins[i], part);
            continue;
        }
        part.isNew = true;
        part.bare = std::make_shared<const BuiltLinePart>(
            builder.build(places, i, change.engrave, nullptr));
    }
}

void LineMaker::alignRows(const Change &change)
{
    RowDistances distances = _parts.front().bare->distances;
    for (const LinePart &part : _parts)
        for (std::size_t row = 0; row < distances.size(); ++row)
            distances[row] = std::max(distances[row], part.bare->distances[row]);
    const std::vector<layout::Unit> heights = heightsOf(distances);
    const std::vector<LinePartPlace> places = placesOfParts();
    const LinePartBuilder builder(change.score, _pen);
    _top = _bottom = 0;
    double lastRow = 0;
    for (const double distance : distances)
        lastRow += distance;
    for (std::size_t i = 0; i < _parts.size(); ++i) {
        LinePart &part = _parts[i];
        const bool isTied = part.bare->isTied && part.bare->distances != distances;
        const RowDistances given = isTied ? distances : RowDistances();
        if (!part.built || part.given != given) {
            part.given = given;
            part.drawing = nullptr;
            part.built = part.bare;
            if (isTied) {
                BuiltLinePart built = builder.build(places, i, change.engrave, &distances);
                built.window.from = std::min(built.window.from, part.bare->window.from);
                built.window.to = std::max(built.window.to, part.bare->window.to);
                part.built = std::make_shared<const BuiltLinePart>(std::move(built));
            }
        }
        RowShifts shifts = shiftsTo(heights, *part.built->drawing);
        if (!part.drawing || part.shifts != shifts) {
            part.drawing = shifts.empty() ? part.built->drawing
                                          : withRowsMoved(*part.built->drawing, part.built->hangers,
                                                          {}, shifts, _pen.fonts().music());
            part.shifts = std::move(shifts);
        }
        part.seen = seenBy(part.built->window);
        _top = std::max(_top, part.built->top);
        _bottom = std::max(_bottom, lastRow + part.built->bottom);
    }
}

} // namespace zarn::engraving
