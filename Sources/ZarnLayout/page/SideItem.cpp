// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/SideItem.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace zarn::engraving {

namespace {

/// The base line of an item that keeps its gap.
double baseLine(const RowDraft &row, const SideItem &item)
{
    double y = item.side == Side::Above ? 1e9 : -1e9;
    for (const Ink &ink : item.inks) {
        if (item.side == Side::Above)
            y = std::min(y,
                         -row.above.reach(ink.box.left - 0.2, ink.box.right + 0.2) - item.gap
                             - ink.box.bottom);
        else
            y = std::max(y,
                         row.below.reach(ink.box.left - 0.2, ink.box.right + 0.2) + item.gap
                             - ink.box.top);
    }
    return y;
}

/// Words and single signs that a bar line would run through make way for it, as long as they stay
/// near their note, and off their neighbours where they share a line with them.
void clearBarLines(const RowDraft &row, SideItem &item, const SideItems &all)
{
    constexpr double farthest = 4;
    constexpr double gap = 0.25;
    constexpr double lineWidth = 0.2;
    if (item.side == Side::Above ? !row.hasLinesAbove : !row.hasLinesBelow)
        return;
    for (Ink &ink : item.inks) {
        // Dynamics stand inside of their bar anyway.
        const bool isSign = ink.shape == Ink::Shape::Glyph && item.inks.size() == 1
            && ink.kind != MarkKind::Dynamic;
        if ((ink.shape != Ink::Shape::Text && !isSign) || ink.kind == MarkKind::Lyric)
            continue;
        for (const double line : row.barLines) {
            const double left = ink.box.right - (line - gap);
            const double right = line + lineWidth + gap - ink.box.left;
            if (left <= 0 || right <= 0)
                continue;
            // Behind the last line is no room.
            const bool goesLeft = left <= right || line == row.barLines.back();
            const double way = goesLeft ? -left : right;
            const Box there = ink.box.movedBy(way, 0);
            const bool meets =
                item.line != 0 && std::any_of(all.begin(), all.end(), [&](const SideItem &other) {
                    return &other != &item && other.line == item.line
                        && std::any_of(other.inks.begin(), other.inks.end(), [&](const Ink &word) {
                               return there.left < word.box.right + gap
                                   && word.box.left < there.right + gap;
                           });
                });
            if (std::abs(way) <= farthest && !meets)
                ink.move(way, 0);
            break;
        }
    }
}

/// What may stand on either side of its row leaves the room between rows to the beams there.
void clearBeams(const RowDraft &row, SideItem &item)
{
    if (item.inks.empty())
        return;
    const MarkKind kind = item.inks.front().kind;
    if (kind == MarkKind::Lyric || kind == MarkKind::Tuplet)
        return;
    const Box box = boxOf(item.inks);
    item.side = openSide(row, item.side, box.left, box.right);
}

/// Where words of a kind stand that want to stand at a height, or farther outwards.
double heightOfWords(RowDraft &row, int words, Side side, double y)
{
    const double outwards = side == Side::Above ? -1 : 1;
    const int key = 2 * words + (side == Side::Below ? 1 : 0);
    const double wanted = outwards * y;
    row.wantedHeights[key] = wanted;
    const auto given = row.givenHeights.find(key);
    return given != row.givenHeights.end() ? outwards * std::max(wanted, given->second) : y;
}

} // namespace

Side openSide(const RowDraft &row, Side wish, double left, double right)
{
    const auto hasBeams = [&](Side side) {
        const auto &beams = side == Side::Above ? row.beamsAbove : row.beamsBelow;
        return std::any_of(beams.begin(), beams.end(), [&](const std::pair<double, double> &beam) {
            return left < beam.second && right > beam.first;
        });
    };
    const Side other = wish == Side::Above ? Side::Below : Side::Above;
    return hasBeams(wish) && !hasBeams(other) ? other : wish;
}

void partNeighbours(SideItems &items, int line, double gap)
{
    constexpr int byItself = -1;
    std::vector<Box> taken;
    for (SideItem &item : items) {
        if (item.line != line || item.inks.empty())
            continue;
        const Box box = boxOf(item.inks);
        const bool isFree = std::none_of(taken.begin(), taken.end(), [&](const Box &other) {
            return box.left < other.right + gap && other.left < box.right + gap;
        });
        if (isFree)
            taken.push_back(box);
        else
            item.line = byItself;
    }
    std::stable_partition(items.begin(), items.end(),
                          [](const SideItem &item) { return item.line != byItself; });
    for (SideItem &item : items)
        item.line = std::max(item.line, 0);
}

