// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/LineMaker.h>

#include <ZarnLayout/session/SystemBreaks.h>

#include <algorithm>
#include <utility>

namespace zarn::engraving {

namespace {

constexpr unsigned barsOfPart = 2;

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

void LinePart::lookAtBuilt()
{
    window = built->window;
    top = built->top;
    bottom = built->bottom;
    problems = built->problems->list().empty() ? nullptr : built->problems;
}

std::vector<unsigned> LineMaker::ends() const
{
    std::vector<unsigned> ends;
    const auto count = static_cast<unsigned>(_line.bars.size());
    unsigned first = 0;
    for (unsigned i = 1; i < count; ++i)
        if (i - first == barsOfPart || _line.bars[i].beginsAfresh) {
            ends.push_back(i);
            first = i;
        }
    ends.push_back(count);
    return ends;
}

void LineMaker::Line::clear()
{
    bars.clear();
    parts.clear();
    words.clear();
    rows.clear();
}

void LineMaker::make(const Change &change)
{
    std::swap(_line, _old.line);
    for (const LineBar &bar : _old.line.bars)
        _old.places.push_back(bar.places.get());
    placeBars(change, _old);
    buildParts(change, _old);
    alignWords(change, _old.line);
    alignRows(change, _old.line);
    _old.line.clear();
    _old.places.clear();
}

void LineMaker::placeBars(const Change &change, Former &old)
{
    const EngravedScore &score = change.score;
    const auto count = static_cast<unsigned>(score.shown.size());
    const WordReach none;
    layout::Unit left = 0;
    _line.bars.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        const std::uint32_t origin = change.origins[i];
        LineBar bar;
        bar.left = left;
        if (isPlaced(change, old, i)) {
            bar.places = std::move(old.line.bars[origin].places);
            bar.width = old.line.bars[origin].width;
            bar.isKept = true;
        } else {
            change.space(i);
            LinePlaces places =
                placeLineBar(score, i, i == 0 ? none : _line.bars[i - 1].places->after, _pen);
            // A new bar may stand as the one that was here before it.
            LineBar *was = old.line.bars.size() == count ? &old.line.bars[i] : nullptr;
            bar.places = was && was->places && *was->places == places
                ? std::move(was->places)
                : std::make_shared<const LinePlaces>(std::move(places));
            bar.width = bar.places->width;
            bar.isKept = origin < old.places.size() && bar.places.get() == old.places[origin];
        }
        if (i > 0)
            bar.beginsAfresh =
                bar.isKept && _line.bars[i - 1].isKept && change.origins[i - 1] + 1 == origin
                ? old.line.bars[origin].beginsAfresh
                : beginsAfresh(score, i);
        left += bar.width;
        _line.bars.push_back(std::move(bar));
    }
}

/// A bar stands where its notes, what is in front of it, and words of the bars there want it.
bool LineMaker::isPlaced(const Change &change, const Former &old, unsigned shownBar) const
{
    const std::uint32_t origin = change.origins[shownBar];
    if (change.hasOtherHeads || origin >= old.places.size() || !old.line.bars[origin].places)
        return false;
    const bool isLast = shownBar + 1 == change.score.shown.size();
    if ((shownBar == 0) != (origin == 0) || isLast != (origin + 1 == old.places.size()))
        return false;
    if (shownBar == 0)
        return true;
    const LineBar &before = _line.bars[shownBar - 1];
    if (before.isKept && change.origins[shownBar - 1] + 1 == origin)
        return true;
    const LinePlaces *beforeIt = old.places[origin - 1];
    return change.score.columns[shownBar - 1]->last->shared
        == change.old.columns[origin - 1]->last->shared
        && (before.places.get() == beforeIt || before.places->after == beforeIt->after);
}

/// What is drawn of a part depends on the bars that it looks at and where they stand, and on what
/// all staves share of the bars around these.
bool LineMaker::hasSameWindow(const Change &change, const Former &old, const LineWindow &was,
                              unsigned first) const
{
    const auto count = static_cast<unsigned>(_line.bars.size());
    const auto oldCount = static_cast<unsigned>(old.places.size());
    if (was.first - was.from > first || was.to - was.first > count - first)
        return false;
    const unsigned from = first - (was.first - was.from);
    const unsigned to = first + (was.to - was.first);
    if ((from == 0) != (was.from == 0) || (to == count) != (was.to == oldCount))
        return false;
    for (unsigned i = from; i < to; ++i)
        if (!_line.bars[i].isKept || change.origins[i] != was.from + (i - from))
            return false;
    const auto &columns = change.score.columns;
    const auto &oldColumns = change.old.columns;
    const auto isSameBefore = [&](unsigned i, unsigned before) {
        return columns[i].get() == oldColumns[before]
            || columns[i]->last->shared == oldColumns[before]->last->shared;
    };
    const auto isSameBehind = [&](unsigned i, unsigned before) {
        return columns[i].get() == oldColumns[before]
            || columns[i]->first->shared == oldColumns[before]->first->shared;
    };
    return (from == 0 || isSameBefore(from - 1, was.from - 1))
        && (to == count || isSameBehind(to, was.to));
}

LinePart *LineMaker::sameIn(const Change &change, Former &old, unsigned first, unsigned end) const
{
    const std::uint32_t origin = change.origins[first];
    if (change.hasOtherHeads || origin >= old.places.size())
        return nullptr;
    auto &parts = old.line.parts;
    const std::size_t number = _line.parts.size(); // most often that of the same part before
    const auto part = number < parts.size() && parts[number].first == origin
        ? parts.begin() + static_cast<std::ptrdiff_t>(number)
        : std::lower_bound(
            parts.begin(), parts.end(), origin,
            [](const LinePart &other, std::uint32_t bar) { return other.first < bar; });
    if (part == parts.end() || part->first != origin || part->end - part->first != end - first
        || !part->built || !hasSameWindow(change, old, part->window, first))
        return nullptr;
    return &*part;
}

void LineMaker::buildParts(const Change &change, Former &old)
{
    const LinePartBuilder builder(change.score, _line.bars, _pen);
    const std::vector<unsigned> ends = this->ends();
    _line.parts.reserve(ends.size());
    unsigned first = 0;
    for (const unsigned end : ends) {
        LinePart part;
        if (LinePart *same = sameIn(change, old, first, end)) {
            const auto before = static_cast<std::uint32_t>(same - old.line.parts.data());
            part = takenOver(change, std::move(*same), first);
            part.before = before;
        } else {
            part.isNew = true;
            part.bare =
                std::make_shared<const BuiltLinePart>(builder.build(first, end, change.engrave));
            const auto &words = part.bare->words;
            part.hasWords = std::any_of(words.begin(), words.end(),
                                        [](const WordHeights &row) { return !row.empty(); });
        }
        part.first = first;
        part.end = end;
        part.left = _line.bars[first].left;
        _line.parts.push_back(std::move(part));
        first = end;
    }
}

LinePart LineMaker::takenOver(const Change &change, LinePart old, unsigned first)
{
    old.isNew = old.isOther = false;
    const std::int32_t bars = barAt(change.score.shown, first) - barAt(change.old.shown, old.first);
    if (bars == 0 && first == old.first)
        return old;
    LinePart part = old;
    part.bare = movedTo(first, *old.bare, bars);
    part.lined = old.lined == old.bare ? part.bare : movedTo(first, *old.lined, bars);
    part.built = old.built == old.lined ? part.lined : movedTo(first, *old.built, bars);
    part.drawing =
        old.drawing == old.built->drawing ? part.built->drawing : movedByBars(old.drawing, bars);
    part.lookAtBuilt();
    return part;
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

void LineMaker::alignWords(const Change &change, const Line &old)
{
    auto &words = _line.words;
    words.resize(change.score.rows.size());
    for (const LinePart &part : _line.parts)
        for (std::size_t row = 0; part.hasWords && row < words.size(); ++row)
            for (const auto &[kind, height] : part.bare->words[row]) {
                const auto [entry, isNew] = words[row].emplace(kind, height);
                entry->second = std::max(entry->second, height);
            }
    const bool standAsBefore = words == old.words;
    for (LinePart &part : _line.parts) {
        if (!part.isNew && (standAsBefore || !part.hasWords))
            continue;
        LineHeights heights;
        if (!standAt(words, part.bare->words)) {
            heights.words = part.bare->words;
            for (std::size_t row = 0; row < words.size(); ++row)
                for (auto &[kind, height] : heights.words[row])
                    height = words[row][kind];
        }
        auto lined = fitted(change, part.bare, part.lined, heights);
        part.isOther = part.isNew || lined != part.lined;
        part.lined = std::move(lined);
    }
}

/// How far the rows of each part are apart: there are many parts, and few have changed.
void LineMaker::findDistances(std::size_t rows, Line &old)
{
    const std::size_t count = _line.parts.size();
    bool isInPlace = old.distances.size() == rows && old.parts.size() == count;
    for (std::size_t i = 0; isInPlace && i < count; ++i)
        isInPlace = _line.parts[i].isOther || _line.parts[i].before == i;
    if (isInPlace) {
        std::swap(_line.distances, old.distances);
    } else {
        _line.distances.resize(rows);
        for (std::size_t row = 0; row < rows; ++row) {
            _line.distances[row].resize(count);
            for (std::size_t i = 0; i < count; ++i)
                if (const LinePart &part = _line.parts[i]; !part.isOther)
                    _line.distances[row][i] = old.distances[row][part.before];
        }
    }
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t row = 0; _line.parts[i].isOther && row < rows; ++row)
            _line.distances[row][i] = _line.parts[i].lined->distances[row];
}

void LineMaker::alignRows(const Change &change, Line &old)
{
    findDistances(change.score.rows.size(), old);
    RowDistances &distances = _line.rows;
    for (const std::vector<double> &row : _line.distances)
        distances.push_back(*std::max_element(row.begin(), row.end()));
    const bool standAsBefore = distances == old.rows;
    const std::vector<layout::Unit> heights = heightsOf(distances);
    double lastRow = 0;
    for (const double distance : distances)
        lastRow += distance;
    _top = _bottom = 0;
    for (LinePart &part : _line.parts) {
        if (part.isOther || !standAsBefore)
            alignRows(change, part, heights);
        _top = std::max(_top, part.top);
        _bottom = std::max(_bottom, lastRow + part.bottom);
    }
}

/// The same for a part.
void LineMaker::alignRows(const Change &change, LinePart &part,
                          const std::vector<layout::Unit> &heights) const
{
    auto built = part.lined;
    if (built->isTied && built->distances != _line.rows) {
        LineHeights given = built->given;
        given.distances = _line.rows;
        built = fitted(change, built, part.built, given);
    }
    if (part.built != built || !standAt(heights, *part.drawing)) {
        const RowShifts shifts = shiftsTo(heights, *built->drawing);
        part.drawing = shifts.empty()
            ? built->drawing
            : withRowsMoved(*built->drawing, built->hangers, {}, shifts, _pen.fonts().music());
    }
    part.built = std::move(built);
    part.lookAtBuilt();
}

} // namespace zarn::engraving
