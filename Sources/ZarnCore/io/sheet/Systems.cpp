// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/Systems.h>

#include <ZarnCore/io/sheet/CharacterRow.h>
#include <ZarnCore/io/sheet/Glyphs.h>

#include <algorithm>

namespace zarn::sheet {

namespace {

/// Room behind a column for the time until the next one, so that long notes look long.
struct Room {
    utils::rational atLeast; ///< quarters
    int columns;
};
const Room RoomByTime[] = {
    {utils::rational(4), 8}, {utils::rational(3), 7},    {utils::rational(2), 5},
    {utils::rational(1), 3}, {utils::rational(1, 3), 2}, {utils::rational(0), 1},
};

enum class Setting { Natural, Tight };

int roomFor(const utils::rational &time, Setting setting)
{
    if (setting == Setting::Tight)
        return 1;
    for (const Room &room : RoomByTime)
        if (time >= room.atLeast)
            return room.columns;
    return 1;
}

BarLine joined(BarLine right, BarLine nextLeft)
{
    if (nextLeft != BarLine::RepeatStart)
        return right;
    return right == BarLine::RepeatEnd ? BarLine::RepeatBoth : BarLine::RepeatStart;
}

/// A bar's columns from 0, and the width up to the bar line behind them.
struct MeasuredBar {
    std::vector<PlacedColumn> columns;
    int width = 0;
};

class Measure {
public:
    Measure(const SheetBar &bar, Setting setting);

    MeasuredBar result() && { return std::move(_result); }

private:
    static int cellWidth(const std::map<int, Cell> &cells);
    int endOfSpans(const SheetBar &bar, const ColumnKey &last) const;

    MeasuredBar _result;
};

Measure::Measure(const SheetBar &bar, Setting setting)
{
    int x = 1;
    for (auto it = bar.columns.begin(); it != bar.columns.end(); ++it) {
        const auto next = std::next(it);
        const utils::rational end =
            next != bar.columns.end() ? next->first.onset : std::max(bar.length, it->first.onset);
        const int width = std::max(1, cellWidth(it->second));
        _result.columns.push_back({&it->first, &it->second, x, width});
        const bool isGrace = it->first.order != ColumnKey::Beat;
        const int room = isGrace ? 1 : roomFor(end - it->first.onset, setting);
        x = std::max({x + width + 1, x + room + 1, endOfSpans(bar, it->first) + 1});
    }
    const int numberWidth = QString::number(bar.number).size();
    const int leastWidth = setting == Setting::Tight ? 3 : 6;
    _result.width = std::max({x, numberWidth + 1, leastWidth});
}

/// Where the widest bracket ends whose last column is this one.
int Measure::endOfSpans(const SheetBar &bar, const ColumnKey &last) const
{
    int end = 0;
    for (const Span &span : bar.spans) {
        if (!(span.last == last))
            continue;
        for (const PlacedColumn &column : _result.columns)
            if (*column.key == span.first)
                end = std::max(end, column.x + bracketWidth(span));
    }
    return end;
}

int Measure::cellWidth(const std::map<int, Cell> &cells)
{
    int width = 0;
    for (const auto &[lane, cell] : cells)
        width = std::max(width, displayWidth(cell.text));
    return width;
}

class Breaker {
public:
    Breaker(const Sheet &sheet, const Glyphs &glyphs, int left, int width)
        : _sheet(sheet), _glyphs(glyphs), _left(left), _width(width)
    {
    }

    std::vector<System> run();

private:
    void addBar(const SheetBar &bar);
    void addWhole(const SheetBar &bar, MeasuredBar measured, BarLine before);
    void addInPieces(const SheetBar &bar, const MeasuredBar &measured);
    void endSystem();
    bool isEmpty() const { return _system.segments.empty(); }
    int pen() const { return isEmpty() ? _left : _system.segments.back().right; }
    bool fits(int pen, const SheetBar &bar, const MeasuredBar &measured, BarLine before) const;
    BarLine lineBefore(const SheetBar &bar) const;