void place(RowDraft &row, SideItems items, int words)
{
    for (SideItem &item : items)
        clearBeams(row, item);
    for (SideItem &item : items)
        clearBarLines(row, item, items);
    partNeighbours(items, stretchLine, 0.4);
    std::map<std::pair<int, Side>, double> lines;
    for (const SideItem &item : items) {
        if (item.line == 0 || item.inks.empty())
            continue;
        const double y = baseLine(row, item);
        const auto [entry, isNew] = lines.emplace(std::make_pair(item.line, item.side), y);
        if (!isNew)
            entry->second =
                item.side == Side::Above ? std::min(entry->second, y) : std::max(entry->second, y);
    }
    if (words > 0)
        for (auto &[line, y] : lines)
            y = heightOfWords(row, words, line.second, y);
    for (SideItem &item : items) {
        if (item.inks.empty())
            continue;
        double y = item.line == 0 ? baseLine(row, item) : lines[{item.line, item.side}];
        move(item.inks, 0, y);
        row.add(std::move(item.inks));
    }
}

void keepOnLine(Inks &inks, const SystemDraft &draft)
{
    if (inks.empty())
        return;
    const Box box = boxOf(inks);
    if (box.right > draft.right)
        move(inks, -std::min(box.right - draft.right, std::max(0.0, box.left - draft.staffLeft)),
             0);
}

const Ink &inkOf(const SystemDraft &draft, const RowDraft &row, const PlacedChord &chord,
                 std::uint32_t number)
{
    return draft.score.bar(row.number, chord.shownBar).inks[number];
}

double leftInkOf(const SystemDraft &draft, const RowDraft &row, const PlacedChord &chord)
{
    double left = chord.x;
    for (std::uint32_t i = chord.chord->firstInk; i < chord.chord->inkEnd; ++i)
        left = std::min(left, chord.x + inkOf(draft, row, chord, i).box.left);
    return left;
}

double rightInkOf(const SystemDraft &draft, const RowDraft &row, const PlacedChord &chord)
{
    double right = rightOf(chord);
    for (std::uint32_t i = chord.chord->firstInk; i < chord.chord->inkEnd; ++i)
        if (const Ink &ink = inkOf(draft, row, chord, i); ink.kind != MarkKind::LedgerLine)
            right = std::max(right, chord.x + ink.box.right);
    return right;
}

double rightOf(const PlacedChord &chord)
{
    double right = chord.x + chord.chord->width;
    for (const Head &head : chord.chord->heads)
        right = std::max(right, chord.x + head.x + head.width);
    return right;
}

MarkPlace placeOf(const RowDraft &row, const PlacedChord &chord, int note)
{
    MarkPlace place;
    place.track = static_cast<std::int16_t>(row.row->track);
    place.staff = static_cast<std::int8_t>(row.row->staff);
    place.bar = static_cast<std::int32_t>(chord.bar);
    place.voice = static_cast<std::int8_t>(chord.chord->voice);
    place.beat = static_cast<std::int16_t>(chord.beat().index);
    place.note = static_cast<std::int16_t>(note);
    return place;
}

std::vector<const PlacedChord *> carriersOf(const RowDraft &row)
{
    std::vector<const PlacedChord *> carriers;
    carriers.reserve(row.chords.size() + row.silent.size());
    for (const PlacedChord &chord : row.chords)
        carriers.push_back(&chord);
    for (const PlacedChord &chord : row.silent)
        carriers.push_back(&chord);
    const auto order = [](const PlacedChord *chord) {
        return std::make_tuple(chord->chord->voice, chord->shownBar, chord->beat().index);
    };
    if (!row.silent.empty())
        std::stable_sort(carriers.begin(), carriers.end(),
                         [&](const PlacedChord *left, const PlacedChord *right) {
                             return order(left) < order(right);
                         });
    return carriers;
}

const PlacedChord *nextChord(const RowDraft &row, std::size_t number)
{
    const bool hasNext = number + 1 < row.chords.size()
        && row.chords[number + 1].chord->voice == row.chords[number].chord->voice;
    return hasNext ? &row.chords[number + 1] : nullptr;
}

} // namespace zarn::engraving
