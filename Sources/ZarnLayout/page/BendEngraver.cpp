// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BendEngraver.h>

#include <ZarnLayout/page/SideItem.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

namespace zarn::engraving {

namespace {

/// In whole tones: "½", "1¾".
std::string amountText(int quarterTones)
{
    const int value = std::abs(quarterTones);
    constexpr std::array<const char *, 4> parts = {"", "\u00BC", "\u00BD", "\u00BE"};
    const int whole = value / 4;
    const std::string text = (whole > 0 ? std::to_string(whole) : std::string())
        + parts[static_cast<std::size_t>(value % 4)];
    return (quarterTones < 0 ? "-" : "") + (text.empty() ? "0" : text);
}

std::string bendText(int quarterTones)
{
    return std::abs(quarterTones) == 4 ? "full" : amountText(quarterTones);
}

} // namespace

void addBends(RowDraft &row, const SystemDraft &draft)
{
    const Pen &pen = draft.pen;
    if (row.row->isLastOfStaff)
        for (std::size_t i = 0; i < row.chords.size(); ++i) {
            const PlacedChord &chord = row.chords[i];
            for (const Head &head : chord.chord->heads) {
                if (chord.beat().noteCount == 0)
                    break;
                const NoteSource &note = chord.note(head);
                if (!note.details || note.details->bend.type == BendType::NoBend)
                    continue;
                // From the number up to a height over the staff, an arrow at each turn.
                const PlacedChord *next = nextChord(row, i);
                const auto &points = note.details->bend.curve.points();
                const double left = chord.x + head.x + head.width + 0.15;
                const double room = next ? next->x - 0.5 : draft.right - 0.5;
                const double right = std::max(std::min(room, left + 6), left + 1.5);
                const double high = std::min(-row.above.reach(left - 0.5, right + 0.5) - 0.6, -1.4);
                const MarkPlace where = placeOf(row, chord, head.note - chord.beat().firstNote);
                Inks inks;
                int farthest = 0;
                for (const CurvePoint &point : points)
                    farthest = std::max(farthest, std::abs(point.value));
                // What is bent less than the rest of it ends lower.
                const auto yOf = [&](int value) {
                    return value == 0                 ? head.y
                        : std::abs(value) == farthest ? high
                                                      : std::min(high + 1.1, head.y - 0.8);
                };
                const auto addArrow = [&](double x, double y, bool isUp) {
                    const double back = isUp ? 0.75 : -0.75;
                    inks.push_back(pen.polygon(MarkKind::Bend,
                                               {{x, y}, {x - 0.3, y + back}, {x + 0.3, y + back}}));
                };
                double labelEnd = -1e9;
                const auto addLabel = [&](double x, int value) {
                    Ink label = pen.text(MarkKind::Bend, TextRole::Letter, bendText(value), x,
                                         high - 0.35, Pen::Align::Centre);
                    label.move(std::max(0.0, labelEnd + 0.3 - label.box.left), 0);
                    labelEnd = label.box.right;
                    inks.push_back(std::move(label));
                };
                struct Turn {
                    double x;
                    int value;
                };
                std::vector<Turn> turns;
                for (const CurvePoint &point : points)
                    if (turns.empty() || point.value != turns.back().value)
                        turns.push_back(
                            {left + (right - left) * point.position / 60.0, point.value});
                // Turns keep their distance, so that arrows and numbers are apart.
                for (std::size_t k = 1; k < turns.size(); ++k)
                    turns[k].x = std::max(turns[k].x, turns[k - 1].x + 1.5);
                if (!turns.empty() && turns.front().value != 0) {
                    turns.front().x = left + 0.2;
                    const double top = yOf(turns.front().value);
                    inks.push_back(pen.line(MarkKind::Bend, {left + 0.2, head.y},
                                            {left + 0.2, top + 0.6}, 0.14));
                    addArrow(left + 0.2, top, true);
                    addLabel(left + 0.2, turns.front().value);
                }
                for (std::size_t k = 1; k < turns.size(); ++k) {
                    const bool isUp = turns[k].value > turns[k - 1].value;
                    const Point from = {turns[k - 1].x, yOf(turns[k - 1].value)};
                    const Point to = {turns[k].x, yOf(turns[k].value)};
                    const double stop = to.y + (isUp ? 0.6 : -0.6);
                    std::vector<Point> arc;
                    constexpr int steps = 12;
                    for (int s = 0; s <= steps; ++s) {
                        const double t = static_cast<double>(s) / steps;
                        arc.push_back({from.x + (to.x - from.x) * (1 - (1 - t) * (1 - t)),
                                       from.y + (stop - from.y) * t * t});
                    }
                    inks.push_back(pen.polyline(MarkKind::Bend, std::move(arc), 0.14));
                    addArrow(to.x, to.y, isUp);
                    if (isUp)
                        addLabel(to.x, turns[k].value);
                }
                for (Ink &ink : inks) {
                    ink.place = where;
                    row.add(std::move(ink));
                }
            }
        }
    if (!row.row->isLastOfStaff)
        return;
    SideItems items;
    for (std::size_t i = 0; i < row.chords.size(); ++i) {
        const PlacedChord &chord = row.chords[i];
        const auto &details = chord.beat().details;
        if (!details || details->whammyBar.type == WhammyBarType::NoWhammyBar)
            continue;
        const PlacedChord *next = nextChord(row, i);
        const auto &points = details->whammyBar.curve.points();
        const double left = chord.headCentre();
        const double barEnd = draft.bars[chord.shownBar - draft.first].right - 0.3;
        const double right =
            std::min(std::max(std::min(next ? next->x - 0.5 : barEnd, left + 8), left + 2),
                     std::max(barEnd, left + 0.8));
        int extreme = 0;
        for (const CurvePoint &point : points)
            if (std::abs(point.value) > std::abs(extreme))
                extreme = point.value;
        SideItem item;
        item.gap = 0.6;
        std::vector<Point> line;
        for (const CurvePoint &point : points) {
            const double depth = extreme == 0 ? 0 : 1.4 * point.value / std::abs(extreme);
            line.push_back({left + (right - left) * point.position / 60.0, -1.4 - depth});
        }
        if (line.size() > 1)
            item.inks.push_back(pen.polyline(MarkKind::Whammy, std::move(line), 0.14));
        Ink text = pen.text(MarkKind::Whammy, TextRole::Letter, "w/bar " + amountText(extreme),
                            left, -3.2);
        const double barLeft = draft.bars[chord.shownBar - draft.first].left;
        if (text.box.right > barEnd)
            text.move(std::max(barLeft - text.box.left, barEnd - text.box.right), 0);
        item.inks.push_back(std::move(text));
        for (Ink &ink : item.inks)
            ink.place = placeOf(row, chord);
        items.push_back(std::move(item));
    }
    place(row, std::move(items));
}

} // namespace zarn::engraving
