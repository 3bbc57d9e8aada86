// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/CrossStaffSlurs.h>

#include <ZarnLayout/page/InkField.h>
#include <ZarnLayout/page/NumberedSlurs.h>
#include <ZarnLayout/page/SideItem.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::engraving {

namespace {

/// A curve that is nearly free, bent little by little as long as that takes it off more ink.
Bow refined(Bow bow, const InkField &field)
{
    constexpr double margin = 0.1;
    // Rises and heights of both ends.
    static constexpr double ways[][4] = {
        {1, 0, 0, 0},  {-1, 0, 0, 0},  {0, 1, 0, 0},    {0, -1, 0, 0},  {1, -1, 0, 0},
        {-1, 1, 0, 0}, {0, 0, 0.4, 0}, {0, 0, -0.4, 0}, {0, 0, 0, 0.4}, {0, 0, 0, -0.4}};
    double least = field.coveredBy(bow, margin);
    for (double step = 1; step > 0.1 && least > 0; step /= 2)
        for (const auto &way : ways) {
            Bow bent = bow;
            bent.fromRise += step * way[0];
            bent.toRise += step * way[1];
            bent.from.y += step * way[2];
            bent.to.y += step * way[3];
            const double covered = field.coveredBy(bent, margin);
            if (covered < least) {
                least = covered;
                bow = bent;
            }
        }
    return bow;
}

/// The best of the curves between two chords of different staves: from either side of each.
Bow bestCrossing(const NumberedSlur &slur, const InkField &field)
{
    const PlacedChord &first = slur.firstRow->chords[slur.first];
    const PlacedChord &last = slur.lastRow->chords[slur.last];
    const bool isDown = slur.lastRow->y > slur.firstRow->y;
    constexpr std::array<double, 14> rises = {-10, -7,  -5,  -3.5, -2.5, -1.6, -0.8,
                                              0.8, 1.6, 2.5, 3.5,  5,    7,    10};
    Bow best;
    double least = 1e9;
    const auto tryBetween = [&](Point from, Point to, double extra) {
        for (const double fromRise : rises)
            for (const double toRise : rises) {
                const double cost = extra
                    + 0.08 * (std::abs(fromRise + toRise) + std::abs(fromRise - toRise))
                    + (fromRise * toRise < 0 ? 0.5 : 0);
                if (cost >= least)
                    continue;
                const Bow bow = {from, to, fromRise, toRise};
                const double whole = cost + 25 * field.coveredBy(bow, 0.1);
                if (whole < least) {
                    least = whole;
                    best = bow;
                }
            }
    };
    const auto endAt = [](const PlacedChord &chord, double x, double y, bool isBelow, double off) {
        return Point{x, y + (isBelow ? chord.bottom() + off : chord.top() - off)};
    };
    for (const double off : {0.4, 1.5, 3.0})
        for (const bool fromBelow : {isDown, !isDown})
            for (const bool toBelow : {!isDown, isDown}) {
                // From the sides that face one another, where nothing speaks against it.
                const double turned =
                    (fromBelow != isDown ? 1.0 : 0.0) + (toBelow == isDown ? 1.0 : 0.0);
                const double x = first.headCentre() + 0.2;
                tryBetween(endAt(first, x, slur.firstRow->y, fromBelow, off),
                           endAt(last, std::max(last.headCentre() - 0.2, x + 1), slur.lastRow->y,
                                 toBelow, off),
                           turned + off - 0.4);
            }
    return refined(best, field);
}

/// Interrupts a hairpin where a slur between staves crosses it: neither can go around the other.
void interruptHairpins(RowDraft &row, const std::vector<Point> &curve)
{
    constexpr double gap = 0.3;
    Inks pieces;
    for (Ink &ink : row.inks) {
        if (ink.kind != MarkKind::Hairpin || ink.shape != Ink::Shape::Line
            || ink.points.size() != 2)
            continue;
        const Point from = ink.points[0];
        const Point to = ink.points[1];
        double left = 1e9;
        double right = -1e9;
        for (std::size_t i = 1; i < curve.size(); ++i) {
            const double x = (curve[i - 1].x + curve[i].x) / 2;
            if (to.x <= from.x || x < from.x || x > to.x)
                continue;
            const double y = row.y + from.y + (to.y - from.y) * (x - from.x) / (to.x - from.x);
            if (y > std::min(curve[i - 1].y, curve[i].y) - gap
                && y < std::max(curve[i - 1].y, curve[i].y) + gap) {
                left = std::min(left, curve[i - 1].x - gap);
                right = std::max(right, curve[i].x + gap);
            }
        }
        if (right < left)
            continue;
        const auto at = [&](double x) {
            return Point{x, from.y + (to.y - from.y) * (x - from.x) / (to.x - from.x)};
        };
        const auto cutTo = [](Ink piece, Point start, Point end) {
            piece.points = {start, end};
            piece.box = {start.x, std::min(start.y, end.y) - piece.thickness / 2, end.x,
                         std::max(start.y, end.y) + piece.thickness / 2};
            return piece;
        };
        const bool hasLeft = left > from.x + 0.2;
        const bool hasRight = right < to.x - 0.2;
        if (hasLeft && hasRight)
            pieces.push_back(cutTo(ink, at(right), to));
        if (hasLeft)
            ink = cutTo(std::move(ink), from, at(left));
        else if (hasRight)
            ink = cutTo(std::move(ink), at(right), to);
    }
    row.inks.insert(row.inks.end(), pieces.begin(), pieces.end());
}

} // namespace

void addCrossStaffSlurs(SystemDraft &draft)
{
    Inks curves;
    for (std::size_t i = 0; i < draft.rows.size(); ++i) {
        const unsigned track = draft.rows[i].row->track;
        if (i > 0 && draft.rows[i - 1].row->track == track)
            continue;
        for (const NumberedSlur &slur : numberedSlurs(draft, track)) {
            if (!slur.firstRow || !slur.lastRow || slur.firstRow == slur.lastRow)
                continue;
            InkField field;
            for (const RowDraft &row : draft.rows)
                if (row.row->track == track)
                    field.add(row.inks, row.y);
            const Bow bow = bestCrossing(slur, field);
            Ink curve = draft.pen.curve(MarkKind::Slur, bow.handles());
            curve.place = placeOf(*slur.firstRow, slur.firstRow->chords[slur.first]);
            curves.push_back(std::move(curve));
            const std::vector<Point> points = bow.samples(200);
            for (RowDraft &row : draft.rows)
                if (row.row->track == track)
                    interruptHairpins(row, points);
        }
    }
    draft.inks.insert(draft.inks.end(), curves.begin(), curves.end());
}

} // namespace zarn::engraving
