// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/LineMaker.h>

#include <ZarnLayout/session/SystemBreaks.h>

#include <algorithm>
#include <utility>

namespace zarn::engraving {

namespace {

constexpr unsigned barsOfPart = 4;

/// A part that is shorter ends for nothing that is written.
constexpr unsigned fewestBars = 2;

/// Where a part ends rather than elsewhere, so that parts behind bars that come and go are the same
/// as before.
bool beginsAfresh(const EngravedScore &score, unsigned shownBar)
{
    const ColumnSource &column = score.column(shownBar);
    const ColumnSource &before = score.lastColumn(shownBar - 1);
    return column.movementStart || column.repeatStart || !column.section.letter.empty()
        || before.doubleBar || before.repeatCount > 0;
}

std::int32_t barAt(const std::vector<ShownBar> &shown, unsigned number)
{
    return static_cast<std::int32_t>(shown[number].bar);
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

bool standAt(const std::vector<layout::Unit> &heights, const layout::SystemDrawing &drawing)
{
    return std::equal(
        heights.begin(), heights.end(), drawing.staves.begin(), drawing.staves.end(),
        [](layout::Unit height, const layout::StaffFrame &staff) { return height == staff.top; });
}

/// Whether no words of a part stand elsewhere than they do in the whole line.
bool standAt(const std::vector<WordHeights> &line, const std::vector<WordHeights> &part)
{
    for (std::size_t row = 0; row < part.size(); ++row)
        for (const auto &[kind, height] : part[row])
            if (line[row].at(kind) != height)
                return false;
    return true;
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
    const Line old = std::exchange(_line, {});
    placeBars(change, old);
    buildParts(change, old);
    alignWords(change);
    alignRows(change);
    return _line.parts;
}

void LineMaker::placeBars(const Change &change, const Line &old)
{
    const EngravedScore &score = change.score;
    const auto count = static_cast<unsigned>(score.shown.size());
    const WordReach none;
    layout::Unit left = 0;
    _line.bars.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        LineBar bar;
        bar.left = left;
        if (isPlaced(change, old, i)) {
            bar.places = old.bars[change.origins[i]].places;
        } else {
            change.engrave(i);
            LinePlaces places =
                placeLineBar(score, i, i == 0 ? none : _line.bars[i - 1].places->after, _pen);
            // A new bar may stand as the one that was here before it.
            const LineBar *was = old.bars.size() == count ? &old.bars[i] : nullptr;
            bar.places = was && *was->places == places
                ? was->places
                : std::make_shared<const LinePlaces>(std::move(places));
        }
        left += bar.places->width;
        _line.bars.push_back(std::move(bar));
    }
}

/// A bar stands where its notes, what is in front of it, and words of the bars there want it.
bool LineMaker::isPlaced(const Change &change, const Line &old, unsigned shownBar) const
{
    const std::uint32_t origin = change.origins[shownBar];
    if (change.hasOtherHeads || origin >= old.bars.size())
        return false;
    const bool isLast = shownBar + 1 == change.score.shown.size();
    if ((shownBar == 0) != (origin == 0) || isLast != (origin + 1 == old.bars.size()))
        return false;
    if (shownBar == 0)
        return true;
    const auto &before = _line.bars[shownBar - 1].places;
    const auto &beforeIt = old.bars[origin - 1].places;
    return change.score.columns[shownBar - 1]->last->shared
        == change.old.columns[origin - 1]->last->shared
        && (before == beforeIt || before->after == beforeIt->after);
}

/// What is drawn of a part depends on the bars that it looks at and where they stand, and on what
/// all staves share of the bars around these.
bool LineMaker::hasSameWindow(const Change &change, const Line &old, const LineWindow &was,
                              unsigned first) const
{
    const auto count = static_cast<unsigned>(_line.bars.size());
    const auto oldCount = static_cast<unsigned>(old.bars.size());
    if (was.first - was.from > first || was.to - was.first > count - first)
        return false;
    const unsigned from = first - (was.first - was.from);
    const unsigned to = first + (was.to - was.first);
    if ((from == 0) != (was.from == 0) || (to == count) != (was.to == oldCount))
        return false;
    const auto &columns = change.score.columns;
    const auto &oldColumns = change.old.columns;
    for (unsigned i = from; i < to; ++i) {
        const unsigned before = was.first + i - first;
        if (columns[i].get() != oldColumns[before]
            || _line.bars[i].places != old.bars[before].places)
            return false;
    }
    return (from == 0 || columns[from - 1]->last->shared == oldColumns[was.from - 1]->last->shared)
        && (to == count || columns[to]->first->shared == oldColumns[was.to]->first->shared);
}

const LinePart *LineMaker::sameIn(const Change &change, const Line &old, unsigned first,
                                  unsigned end) const
{
    const std::uint32_t origin = change.origins[first];
    if (change.hasOtherHeads || origin >= old.bars.size())
        return nullptr;
    const auto part = std::lower_bound(
        old.parts.begin(), old.parts.end(), origin,
        [](const LinePart &other, std::uint32_t bar) { return other.first < bar; });
    if (part == old.parts.end() || part->first != origin || part->end - part->first != end - first
        || !hasSameWindow(change, old, part->built->window, first))
        return nullptr;
    return &*part;
}

void LineMaker::buildParts(const Change &change, const Line &old)
{
    const LinePartBuilder builder(change.score, _line.bars, _pen);
    unsigned first = 0;
    for (const unsigned end : endsOf(change.score)) {
        LinePart part;
        part.first = first;
        part.end = end;
        part.left = _line.bars[first].left;
        if (const LinePart *same = sameIn(change, old, first, end)) {
            takeOver(change, *same, part);
        } else {
            part.isNew = true;
            part.bare =
                std::make_shared<const BuiltLinePart>(builder.build(first, end, change.engrave));
        }
        _line.parts.push_back(std::move(part));
        first = end;
    }
}

void LineMaker::takeOver(const Change &change, const LinePart &old, LinePart &part) const
{
    const std::int32_t bars =
        barAt(change.score.shown, part.first) - barAt(change.old.shown, old.first);
    if (bars == 0 && part.first == old.first) {
        part.bare = old.bare;
        part.lined = old.lined;
        part.built = old.built;
        part.drawing = old.drawing;
        return;
    }
    const unsigned first = part.first;
    part.bare = movedTo(first, *old.bare, bars);
    part.lined = old.lined == old.bare ? part.bare : movedTo(first, *old.lined, bars);
    part.built = old.built == old.lined ? part.lined : movedTo(first, *old.built, bars);
    part.drawing =
        old.drawing == old.built->drawing ? part.built->drawing : movedByBars(old.drawing, bars);
}

std::shared_ptr<const BuiltLinePart>
LineMaker::fitted(const Change &change, const std::shared_ptr<const BuiltLinePart> &part,
                  const std::shared_ptr<const BuiltLinePart> &last,
                  const LineHeights &heights) const
{
    if (heights == part->given)
        return part;
    if (last && heights == last->given)
        return last;
    return std::make_shared<const BuiltLinePart>(LinePartBuilder(change.score, _line.bars, _pen)
                                                     .build(part->window, change.engrave, heights));
}

void LineMaker::alignWords(const Change &change)
{
    std::vector<WordHeights> words(change.score.rows.size());
    for (const LinePart &part : _line.parts)
        for (std::size_t row = 0; row < words.size(); ++row)
            for (const auto &[kind, height] : part.bare->words[row]) {
                const auto [entry, isNew] = words[row].emplace(kind, height);
                entry->second = std::max(entry->second, height);
            }
    for (LinePart &part : _line.parts) {
        LineHeights heights;
        if (!standAt(words, part.bare->words)) {
            heights.words = part.bare->words;
            for (std::size_t row = 0; row < words.size(); ++row)
                for (auto &[kind, height] : heights.words[row])
                    height = words[row][kind];
        }
        part.lined = fitted(change, part.bare, part.lined, heights);
    }
}

void LineMaker::alignRows(const Change &change)
{
    RowDistances distances = _line.parts.front().lined->distances;
    for (const LinePart &part : _line.parts)
        for (std::size_t row = 0; row < distances.size(); ++row)
            distances[row] = std::max(distances[row], part.lined->distances[row]);
    const std::vector<layout::Unit> heights = heightsOf(distances);
    double lastRow = 0;
    for (const double distance : distances)
        lastRow += distance;
    _top = _bottom = 0;
    for (LinePart &part : _line.parts) {
        auto built = part.lined;
        if (built->isTied && built->distances != distances) {
            LineHeights given = built->given;
            given.distances = distances;
            built = fitted(change, built, part.built, given);
        }
        if (part.built != built || !standAt(heights, *part.drawing)) {
            const RowShifts shifts = shiftsTo(heights, *built->drawing);
            part.drawing = shifts.empty()
                ? built->drawing
                : withRowsMoved(*built->drawing, built->hangers, {}, shifts, _pen.fonts().music());
        }
        part.built = built;
        _top = std::max(_top, built->top);
        _bottom = std::max(_bottom, lastRow + built->bottom);
    }
}

} // namespace zarn::engraving
