// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BarLines.h>

#include <ZarnLayout/engrave/StaffSigns.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double thin = 0.16;
constexpr double thick = 0.5;
constexpr double separation = 0.4;
constexpr double dotGap = 0.3;
constexpr double dotWidth = 0.4;
constexpr double changedClef = 0.75;

LineStyle styleAtEnd(const ColumnSource &column, bool endsMovement)
{
    if (column.repeatCount > 0)
        return LineStyle::RepeatEnd;
    if ((column.isLast || endsMovement) && column.barLine == BarLine::Auto)
        return LineStyle::Final;
    if (column.doubleBar)
        return LineStyle::Double;
    switch (column.barLine) {
    case BarLine::Dashed:
        return LineStyle::Dashed;
    case BarLine::Dotted:
        return LineStyle::Dotted;
    case BarLine::Heavy:
        return LineStyle::Heavy;
    case BarLine::Short:
        return LineStyle::Short;
    case BarLine::Tick:
        return LineStyle::Tick;
    case BarLine::None:
        return LineStyle::None;
    case BarLine::Auto:
        break;
    }
    return column.freeTime ? LineStyle::Dashed : LineStyle::Single;
}

double widest(const std::vector<Inks> &rows)
{
    double width = 0;
    for (const Inks &inks : rows)
        if (!inks.empty())
            width = std::max(width, boxOf(inks).right);
    return width;
}

bool isToBeRead(const Ink &ink)
{
    return ink.shape == Ink::Shape::Text || ink.kind == MarkKind::Dynamic
        || ink.kind == MarkKind::ChordDiagram;
}

/// Adds a line from top to bottom without the pieces where something is to be read.
void addInterrupted(const Ink &whole, const std::vector<Readable> &readables, Inks &inks)
{
    constexpr double gap = 0.15;
    constexpr double shortest = 0.3;
    std::vector<const Readable *> inTheWay;
    for (const Readable &readable : readables)
        if (readable.box.meets(whole.box))
            inTheWay.push_back(&readable);
    std::sort(inTheWay.begin(), inTheWay.end(), [](const Readable *left, const Readable *right) {
        return left->box.top < right->box.top;
    });
    const double x = whole.points[0].x;
    Ink rest = whole;
    const auto addUpTo = [&](double y, int row) {
        Ink piece = rest;
        piece.points[1] = {x, y};
        piece.rows[1] = row;
        piece.box.bottom = y;
        if (y - piece.points[0].y > shortest)
            inks.push_back(std::move(piece));
    };
    for (const Readable *readable : inTheWay) {
        addUpTo(readable->box.top - gap, static_cast<int>(readable->row));
        if (readable->box.bottom + gap < rest.points[0].y)
            continue; // beside what has interrupted the line already
        rest.points[0] = {x, readable->box.bottom + gap};
        rest.rows[0] = static_cast<int>(readable->row);
        rest.box.top = rest.points[0].y;
    }
    addUpTo(whole.points[1].y, whole.rows[1]);
}

} // namespace

std::vector<Readable> readablesBetweenRows(const SystemDraft &draft)
{
    std::vector<Readable> readables;
    for (const RowDraft &row : draft.rows) {
        if (!row.hasLinesAbove && !row.hasLinesBelow)
            continue;
        for (const Ink &ink : row.inks)
            if (isToBeRead(ink)
                && ((row.hasLinesAbove && ink.box.bottom < 0)
                    || (row.hasLinesBelow && ink.box.top > row.row->height())))
                readables.push_back({row.number, ink.box.movedBy(0, row.y)});
    }
    return readables;
}

double widthOf(LineStyle style) noexcept
{
    switch (style) {
    case LineStyle::None:
        return 0;
    case LineStyle::Double:
        return thin + separation + thin;
    case LineStyle::Final:
        return thin + separation + thick;
    case LineStyle::RepeatEnd:
    case LineStyle::RepeatStart:
        return dotWidth + dotGap + thin + separation + thick;
    case LineStyle::RepeatBoth:
        return 2 * (dotWidth + dotGap + thin + separation) + thick;
    case LineStyle::Heavy:
        return thick;
    default:
        return thin;
    }
}

