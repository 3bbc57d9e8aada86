// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/HeadingRows.h>

#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Systems.h>

#include <algorithm>
#include <map>

namespace zarn::sheet {

namespace {

/// Where a heading stands in its segment; -1 when its column is on another system.
int placeOf(const Heading &heading, const Segment &segment)
{
    if (segment.columns.empty())
        return segment.beginsBar ? segment.left : -1;
    if (!(segment.columns.front().key->onset < heading.at.onset))
        return segment.beginsBar
            ? segment.left
            : (segment.columns.front().key->onset == heading.at.onset ? segment.columns.front().x
                                                                      : -1);
    for (const PlacedColumn &column : segment.columns)
        if (!(*column.key < heading.at))
            return column.x;
    return segment.endsBar ? segment.columns.back().x : -1;
}

/// The headings of a segment with their places, from left to right; those of one place are joined.
std::map<int, Heading> placedHeadings(const Segment &segment)
{
    std::map<int, Heading> placed;
    for (const Heading &heading : segment.bar->headings) {
        const int x = placeOf(heading, segment);
        if (x < 0)
            continue;
        const auto [at, isNew] = placed.emplace(x, heading);
        if (!isNew)
            at->second.text += QStringLiteral("  ") + heading.text;
    }
    return placed;
}

void paintEndings(const System &system, const Glyphs &glyphs, std::vector<CharacterRow> &rows)
{
    CharacterRow row;
    for (const Segment &segment : system.segments) {
        const EndingMark &ending = segment.bar->ending;
        if (ending.text.isEmpty())
            continue;
        row.fill(segment.left, segment.right, glyphs.spanLine, Ink::Line);
        const bool isFirst = &segment == &system.segments.front();
        if ((ending.begins && segment.beginsBar) || isFirst) {
            row.write(segment.left, glyphs.endingLeft, Ink::Line);
            row.write(segment.left + 1,
                      shortened(ending.text, segment.right - segment.left - 2, glyphs.isUtf8),
                      Ink::Heading);
        }
        if (ending.ends && segment.endsBar)
            row.write(segment.right - 1, glyphs.endingRight, Ink::Line);
    }
    if (row.width() > 0)
        rows.push_back(std::move(row));
}

} // namespace

void placeText(std::vector<CharacterRow> &stack, int x, const QString &text, Ink ink, int width,
               const Glyphs &glyphs)
{
    const QString shown = shortened(text, width, glyphs.isUtf8);
    x = std::max(0, std::min(x, width - displayWidth(shown)));
    for (CharacterRow &row : stack)
        if (row.width() == 0 || row.width() + 2 <= x)
            return row.write(x, shown, ink);
    stack.emplace_back();
    stack.back().write(x, shown, ink);
}

void paintHeadings(const System &system, const Glyphs &glyphs, int width,
                   std::vector<CharacterRow> &rows)
{
    std::vector<CharacterRow> stack;
    CharacterRow numbers;
    for (const Segment &segment : system.segments) {
        for (const auto &[x, heading] : placedHeadings(segment))
            placeText(stack, x, heading.text, heading.ink, width, glyphs);
        if (segment.beginsBar)
            numbers.write(segment.left, QString::number(segment.bar->number), Ink::Heading);
    }
    std::move(stack.rbegin(), stack.rend(), std::back_inserter(rows));
    paintEndings(system, glyphs, rows);
    rows.push_back(std::move(numbers));
}

} // namespace zarn::sheet