    const Sheet &_sheet;
    const Glyphs &_glyphs;
    int _left;
    int _width;
    System _system;
    std::vector<System> _systems;
};

std::vector<System> Breaker::run()
{
    for (const SheetBar &bar : _sheet.bars)
        addBar(bar);
    endSystem();
    return std::move(_systems);
}

BarLine Breaker::lineBefore(const SheetBar &bar) const
{
    return isEmpty() ? bar.left : joined(_system.segments.back().bar->right, bar.left);
}

bool Breaker::fits(int pen, const SheetBar &bar, const MeasuredBar &measured, BarLine before) const
{
    return pen + barLineWidth(before, _glyphs) + measured.width + barLineWidth(bar.right, _glyphs)
        <= _width;
}

void Breaker::addBar(const SheetBar &bar)
{
    MeasuredBar natural = Measure(bar, Setting::Natural).result();
    if (!isEmpty() && !fits(pen(), bar, natural, lineBefore(bar)))
        endSystem();
    if (fits(pen(), bar, natural, lineBefore(bar)))
        return addWhole(bar, std::move(natural), lineBefore(bar));
    MeasuredBar tight = Measure(bar, Setting::Tight).result();
    if (fits(pen(), bar, tight, lineBefore(bar)))
        return addWhole(bar, std::move(tight), lineBefore(bar));
    addInPieces(bar, tight);
}

void Breaker::addWhole(const SheetBar &bar, MeasuredBar measured, BarLine before)
{
    Segment segment;
    segment.bar = &bar;
    segment.before = before;
    segment.after = bar.right;
    segment.left = pen();
    const int start = segment.left + barLineWidth(before, _glyphs);
    segment.right = start + measured.width;
    for (PlacedColumn &column : measured.columns)
        column.x += start;
    segment.columns = std::move(measured.columns);
    _system.segments.push_back(std::move(segment));
}

void Breaker::addInPieces(const SheetBar &bar, const MeasuredBar &measured)
{
    Segment segment;
    const auto begin = [&](BarLine before, bool beginsBar) {
        segment = Segment();
        segment.bar = &bar;
        segment.before = before;
        segment.after = bar.right;
        segment.beginsBar = beginsBar;
        segment.endsBar = false;
        segment.left = pen();
        segment.right = segment.left + barLineWidth(before, _glyphs) + 1;
    };
    begin(lineBefore(bar), true);
    const int end = _width - barLineWidth(bar.right, _glyphs);
    for (PlacedColumn column : measured.columns) {
        if (!segment.columns.empty() && segment.right + column.width + 1 > end) {
            _system.segments.push_back(segment);
            endSystem();
            begin(BarLine::Single, false);
        }
        column.width = std::min(column.width, std::max(1, end - segment.right - 1));
        column.x = segment.right;
        segment.right += column.width + 1;
        segment.columns.push_back(column);
    }
    segment.endsBar = true;
    _system.segments.push_back(segment);
}

void Breaker::endSystem()
{
    if (!isEmpty())
        _systems.push_back(std::move(_system));
    _system = System();
}

} // namespace

int bracketWidth(const Span &span)
{
    return displayWidth(span.text) + 2;
}

QString barLineText(BarLine line, const Glyphs &glyphs, const QString &gap, const QString &dot)
{
    const QString &heavy = glyphs.heavyBarLine;
    switch (line) {
    case BarLine::Single:
        return glyphs.barLine;
    case BarLine::Double:
        return glyphs.doubleBarLine;
    case BarLine::RepeatStart:
        return heavy + dot;
    case BarLine::RepeatEnd:
        return dot + heavy;
    case BarLine::RepeatBoth:
        return dot + heavy + dot;
    case BarLine::Final:
        return (glyphs.isUtf8 ? glyphs.barLine : QString()) + heavy;
    case BarLine::Dashed:
        return glyphs.of({"\u2506", ":"});
    case BarLine::Dotted:
        return glyphs.of({"\u250a", ":"});
    case BarLine::Heavy:
        return heavy;
    case BarLine::Short:
        return glyphs.of({"\u2575", "'"});
    case BarLine::None:
        return gap;
    }
    return glyphs.barLine;
}

int barLineWidth(BarLine line, const Glyphs &glyphs)
{
    const QString space = QStringLiteral(" ");
    return displayWidth(barLineText(line, glyphs, space, space));
}

std::vector<System> breakIntoSystems(const Sheet &sheet, const Glyphs &glyphs, int left, int width)
{
    return Breaker(sheet, glyphs, left, width).run();
}

} // namespace zarn::sheet