Joint jointBefore(const EngravedScore &score, unsigned shownBar, JointPlace place, const Pen &pen)
{
    const auto rowCount = static_cast<unsigned>(score.rows.size());
    const bool hasNext = shownBar < score.shown.size();
    const ColumnSource *next = hasNext ? &score.column(shownBar) : nullptr;
    const ColumnSource *before =
        place != JointPlace::Head && shownBar > 0 ? &score.lastColumn(shownBar - 1) : nullptr;
    const StaffSigns signs(pen);
    Joint joint;
    joint.clefs.resize(rowCount);
    joint.keys.resize(rowCount);
    joint.meters.resize(rowCount);
    bool hasKey = false;
    const bool endsMovement = next && next->movementStart;
    // A movement says itself how it begins.
    const bool isLastOfMovement = endsMovement && place == JointPlace::Tail;
    const bool hasMeter = next && next->showsMeter && !isLastOfMovement;
    for (unsigned i = 0; i < rowCount && hasNext && !isLastOfMovement; ++i) {
        const Row &row = score.rows[i];
        const BarSource &bar = score.source(i, shownBar);
        if (place == JointPlace::Head)
            joint.clefs[i] = signs.clef(row, bar.clef, bar.ottavia, 1);
        else if (row.notation == Notation::Standard && !row.isPercussion
                 && bar.clefBefore != ClefType::None
                 && (bar.clef != bar.clefBefore || bar.ottavia != bar.ottaviaBefore))
            joint.clefs[i] = signs.clef(row, bar.clef, bar.ottavia, changedClef);
        const bool keyChanges = shownBar > 0 && bar.key != bar.keyBefore;
        if (place == JointPlace::Head)
            joint.keys[i] = signs.key(row, bar.clef, bar.key, 0);
        else if (keyChanges)
            joint.keys[i] = signs.key(row, bar.clef, bar.key, bar.keyBefore);
        hasKey = hasKey || !joint.keys[i].empty();
        if (hasMeter)
            joint.meters[i] = signs.meter(row, next->meter, next->meterSign);
    }

    LineStyle atEnd = before ? styleAtEnd(*before, endsMovement) : LineStyle::None;
    const bool startsRepeat = next && next->repeatStart && place != JointPlace::Tail;
    if (startsRepeat) {
        if (place == JointPlace::Head || hasKey || hasMeter)
            joint.lateLine = LineStyle::RepeatStart;
        else
            atEnd = atEnd == LineStyle::RepeatEnd ? LineStyle::RepeatBoth : LineStyle::RepeatStart;
    }
    joint.line = atEnd;

    double x = place == JointPlace::Head ? 0.7 : 0;
    joint.clefX = x;
    if (const double width = widest(joint.clefs); width > 0)
        x += width + (place == JointPlace::Head ? 0.75 : 0.45);
    joint.lineX = x;
    x += widthOf(joint.line);
    const bool isHead = place == JointPlace::Head;
    joint.keyX = x + (isHead ? 0 : 0.7);
    if (const double width = widest(joint.keys); width > 0)
        x = joint.keyX + width + (isHead ? 0.75 : 0.3);
    joint.meterX = x + (isHead ? 0 : 0.5);
    if (const double width = widest(joint.meters); width > 0)
        x = joint.meterX + width + (isHead ? 0.3 : 0.2);
    if (joint.lateLine != LineStyle::None) {
        joint.lateLineX = x + 0.3;
        x = joint.lateLineX + widthOf(joint.lateLine);
    }
    joint.width = x;
    return joint;
}

Inks repeatDots(LineStyle style, double x, const Row &row, const Pen &pen)
{
    const bool closes = style == LineStyle::RepeatEnd || style == LineStyle::RepeatBoth;
    const bool opens = style == LineStyle::RepeatStart || style == LineStyle::RepeatBoth;
    const double middle = row.height() / 2;
    const double off = row.lineCount % 2 == 1 ? 0.5 * row.lineDistance : row.lineDistance;
    Inks dots;
    const auto add = [&](double left) {
        for (const double y : {middle - off, middle + off})
            dots.push_back(pen.glyph(MarkKind::RepeatDots, Sign::RepeatDot, left, y));
    };
    if (closes)
        add(x);
    if (opens)
        add(x + widthOf(style) - dotWidth);
    return dots;
}

void addBarLine(SystemDraft &draft, LineStyle style, double x, const std::vector<bool> &isJoined,
                unsigned bar, const std::vector<Readable> &readables)
{
    const auto count = static_cast<unsigned>(draft.rows.size());
    MarkPlace place;
    place.bar = static_cast<std::int32_t>(bar);
    const auto addLine = [&](double left, double width, bool isDashed = false, double dash = 0.5) {
        for (unsigned i = 0; i < count;) {
            unsigned last = i;
            while (last + 1 < count && isJoined[last])
                ++last;
            const RowDraft &upper = draft.rows[i];
            const RowDraft &lower = draft.rows[last];
            double top = upper.y;
            double bottom = lower.y + lower.row->height();
            if (upper.row->lineCount == 1)
                top -= 1;
            if (lower.row->lineCount == 1)
                bottom += 1;
            if (style == LineStyle::Short || style == LineStyle::Tick) {
                last = i;
                top = upper.y + (style == LineStyle::Short ? 1 : -0.5);
                bottom = upper.y + (style == LineStyle::Short ? upper.row->height() - 1 : 0.5);
            }
            Ink ink = draft.pen.line(MarkKind::BarLine, {left + width / 2, top},
                                     {left + width / 2, bottom}, width);
            if (isDashed) {
                ink.dash = dash;
                ink.gap = dash == 0.5 ? 0.25 : 0.35;
            }
            ink.place = place;
            addInterrupted(ink, readables, draft.inks);
            i = last + 1;
        }
    };
    switch (style) {
    case LineStyle::None:
        break;
    case LineStyle::Double:
        addLine(x, thin);
        addLine(x + thin + separation, thin);
        break;
    case LineStyle::Final:
        addLine(x, thin);
        addLine(x + thin + separation, thick);
        break;
    case LineStyle::RepeatEnd:
        x += dotWidth + dotGap;
        addLine(x, thin);
        addLine(x + thin + separation, thick);
        break;
    case LineStyle::RepeatStart:
        addLine(x, thick);
        addLine(x + thick + separation, thin);
        break;
    case LineStyle::RepeatBoth:
        x += dotWidth + dotGap;
        addLine(x, thin);
        x += thin + separation;
        addLine(x, thick);
        x += thick + separation;
        addLine(x, thin);
        break;
    case LineStyle::Heavy:
        addLine(x, thick);
        break;
    case LineStyle::Dashed:
        addLine(x, thin, true);
        break;
    case LineStyle::Dotted:
        addLine(x, thin, true, 0.16);
        break;
    default:
        addLine(x, thin);
        break;
    }
}

} // namespace zarn::engraving
