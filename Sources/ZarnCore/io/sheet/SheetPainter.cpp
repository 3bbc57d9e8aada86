// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/SheetPainter.h>

#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/HeadingRows.h>
#include <ZarnCore/io/sheet/StretchRows.h>
#include <ZarnCore/io/sheet/Systems.h>

#include <algorithm>
#include <iterator>

namespace zarn::sheet {

namespace {

constexpr int WidestLabel = 14;

/// Draws the lanes of one system.
class SystemPainter {
public:
    SystemPainter(const Sheet &sheet, const Glyphs &glyphs, const System &system, int width)
        : _sheet(sheet), _glyphs(glyphs), _system(system), _width(width)
    {
    }

    void paint(std::vector<CharacterRow> &rows) const;

private:
    bool isShown(int lane) const;
    CharacterRow paintLane(int lane, const QString &label) const;
    void paintSegment(CharacterRow &row, const Segment &segment, int lane) const;
    void paintSpan(CharacterRow &row, const Segment &segment, const Span &span) const;
    void paintBarLine(CharacterRow &row, int x, BarLine line, const Lane &lane) const;
    void paintStack(std::vector<CharacterRow> &rows, int lane) const;

    const Sheet &_sheet;
    const Glyphs &_glyphs;
    const System &_system;
    int _width;
};

bool SystemPainter::isShown(int lane) const
{
    if (!_sheet.lanes[static_cast<std::size_t>(lane)].isOptional)
        return true;
    for (const Segment &segment : _system.segments) {
        for (const PlacedColumn &column : segment.columns)
            if (column.cells->count(lane) != 0)
                return true;
        for (const Span &span : segment.bar->spans)
            if (span.lane == lane)
                return true;
        for (const Stretch &stretch : segment.bar->stretches)
            if (stretch.lane == lane)
                return true;
    }
    return false;
}

void SystemPainter::paint(std::vector<CharacterRow> &rows) const
{
    int staff = -1;
    QString name;
    for (int lane = 0; lane < static_cast<int>(_sheet.lanes.size()); ++lane) {
        if (!isShown(lane))
            continue;
        const Lane &shown = _sheet.lanes[static_cast<std::size_t>(lane)];
        if (shown.staff != staff) {
            if (staff >= 0)
                rows.emplace_back();
            staff = shown.staff;
            name = _sheet.staves[static_cast<std::size_t>(staff)].name;
        }
        if (shown.stacking != Lane::Stacking::None) {
            paintStack(rows, lane);
        } else if (shown.label.isEmpty()) {
            rows.push_back(paintLane(lane, name));
            name.clear();
        } else {
            rows.push_back(paintLane(lane, shown.label));
        }
    }
}

CharacterRow SystemPainter::paintLane(int lane, const QString &label) const
{
    CharacterRow row;
    row.write(0, shortened(label, WidestLabel, _glyphs.isUtf8), Ink::Heading);
    for (const Segment &segment : _system.segments)
        paintSegment(row, segment, lane);
    return row;
}

void SystemPainter::paintSegment(CharacterRow &row, const Segment &segment, int laneIndex) const
{
    const Lane &lane = _sheet.lanes[static_cast<std::size_t>(laneIndex)];
    const bool isLast = &segment == &_system.segments.back();
    if (lane.kind == Lane::Kind::String)
        row.fill(segment.left, segment.right, _glyphs.string, Ink::Line);
    for (const PlacedColumn &column : segment.columns) {
        const auto cell = column.cells->find(laneIndex);
        if (cell != column.cells->end())
            row.write(column.x, shortened(cell->second.text, column.width, _glyphs.isUtf8),
                      cell->second.ink);
    }
    for (const Span &span : segment.bar->spans)
        if (span.lane == laneIndex)
            paintSpan(row, segment, span);
    if (lane.kind == Lane::Kind::Text)
        return;
    if (segment.beginsBar)
        paintBarLine(row, segment.left, segment.before, lane);
    if (isLast && segment.endsBar)
        paintBarLine(row, segment.right, segment.after, lane);
}

/// Words and lines over or under the staff: as many rows as they need.
void SystemPainter::paintStack(std::vector<CharacterRow> &rows, int lane) const
{
    std::vector<CharacterRow> stack = paintStretches(_system, lane, _glyphs, _width);
    if (_sheet.lanes[static_cast<std::size_t>(lane)].stacking == Lane::Stacking::Upwards)
        std::reverse(stack.begin(), stack.end());
    std::move(stack.begin(), stack.end(), std::back_inserter(rows));
}

/// A bracket that another system begins or goes on with is open at that end.
void SystemPainter::paintSpan(CharacterRow &row, const Segment &segment, const Span &span) const
{
    int from = -1;
    int to = -1;
    bool begins = false;
    bool ends = false;
    for (const PlacedColumn &column : segment.columns) {
        if (*column.key < span.first || span.last < *column.key)
            continue;
        begins = begins || *column.key == span.first;
        ends = ends || *column.key == span.last;
        from = from < 0 ? column.x : from;
        to = column.x + 1;
    }
    if (from < 0)
        return;
    // The words of a bracket stand whole; at the end of the page they reach back.
    from = std::clamp(_width - bracketWidth(span), 0, from);
    to = std::max(to, from + bracketWidth(span));
    row.fill(from, to, _glyphs.spanLine, Ink::Rhythm);
    if (begins)
        row.write(from, _glyphs.spanLeft, Ink::Rhythm);
    if (ends)
        row.write(to - 1, _glyphs.spanRight, Ink::Rhythm);
    row.write(from + (to - from - displayWidth(span.text)) / 2, span.text, Ink::Rhythm);
}

void SystemPainter::paintBarLine(CharacterRow &row, int x, BarLine line, const Lane &lane) const
{
    const QString gap = lane.kind == Lane::Kind::String ? _glyphs.string : QStringLiteral(" ");
    const QString dot = lane.hasRepeatDots ? _glyphs.repeatDot : gap;
    row.write(x, barLineText(line, _glyphs, gap, dot), Ink::Line);
}

int labelWidth(const Sheet &sheet)
{
    int width = 0;
    for (const Lane &lane : sheet.lanes)
        width = std::max(width, displayWidth(lane.label));
    for (const SheetStaff &staff : sheet.staves)
        width = std::max(width, displayWidth(staff.name));
    return std::min(width, WidestLabel);
}

} // namespace

std::vector<CharacterRow> paintSheet(const Sheet &sheet, const Glyphs &glyphs, int width)
{
    std::vector<CharacterRow> rows;
    for (const System &system :
         breakIntoSystems(sheet, glyphs, labelWidth(sheet) + sheet.labelGap, width)) {
        if (!rows.empty())
            rows.emplace_back();
        paintHeadings(system, glyphs, width, rows);
        SystemPainter(sheet, glyphs, system, width).paint(rows);
    }
    return rows;
}

} // namespace zarn::sheet
