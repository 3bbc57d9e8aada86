// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/UprightCutter.h>

#include <ZarnLayout/engrave/Bow.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

namespace zarn::engraving {

namespace {

/// From one height to another, downwards.
struct BlockedStretch {
    double top;
    double bottom;
};

/// Arpeggios and brushes, and the steep lines of bends; all of them lead up or down throughout.
bool isUpright(const Ink &ink)
{
    constexpr double steep = 1.5;
    if (ink.shape != Ink::Shape::Line || ink.points.size() < 2)
        return false;
    return ink.kind == MarkKind::Arpeggio
        || (ink.kind == MarkKind::Bend && ink.box.height() > steep * ink.box.width());
}

bool leadsOn(const Ink &ink)
{
    return (ink.kind == MarkKind::Tie || ink.kind == MarkKind::Slur
            || ink.kind == MarkKind::HammerOn || ink.kind == MarkKind::Slide)
        && ink.points.size() > 1;
}

/// Points along a line or curve.
Points wayOf(const Ink &ink)
{
    if (ink.shape != Ink::Shape::Curve || ink.points.size() != 4)
        return ink.points;
    constexpr int steps = 32;
    Points way;
    for (int i = 0; i <= steps; ++i)
        way.push_back(pointOn({ink.points[0], ink.points[1], ink.points[2], ink.points[3]},
                              static_cast<double>(i) / steps));
    return way;
}

/// Where ink leads past an upright stroke from its left to its right; nothing where it begins or
/// ends there, or runs along it.
std::optional<BlockedStretch> passage(const Ink &ink, const Box &upright)
{
    constexpr double gap = 0.2;
    constexpr double tallest = 2.5;
    if (!ink.box.meets(upright))
        return std::nullopt;
    const Points way = wayOf(ink);
    if (way.front().x >= upright.left || way.back().x <= upright.right)
        return std::nullopt;
    BlockedStretch stretch = {1e9, -1e9};
    for (std::size_t i = 1; i < way.size(); ++i) {
        const Point &from = way[i - 1];
        const Point &to = way[i];
        if (to.x <= upright.left || from.x >= upright.right || to.x <= from.x)
            continue;
        for (const double x : {std::max(from.x, upright.left), std::min(to.x, upright.right)}) {
            const double y = from.y + (to.y - from.y) * (x - from.x) / (to.x - from.x);
            stretch.top = std::min(stretch.top, y);
            stretch.bottom = std::max(stretch.bottom, y);
        }
    }
    const double half = ink.thickness / 2 + gap;
    if (stretch.bottom - stretch.top > tallest || stretch.bottom + half < upright.top
        || stretch.top - half > upright.bottom)
        return std::nullopt;
    return BlockedStretch{stretch.top - half, stretch.bottom + half};
}

/// The part of a line from top to bottom that lies in a stretch.
Points clipped(const Points &line, const BlockedStretch &stretch)
{
    Points part;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Point &from = line[i - 1];
        const Point &to = line[i];
        if (to.y < stretch.top || from.y > stretch.bottom)
            continue;
        const auto at = [&](double y) {
            return Point{from.x + (to.x - from.x) * (y - from.y) / (to.y - from.y), y};
        };
        if (part.empty())
            part.push_back(from.y < stretch.top ? at(stretch.top) : from);
        part.push_back(to.y > stretch.bottom ? at(stretch.bottom) : to);
    }
    return part;
}

/// What is left of a stroke between its cuts; the whole of it where too little would be left.
Inks pieces(const Ink &upright, std::vector<BlockedStretch> cuts, const Pen &pen)
{
    constexpr double shortest = 0.4;
    Points line = upright.points;
    if (line.front().y > line.back().y)
        std::reverse(line.begin(), line.end());
    std::sort(cuts.begin(), cuts.end(),
              [](const BlockedStretch &left, const BlockedStretch &right) {
                  return left.top < right.top;
              });
    Inks left;
    double top = line.front().y;
    const auto addUpTo = [&](double bottom) {
        if (bottom - top < shortest)
            return;
        Ink piece = pen.polyline(upright.kind, clipped(line, {top, bottom}), upright.thickness);
        piece.place = upright.place;
        left.push_back(std::move(piece));
    };
    for (const BlockedStretch &cut : cuts) {
        addUpTo(cut.top);
        top = std::max(top, cut.bottom);
    }
    addUpTo(line.back().y);
    return left.empty() ? Inks{upright} : left;
}

} // namespace

void cutUprights(RowDraft &row, const SystemDraft &draft)
{
    if (std::none_of(row.inks.begin(), row.inks.end(), isUpright))
        return;
    std::vector<const Ink *> ways;
    for (const Ink &ink : row.inks)
        if (leadsOn(ink))
            ways.push_back(&ink);
    if (ways.empty())
        return;
    Inks more;
    for (Ink &ink : row.inks) {
        std::vector<BlockedStretch> cuts;
        if (isUpright(ink))
            for (const Ink *way : ways)
                if (const auto cut = passage(*way, ink.box))
                    cuts.push_back(*cut);
        if (cuts.empty())
            continue;
        Inks left = pieces(ink, std::move(cuts), draft.pen);
        ink = std::move(left.front());
        std::move(left.begin() + 1, left.end(), std::back_inserter(more));
    }
    std::move(more.begin(), more.end(), std::back_inserter(row.inks));
}

} // namespace zarn::engraving
