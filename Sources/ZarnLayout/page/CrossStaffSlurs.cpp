// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/CrossStaffSlurs.h>

#include <ZarnLayout/page/InkField.h>
#include <ZarnLayout/page/NumberedSlurs.h>
#include <ZarnLayout/page/SideItem.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

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
            const double covered = field.coveredBy(bent, margin, least);
            if (covered < least) {
                least = covered;
                bow = bent;
            }
        }
    return bow;
}

/// Where a curve may begin or end at a chord, and what that costs.
struct End {
    Point at;
    double cost = 0;
};

/// The ends at a chord: on the side that faces the other staff, where nothing speaks against it,
/// beside the nearest head, or on the far side.
std::vector<End> endsAt(const RowDraft &row, const PlacedChord &chord, bool isFirst, bool facesDown)
{
    constexpr double aside = 0.3;
    std::vector<End> ends;
    const double x = chord.headCentre() + (isFirst ? 0.2 : -0.2);
    const auto addOutside = [&](bool isBelow, double off, double cost) {
        const double y = isBelow ? chord.bottom() + off : chord.top() - off;
        ends.push_back({{x, row.y + y}, cost});
    };
    // Rather at the heads than at the end of a stem.
    const bool isStemThere =
        !chord.chord->isRest() && chord.chord->hasStem && chord.chord->isStemUp != facesDown;
    for (const double off : {0.4, 1.2, 2.4})
        addOutside(facesDown, off, off - 0.4 + (isStemThere ? 0.5 : 0));
    if (!chord.chord->isRest()) {
        const double y = facesDown ? chord.chord->bottom() : chord.chord->top();
        ends.push_back({{isFirst ? rightOf(chord) + aside : chord.x - aside, row.y + y}, 0.3});
    }
    for (const double off : {0.4, 1.5})
        addOutside(!facesDown, off, off + (isStemThere ? 0 : 0.6));
    return ends;
}

/// The best of the curves between two chords of different staves. It bends to one side, like other
/// slurs, the one that is given if there is one; to and fro only where all else lies on ink.
Bow bestCrossing(const NumberedSlur &slur, const InkField &field)
{
    const bool isDown = slur.lastRow->y > slur.firstRow->y;
    const auto froms = endsAt(*slur.firstRow, slur.firstRow->chords[slur.first], true, isDown);
    const auto tos = endsAt(*slur.lastRow, slur.lastRow->chords[slur.last], false, !isDown);
    // Of the usual height; below 0 to the other side.
    constexpr std::array<double, 12> parts = {0.4,  0.7,  1,  1.5,  2.2,  3,
                                              -0.4, -0.7, -1, -1.5, -2.2, -3};
    constexpr double turnCost = 2.5;
    constexpr double inkCost = 25;
    const bool isBelow = slur.side == SlurSide::Below;
    const double otherSideCost = slur.side == SlurSide::Auto ? 0.25 : 1;
    Bow best;
    double least = 1e9;
    for (const End &start : froms)
        for (const End &end : tos) {
            Bow bow = {start.at, end.at};
            bow.to.x = std::max(bow.to.x, bow.from.x + 0.8);
            bow.isTilted = true;
            const double usual = std::clamp(0.6 + 0.1 * bow.length(), 0.8, 3.0) * 4 / 3;
            for (const double from : parts)
                for (const double to : parts) {
                    const double cost = start.cost + end.cost
                        + 0.4 * (std::abs(std::abs(from) - 1) + std::abs(std::abs(to) - 1))
                        + (from * to < 0 ? turnCost : 0.6 * std::abs(from - to))
                        + ((isBelow ? from > 0 : from < 0) ? otherSideCost : 0);
                    if (cost >= least)
                        continue;
                    bow.fromRise = usual * from;
                    bow.toRise = usual * to;
                    const double whole =
                        cost + inkCost * field.coveredBy(bow, 0.1, (least - cost) / inkCost);
                    if (whole < least) {
                        least = whole;
                        best = bow;
                    }
                }
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
            Ink curve = draft.pen.slur(bow, slur.line);
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
