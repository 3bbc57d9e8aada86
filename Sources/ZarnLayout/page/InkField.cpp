// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/InkField.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::engraving {

namespace {

/// What a curve does wrong when it lies on a mark; 0 for what it may lie on.
float weightOf(MarkKind kind)
{
    switch (kind) {
    case MarkKind::StaffLine:
    case MarkKind::LedgerLine:
    case MarkKind::SystemLine:
    case MarkKind::BarLine:
    case MarkKind::Brace:
    case MarkKind::Bracket:
    case MarkKind::Tie:
    case MarkKind::Slur:
        return 0;
    case MarkKind::Stem:
    case MarkKind::GraceSlash:
        return 0.5F;
    case MarkKind::Beam:
    case MarkKind::Tremolo:
    case MarkKind::Hairpin:
    case MarkKind::HammerOn:
        return 0.6F;
    default:
        return 1;
    }
}

} // namespace

void InkField::add(const Inks &inks, double y)
{
    for (const Ink &ink : inks)
        add(ink, y);
}

void InkField::add(const Ink &ink, double y)
{
    const float weight = weightOf(ink.kind);
    if (weight == 0)
        return;
    const auto addEdge = [&](const Point &from, const Point &to, double half) {
        const bool isForward = from.x <= to.x;
        const Point &left = isForward ? from : to;
        const Point &right = isForward ? to : from;
        // A line that stands is as wide as it is thick.
        const double side = right.x - left.x < 2 * half ? half : 0;
        const double top = std::min(left.y, right.y) + y;
        const double bottom = std::max(left.y, right.y) + y;
        if (side > 0)
            add({left.x - side, right.x + side, {top, top}, {bottom, bottom}, weight, false});
        else
            add({left.x,
                 right.x,
                 {left.y + y - half, right.y + y - half},
                 {left.y + y + half, right.y + y + half},
                 weight,
                 false});
    };
    // Upwards and downwards a line is the thicker the steeper it is.
    const auto addLine = [&](const Point &from, const Point &to, double half) {
        const double width = std::abs(to.x - from.x);
        const bool stands = width < 2 * half;
        addEdge(from, to, stands ? half : half * std::hypot(width, to.y - from.y) / width);
    };
    if (ink.shape == Ink::Shape::Line) {
        for (std::size_t i = 1; i < ink.points.size(); ++i)
            addLine(ink.points[i - 1], ink.points[i], ink.thickness / 2);
    } else if (ink.shape == Ink::Shape::Polygon && ink.points.size() == 4
               && ink.points[0].x == ink.points[3].x && ink.points[1].x == ink.points[2].x) {
        const Point middle[2] = {{ink.points[0].x, (ink.points[0].y + ink.points[3].y) / 2},
                                 {ink.points[1].x, (ink.points[1].y + ink.points[2].y) / 2}};
        addEdge(middle[0], middle[1], std::abs(ink.points[3].y - ink.points[0].y) / 2);
    } else {
        const Box box = ink.box.movedBy(0, y);
        // The strokes beside a breve fill the corners of its box.
        constexpr double tallestRound = 1.1;
        const bool isRound = (ink.kind == MarkKind::NoteHead && box.height() < tallestRound)
            || ink.kind == MarkKind::AugmentationDot;
        add({box.left, box.right, {box.top, box.top}, {box.bottom, box.bottom}, weight, isRound});
    }
}

void InkField::add(const Bow &bow)
{
    constexpr double half = 0.1; ///< of its thickness
    const std::vector<Point> points = bow.samples();
    for (std::size_t i = 1; i < points.size(); ++i) {
        const Point &from = points[i - 1];
        const Point &to = points[i];
        add({from.x, to.x, {from.y - half, to.y - half}, {from.y + half, to.y + half}, 1, false});
    }
}

std::size_t InkField::binOf(double x)
{
    return static_cast<std::size_t>(std::clamp(x / binWidth, 0.0, 1e6));
}

void InkField::add(const Obstacle &obstacle)
{
    const std::size_t last = binOf(obstacle.right + 0.5);
    if (last >= _bins.size())
        _bins.resize(last + 1);
    for (std::size_t bin = binOf(obstacle.left - 0.5); bin <= last; ++bin)
        _bins[bin].push_back(obstacle);
}

bool InkField::isFree(const Box &box) const
{
    const std::size_t last = binOf(box.right);
    for (std::size_t bin = binOf(box.left); bin <= last && bin < _bins.size(); ++bin)
        for (const Obstacle &obstacle : _bins[bin]) {
            const double left = std::max(box.left, obstacle.left);
            const double right = std::min(box.right, obstacle.right);
            if (left >= right)
                continue;
            // Of straight edges the ends of the stretch that both share are the outermost.
            const double width = std::max(obstacle.right - obstacle.left, 1e-6);
            double top = 1e9;
            double bottom = -1e9;
            for (const double x : {left, right}) {
                const double part = (x - obstacle.left) / width;
                top = std::min(top, obstacle.top[0] + (obstacle.top[1] - obstacle.top[0]) * part);
                bottom = std::max(
                    bottom, obstacle.bottom[0] + (obstacle.bottom[1] - obstacle.bottom[0]) * part);
            }
            if (top < box.bottom && bottom > box.top)
                return false;
        }
    return true;
}

