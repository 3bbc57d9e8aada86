// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/StretchRows.h>

#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Systems.h>

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>

namespace zarn::sheet {

namespace {

/// How a line is drawn. Ends that are not drawn where it goes on from one system to another mark
/// one place in the music; the others are its shape.
struct Stroke {
    Glyph left;
    Glyph line; ///< empty for none
    Glyph right;
    bool hasShape;
    bool reachesNextColumn;
    bool repeatsWords; ///< on the next system
    int gap;           ///< to its neighbours in a row
};

/// By `Stretch::Style`.
constexpr Glyph none = {"", ""};
constexpr Glyph dash = {"\u2500", "-"};
constexpr Glyph score = {"_", "_"};
constexpr std::array<Stroke, 8> strokes = {{
    {none, none, none, false, false, false, 1},
    {none, dash, {"\u2524", "|"}, false, false, true, 1},
    {none, {"~", "~"}, none, false, true, true, 1},
    {{"\u256d", "("}, dash, {"\u256e", ")"}, false, false, false, 0},
    {{"<", "<"}, dash, none, true, true, false, 1},
    {none, dash, {">", ">"}, true, true, false, 1},
    {none, score, {"*", "*"}, false, false, false, 0},
    {none, score, {"^", "^"}, false, false, false, 0},
}};

/// A stretch at its place in a system.
struct Placed {
    const Stretch *stretch = nullptr;
    int from = 0;
    int to = 0; ///< not included
    bool begins = false;
    bool ends = false;
    QString words;

    const Stroke &stroke() const { return strokes[static_cast<std::size_t>(stretch->style)]; }
    /// Short ones first, and what looks the same side by side.
    auto order() const { return std::make_tuple(to - from, from, stretch->style, words); }
};

/// Where one piece stands; nothing when its columns are on another system.
std::optional<Placed> placedIn(const Segment &segment, const Stretch &stretch)
{
    const PlacedColumn *first = nullptr;
    const PlacedColumn *last = nullptr;
    const PlacedColumn *next = nullptr;
    for (const PlacedColumn &column : segment.columns) {
        if (*column.key < stretch.first)
            continue;
        if (stretch.last < *column.key) {
            next = &column;
            break;
        }
        first = first == nullptr ? &column : first;
        last = &column;
    }
    if (first == nullptr)
        return std::nullopt;
    Placed placed;
    placed.stretch = &stretch;
    placed.begins = stretch.begins && *first->key == stretch.first;
    placed.ends =
        stretch.ends && (next != nullptr || segment.endsBar || *last->key == stretch.last);
    placed.from = placed.begins ? first->x + stretch.inset : first->x;
    if (!placed.ends)
        placed.to = segment.right;
    else if (placed.stroke().reachesNextColumn)
        placed.to = next != nullptr ? next->x - 1 : segment.right - 1;
    else
        placed.to = last->x + 1;
    return placed;
}

/// The pieces of a lane, those of one run joined.
std::vector<Placed> placedOn(const System &system, int lane)
{
    std::vector<Placed> all;
    for (const Segment &segment : system.segments)
        for (const Stretch &stretch : segment.bar->stretches) {
            const auto placed = stretch.lane == lane ? placedIn(segment, stretch) : std::nullopt;
            if (!placed)
                continue;
            const auto before = std::find_if(all.begin(), all.end(), [&](const Placed &other) {
                return other.stretch->run == stretch.run;
            });
            if (before == all.end()) {
                all.push_back(*placed);
            } else {
                before->stretch = &stretch;
                before->to = placed->to;
                before->ends = placed->ends;
            }
        }
    return all;
}

/// Gives a stretch its words and the room for them.
void finish(Placed &placed, const Glyphs &glyphs, int width)
{
    const Stroke &stroke = placed.stroke();
    if (placed.begins)
        placed.words = placed.stretch->words;
    else if (stroke.repeatsWords)
        placed.words = QStringLiteral("(%1)").arg(placed.stretch->words);
    placed.words = shortened(placed.words, width, glyphs.isUtf8);
    const int leastLine = stroke.hasShape ? 2 : 1;
    const int least = placed.words.isEmpty() ? leastLine : displayWidth(placed.words);
    placed.to = std::max(placed.to, placed.from + least);
    if (placed.to > width) {
        placed.from = std::max(0, placed.from - (placed.to - width));
        placed.to = width;
    }
}

bool looksLike(const Placed &left, const Placed &right)
{
    return left.from == right.from && left.to == right.to && left.words == right.words
        && left.stretch->style == right.stretch->style;
}

void draw(CharacterRow &row, const Placed &placed, const Glyphs &glyphs)
{
    const Stroke &stroke = placed.stroke();
    const Ink ink = placed.stretch->ink;
    const QString line = glyphs.of(stroke.line);
    const int wordsEnd = placed.from + displayWidth(placed.words);
    if (!line.isEmpty())
        row.fill(wordsEnd, placed.to, line, ink);
    if (placed.begins || stroke.hasShape)
        row.write(placed.from, glyphs.of(stroke.left), ink);
    if (placed.to > wordsEnd && (placed.ends || stroke.hasShape)) {
        const QString right = glyphs.of(stroke.right);
        row.write(placed.to - displayWidth(right), right, ink);
    }
    row.write(placed.from, placed.words, ink);
}

/// A row of the stack, and what of it is taken.
struct StackRow {
    CharacterRow row;
    std::vector<std::pair<int, int>> taken;

    bool hasRoom(int from, int to, int gap) const
    {
        return std::none_of(taken.begin(), taken.end(), [&](const auto &other) {
            return from < other.second + gap && other.first < to + gap;
        });
    }
};

} // namespace

std::vector<CharacterRow> paintStretches(const System &system, int lane, const Glyphs &glyphs,
                                         int width)
{
    std::vector<Placed> all = placedOn(system, lane);
    for (Placed &placed : all)
        finish(placed, glyphs, width);
    std::stable_sort(all.begin(), all.end(), [](const Placed &left, const Placed &right) {
        return left.order() < right.order();
    });
    all.erase(std::unique(all.begin(), all.end(), looksLike), all.end());

    std::vector<StackRow> stack;
    for (const Placed &placed : all) {
        auto row = std::find_if(stack.begin(), stack.end(), [&](const StackRow &candidate) {
            return candidate.hasRoom(placed.from, placed.to, placed.stroke().gap);
        });
        if (row == stack.end())
            row = stack.emplace(stack.end());
        row->taken.emplace_back(placed.from, placed.to);
        draw(row->row, placed, glyphs);
    }
    std::vector<CharacterRow> rows;
    for (StackRow &row : stack)
        rows.push_back(std::move(row.row));
    return rows;
}

} // namespace zarn::sheet
