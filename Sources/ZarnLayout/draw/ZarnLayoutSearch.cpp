// SPDX-License-Identifier: MIT
#include <ZarnLayout/draw/ZarnLayoutSearch.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <utility>

namespace zarn::layout {
namespace {

/// What a click most likely means comes first.
int rank(MarkKind kind) noexcept
{
    switch (kind) {
    case MarkKind::NoteHead:
    case MarkKind::Fret:
    case MarkKind::Slash:
    case MarkKind::Rest:
        return 0;
    case MarkKind::StaffLine:
    case MarkKind::LedgerLine:
        return 2;
    default:
        return 1;
    }
}

Unit distance(const Box &box, Point point) noexcept
{
    const Unit x = std::max({box.left - point.x, point.x - box.right, 0});
    const Unit y = std::max({box.top - point.y, point.y - box.bottom, 0});
    return std::max(x, y);
}

/// Distance of a number to a stretch, 0 inside.
Unit distance(Unit from, Unit to, Unit at) noexcept
{
    return std::max({from - at, at - to, 0});
}

bool holds(const SystemDrawing &system, std::int32_t bar) noexcept
{
    return !system.bars.empty() && bar >= system.bars.front().firstBar
        && bar < system.bars.back().firstBar + system.bars.back().barCount;
}

/// Whether a mark's place is a place or lies in it.
bool isIn(const DrawPlace &mark, const DrawPlace &place) noexcept
{
    const auto fits = [](int number, int wanted) { return wanted < 0 || number == wanted; };
    return fits(mark.track, place.track) && fits(mark.bar, place.bar)
        && fits(mark.staff, place.staff) && fits(mark.voice, place.voice)
        && fits(mark.beat, place.beat) && fits(mark.note, place.note);
}

/// Systems below one another are told apart by their height, those beside one another by where
/// their bars are.
const PlacedSystem *systemAt(const LayoutPage &page, Point point)
{
    const PlacedSystem *nearest = nullptr;
    std::pair<Unit, Unit> best;
    for (const PlacedSystem &system : page.systems) {
        const auto &staves = system.drawing->staves;
        if (staves.empty())
            continue;
        const auto &bars = system.drawing->bars;
        const Point inside = point - system.at;
        const std::pair<Unit, Unit> away = {
            distance(staves.front().top, staves.back().bottom, inside.y),
            bars.empty() ? 0 : distance(bars.front().left, bars.back().right, inside.x)};
        if (nearest == nullptr || away < best) {
            best = away;
            nearest = &system;
        }
    }
    return nearest;
}

/// The bar of a system that holds it.
const BarFrame &frameOf(const SystemDrawing &system, std::int32_t bar)
{
    return *std::find_if(system.bars.begin(), system.bars.end(), [bar](const BarFrame &frame) {
        return bar < frame.firstBar + frame.barCount;
    });
}

/// The first column behind a time.
std::vector<ColumnFrame>::const_iterator columnBehind(const BarFrame &frame,
                                                      const utils::rational &offset)
{
    return std::find_if(frame.columns.begin(), frame.columns.end(),
                        [&](const ColumnFrame &column) { return offset < column.offset; });
}

/// Where a time is between two columns.
Unit between(const ColumnFrame &before, const ColumnFrame &after, const utils::rational &offset)
{
    const double part =
        (offset - before.offset).toDouble() / (after.offset - before.offset).toDouble();
    return before.x + static_cast<Unit>(std::lround(part * (after.x - before.x)));
}

/// Where a note would be entered: behind the last column there is room for it.
Unit entryX(const BarFrame &frame, const utils::rational &offset)
{
    constexpr Unit margin = 2 * staffSpace;
    if (frame.columns.empty())
        return std::min(frame.left + margin, (frame.left + frame.right) / 2);
    const auto next = columnBehind(frame, offset);
    if (next == frame.columns.begin())
        return next->x;
    const ColumnFrame &before = *std::prev(next);
    if (before.offset == offset)
        return before.x;
    return next == frame.columns.end() ? (before.x + frame.right) / 2
                                       : between(before, *next, offset);
}

/// The middle of what stands at a column, on a tablature at one of its lines: wide heads and their
/// frets are not in its middle.
Unit shownX(const Layout &layout, const SystemDrawing &drawing, const FoundSpot &spot, Unit line,
            Unit gap, Unit x)
{
    // No farther than the column reaches, and nowhere where none is.
    Unit nearest = 0;
    const auto &columns = frameOf(drawing, spot.bar).columns;
    for (const ColumnFrame &column : columns)
        if (column.offset == spot.offset)
            nearest = staffSpace;
    for (const ColumnFrame &column : columns)
        if (column.offset != spot.offset)
            nearest = std::min(nearest, std::abs(column.x - x) / 2);
    Unit found = x;
    for (const DrawMark &mark : drawing.marks.marks()) {
        if (rank(mark.kind) != 0 || mark.place.bar != spot.bar
            || mark.place.track != spot.staff.track || mark.place.staff != spot.staff.staff)
            continue;
        const Box box = drawing.marks.box(mark, layout.font());
        const Unit away = std::abs((box.left + box.right) / 2 - x);
        const bool isElsewhere = spot.staff.kind == StaffKind::Tablature
            && std::abs((box.top + box.bottom) / 2 - line) >= gap / 2;
        if (isElsewhere || away >= nearest)
            continue;
        nearest = away;
        found = (box.left + box.right) / 2;
    }
    return found;
}

} // namespace

std::optional<FoundMark> markAt(const Layout &layout, std::size_t page, Point point, Unit reach)
{
    if (page >= layout.pages().size())
        return std::nullopt;
    std::optional<FoundMark> found;
    std::pair<int, Unit> best{2, 0};
    const auto look = [&](const DrawList &list, Point offset) {
        for (const DrawMark &mark : list.marks()) {
            const int order = rank(mark.kind);
            if (order == 2)
                continue;
            const Box box = list.box(mark, layout.font()).movedBy(offset);
            const std::pair candidate{order, distance(box, point)};
            if (candidate.second <= reach && candidate < best) {
                best = candidate;
                found = FoundMark{mark.place, mark.kind, box};
            }
        }
    };
    const LayoutPage &sheet = layout.pages()[page];
    for (const PlacedSystem &system : sheet.systems)
        look(system.drawing->marks, system.at);
    if (sheet.marks != nullptr)
        look(*sheet.marks, {});
    return found;
}

std::optional<FoundSpot> spotAt(const Layout &layout, std::size_t page, Point point)
{
    if (page >= layout.pages().size())
        return std::nullopt;
    const PlacedSystem *system = systemAt(layout.pages()[page], point);
    if (system == nullptr || system->drawing->bars.empty())
        return std::nullopt;
    const Point inside = point - system->at;
    const auto &staves = system->drawing->staves;
    const auto staff = std::min_element(
        staves.begin(), staves.end(), [&](const StaffFrame &a, const StaffFrame &b) {
            return distance(a.top, a.bottom, inside.y) < distance(b.top, b.bottom, inside.y);
        });
    const auto &bars = system->drawing->bars;
    const auto bar =
        std::min_element(bars.begin(), bars.end(), [&](const BarFrame &a, const BarFrame &b) {
            return distance(a.left, a.right, inside.x) < distance(b.left, b.right, inside.x);
        });
    FoundSpot spot;
    spot.staff = *staff;
    spot.bar = bar->firstBar;
    const auto column = std::min_element(
        bar->columns.begin(), bar->columns.end(), [&](const ColumnFrame &a, const ColumnFrame &b) {
            return std::abs(a.x - inside.x) < std::abs(b.x - inside.x);
        });
    if (column != bar->columns.end())
        spot.offset = column->offset;
    const double gap = staff->lineCount > 1
        ? static_cast<double>(staff->bottom - staff->top) / (staff->lineCount - 1)
        : staffSpace;
    spot.step = static_cast<std::int32_t>(std::lround((inside.y - staff->top) / gap * 2));
    return spot;
}

std::vector<PlacedBox> boxesOf(const Layout &layout, const DrawPlace &place)
{
    std::vector<PlacedBox> result;
    for (std::size_t page = 0; page < layout.pages().size(); ++page) {
        for (const PlacedSystem &system : layout.pages()[page].systems) {
            if (place.bar >= 0 && !holds(*system.drawing, place.bar))
                continue;
            std::map<std::pair<int, int>, Box> boxes; // by track and staff
            const DrawList &list = system.drawing->marks;
            for (const DrawMark &mark : list.marks()) {
                if (mark.kind == MarkKind::StaffLine || mark.kind == MarkKind::BarLine
                    || !isIn(mark.place, place))
                    continue;
                Box &box = boxes[{mark.place.track, mark.place.staff}];
                box = box.unitedWith(list.box(mark, layout.font()).movedBy(system.at));
            }
            for (const auto &[staff, box] : boxes)
                result.push_back({page, box});
        }
    }
    return result;
}

std::optional<PlacedBox> playbackLine(const Layout &layout, std::int32_t bar,
                                      const utils::rational &offset)
{
    for (std::size_t page = 0; page < layout.pages().size(); ++page) {
        for (const PlacedSystem &system : layout.pages()[page].systems) {
            const SystemDrawing &drawing = *system.drawing;
            if (!holds(drawing, bar) || drawing.staves.empty())
                continue;
            const BarFrame &frame = frameOf(drawing, bar);
            const auto next = columnBehind(frame, offset);
            Unit x = next == frame.columns.end() ? frame.right : next->x;
            if (next != frame.columns.begin())
                x = next != frame.columns.end() ? between(*std::prev(next), *next, offset)
                                                : std::prev(next)->x;
            else if (frame.columns.empty())
                x = frame.left;
            const Unit left = x + system.at.x;
            return PlacedBox{page,
                             {left, drawing.staves.front().top + system.at.y, left,
                              drawing.staves.back().bottom + system.at.y}};
        }
    }
    return std::nullopt;
}

std::optional<PlacedBox> boxOfSpot(const Layout &layout, const FoundSpot &spot)
{
    for (std::size_t page = 0; page < layout.pages().size(); ++page) {
        for (const PlacedSystem &system : layout.pages()[page].systems) {
            const SystemDrawing &drawing = *system.drawing;
            if (!holds(drawing, spot.bar))
                continue;
            const StaffFrame *staff = nullptr;
            for (const StaffFrame &frame : drawing.staves)
                if (frame.track == spot.staff.track && frame.staff == spot.staff.staff
                    && (staff == nullptr || frame.kind == spot.staff.kind))
                    staff = &frame;
            if (staff == nullptr)
                return std::nullopt;
            const Unit column = entryX(frameOf(drawing, spot.bar), spot.offset);
            const Unit gap =
                staff->lineCount > 1 ? (staff->bottom - staff->top) / (staff->lineCount - 1) : 0;
            const bool isLine = staff->kind == StaffKind::Tablature;
            const Unit line = staff->top + spot.step * gap / 2;
            const Unit x = shownX(layout, drawing, spot, line, gap, column) + system.at.x;
            const Unit reach = isLine ? gap / 2 : staffSpace / 2;
            const Unit top = (isLine ? line : staff->top) - reach + system.at.y;
            const Unit bottom = (isLine ? line : staff->bottom) + reach + system.at.y;
            return PlacedBox{page, {x - staffSpace * 3 / 4, top, x + staffSpace * 3 / 4, bottom}};
        }
    }
    return std::nullopt;
}

} // namespace zarn::layout