double InkField::coveredBy(const Strip &strip, double margin) const
{
    const std::size_t bin = binOf(strip.x);
    if (bin >= _bins.size())
        return 0;
    double area = 0;
    for (const Obstacle &obstacle : _bins[bin]) {
        if (strip.x < obstacle.left - margin || strip.x > obstacle.right + margin
            || strip.bottom <= std::min(obstacle.top[0], obstacle.top[1]) - margin
            || strip.top >= std::max(obstacle.bottom[0], obstacle.bottom[1]) + margin)
            continue;
        const double width = std::max(obstacle.right - obstacle.left, 1e-6);
        const double across = std::clamp((strip.x - obstacle.left) / width, 0.0, 1.0);
        double top = obstacle.top[0] + (obstacle.top[1] - obstacle.top[0]) * across - margin;
        double bottom =
            obstacle.bottom[0] + (obstacle.bottom[1] - obstacle.bottom[0]) * across + margin;
        if (obstacle.isRound) {
            const double off = std::abs(2 * across - 1);
            const double cut = (bottom - top) / 2 * (1 - std::sqrt(1 - std::min(off * off, 0.99)));
            top += cut;
            bottom -= cut;
        }
        const double height = std::min(bottom, strip.bottom) - std::max(top, strip.top);
        if (height > 0)
            area += height * strip.width * obstacle.weight;
    }
    return area;
}

double InkField::coveredBy(const Bow &bow, double margin, double worthKnowing) const
{
    const std::array<Point, 4> handles = bow.handles();
    const std::size_t count = bow.sampleCount();
    Point begin = pointOn(handles, 0);
    double area = 0;
    for (std::size_t i = 1; i <= count; ++i) {
        const Point end = pointOn(handles, static_cast<double>(i) / static_cast<double>(count));
        const double y = (begin.y + end.y) / 2;
        const double part = static_cast<double>(i) / static_cast<double>(count + 1);
        const double half = 0.05 + 0.06 * 4 * part * (1 - part)
            + std::abs(end.y - begin.y) / 2; // a steep piece covers its height
        area +=
            coveredBy(Strip{(begin.x + end.x) / 2, end.x - begin.x, y - half, y + half}, margin);
        if (area > worthKnowing)
            return plenty;
        begin = end;
    }
    return area;
}

double InkField::coveredBy(const Ink &ink, double margin) const
{
    constexpr double step = 0.2;
    double area = 0;
    const auto addPiece = [&](const Point &from, const Point &to, double half) {
        const double width = std::abs(to.x - from.x);
        const int count = std::max(1, static_cast<int>(std::ceil(width / step)));
        for (int i = 0; i < count; ++i) {
            const auto at = [&](int number) {
                const double part = static_cast<double>(number) / count;
                return Point{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
            };
            const Point begin = at(i);
            const Point end = at(i + 1);
            // What stands upright is as wide as it is thick.
            area +=
                coveredBy(Strip{(begin.x + end.x) / 2, std::max(width / count, 2 * half),
                                std::min(begin.y, end.y) - half, std::max(begin.y, end.y) + half},
                          margin);
        }
    };
    if (ink.shape == Ink::Shape::Line) {
        for (std::size_t i = 1; i < ink.points.size(); ++i)
            addPiece(ink.points[i - 1], ink.points[i], ink.thickness / 2);
    } else {
        const Box &box = ink.box;
        const int count = std::max(1, static_cast<int>(std::ceil(box.width() / step)));
        for (int i = 0; i < count; ++i)
            area += coveredBy(Strip{box.left + box.width() * (i + 0.5) / count, box.width() / count,
                                    box.top, box.bottom},
                              margin);
    }
    return area;
}

double InkField::coveredBy(const Inks &inks, double margin) const
{
    double area = 0;
    for (const Ink &ink : inks)
        area += coveredBy(ink, margin);
    return area;
}

const InkField &GrowingInkField::now()
{
    for (; _known < _inks.size(); ++_known)
        addOne(_inks[_known]);
    return _field;
}

void GrowingInkField::add(const Inks &inks)
{
    for (const Ink &ink : inks)
        addOne(ink);
}

void GrowingInkField::addOne(const Ink &ink)
{
    if (std::find(_leftOut.begin(), _leftOut.end(), ink.kind) == _leftOut.end())
        _field.add(ink);
}

} // namespace zarn::engraving
