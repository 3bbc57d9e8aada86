// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/LinePartBuilder.h>

#include <ZarnLayout/page/BarLines.h>
#include <ZarnLayout/page/CrossStaffSlurs.h>
#include <ZarnLayout/page/RowEngravers.h>
#include <ZarnLayout/page/RowHangers.h>
#include <ZarnLayout/page/SystemHead.h>

#include <algorithm>
#include <utility>

namespace zarn::engraving {

namespace {

/// So far staff lines lead into the next part: no seam is seen where one ends on a pixel's edge.
constexpr double overlap = 0.05;

/// Slurs that come from farther away are not looked at as a whole by the parts below them.
constexpr unsigned mostBarsAround = 16;

std::size_t partOf(const std::vector<LinePartPlace> &parts, unsigned shownBar)
{
    const auto behind =
        std::upper_bound(parts.begin(), parts.end(), shownBar,
                         [](unsigned bar, const LinePartPlace &part) { return bar < part.first; });
    return static_cast<std::size_t>(behind - parts.begin()) - 1;
}

template <class Visit>
void eachInk(const SystemDraft &draft, const Visit &visit)
{
    for (const RowDraft &row : draft.rows)
        for (const Ink &ink : row.inks)
            visit(ink);
    for (const Ink &ink : draft.inks)
        visit(ink);
}

} // namespace

/// `origin` is where part `window.first` begins.
SystemDraft LinePartBuilder::draftOf(const std::vector<LinePartPlace> &parts,
                                     const LineWindow &window, double &origin) const
{
    SystemDraft draft = SystemBuilder::draftOf(window.from, window.to);
    std::size_t number = partOf(parts, window.from);
    const layout::Unit lineLeft = parts[number].left;
    const double windowLeft =
        window.from == 0 ? 0 : parts[number].places->bars[window.from - parts[number].first].joint;
    std::vector<double> joints;
    for (unsigned i = window.from; i < window.to; ++i) {
        if (i == parts[number].end)
            ++number;
        const LinePartPlace &part = parts[number];
        const double left = layout::toSpaces(part.left - lineLeft) - windowLeft;
        if (i == window.first)
            origin = left;
        const LinePlaces::Bar &bar = part.places->bars[i - part.first];
        joints.push_back(left + bar.joint);
        BarPlace place;
        place.shownBar = i;
        place.left = left + bar.left;
        place.right = left + bar.right;
        place.columns.reserve(bar.columns.size());
        for (const double column : bar.columns)
            place.columns.push_back(left + column);
        draft.bars.push_back(std::move(place));
    }
    const bool endsLine = window.to == _score.shown.size();
    const Joint last =
        jointBefore(_score, window.to, endsLine ? JointPlace::Tail : JointPlace::Middle, _pen);
    draft.staffLeft = joints.front();
    draft.musicLeft = draft.bars.front().left;
    draft.right = draft.bars.back().right + last.width;
    draft.room = window.from == 0 && endsLine ? draft.right - draft.staffLeft : 1e9;
    addRows(draft, draft.right);
    for (unsigned i = window.from; i < window.to; ++i) {
        const JointPlace place = i == 0 ? JointPlace::Head : JointPlace::Middle;
        placeJoint(draft, jointBefore(_score, i, place, _pen), joints[i - window.from], i);
    }
    placeJoint(draft, last, draft.bars.back().right, window.to);
    return draft;
}

bool LinePartBuilder::isOwn(const MarkPlace &place, const LineWindow &window) const
{
    if (place.bar < 0)
        return window.first == 0;
    const auto numberOf = [&](unsigned shownBar) {
        return static_cast<std::int32_t>(_score.shown[shownBar].bar);
    };
    return (window.first == 0 || place.bar >= numberOf(window.first))
        && (window.end == _score.shown.size() || place.bar < numberOf(window.end));
}

bool LinePartBuilder::isOwn(const Ink &ink, const LineWindow &window) const
{
    return isOwn(ink.place, window);
}

LinePartBuilder::Edges LinePartBuilder::cutEdges(const SystemDraft &draft, const LineWindow &window,
                                                 const Span &own) const
{
    const auto outer = [](const BarPlace &bar, bool isFirst) {
        if (bar.columns.empty())
            return bar.left;
        return isFirst ? bar.columns.front() : bar.columns.back();
    };
    const double left = outer(draft.bars.front(), true);
    const double right = outer(draft.bars.back(), false);
    const bool canGoLeft = window.from > 0;
    const bool canGoRight = window.to < _score.shown.size();
    Edges edges;
    eachInk(draft, [&](const Ink &ink) {
        const bool reachesLeft = canGoLeft && ink.box.left <= left;
        const bool reachesRight = canGoRight && ink.box.right >= right;
        if (!reachesLeft && !reachesRight)
            return;
        if (isOwn(ink, window)) {
            edges.left |= reachesLeft;
            edges.right |= reachesRight;
        } else if (ink.kind == MarkKind::Slur && ink.box.left < own.right
                   && ink.box.right > own.left) {
            // What makes way for a slur must see all of it.
            edges.left |= reachesLeft && window.first - window.from < mostBarsAround;
            edges.right |= reachesRight && window.to - window.end < mostBarsAround;
        }
    });
    return edges;
}

LinePartBuilder::Span LinePartBuilder::spanOf(const SystemDraft &draft, const LineWindow &window,
                                              const Span &own) const
{
    Span span = own;
    eachInk(draft, [&](const Ink &ink) {
        if (!isOwn(ink, window))
            return;
        span.left = std::min(span.left, ink.box.left);
        span.right = std::max(span.right, ink.box.right);
    });
    return span;
}

void LinePartBuilder::keepOwn(SystemDraft &draft, const LineWindow &window) const
{
    const auto keep = [&](Inks &inks) {
        inks.erase(std::remove_if(inks.begin(), inks.end(),
                                  [&](const Ink &ink) { return !isOwn(ink, window); }),
                   inks.end());
    };
    for (RowDraft &row : draft.rows)
        keep(row.inks);
    keep(draft.inks);
    draft.bars.erase(draft.bars.begin() + (window.end - window.from), draft.bars.end());
    draft.bars.erase(draft.bars.begin(), draft.bars.begin() + (window.first - window.from));
}

std::shared_ptr<const Problems> LinePartBuilder::ownProblems(const LineWindow &window) const
{
    auto own = std::make_shared<Problems>();
    for (const Problems::Problem &problem : _found.list())
        if (isOwn(problem.place, window))
            own->add(problem.place, problem.text);
    return own;
}

BuiltLinePart LinePartBuilder::build(const std::vector<LinePartPlace> &parts, std::size_t number,
                                     const std::function<void(unsigned)> &engrave,
                                     const RowDistances *given) const
{
    const LinePartPlace &part = parts[number];
    const auto count = static_cast<unsigned>(_score.shown.size());
    BuiltLinePart built;
    LineWindow &window = built.window;
    window = {part.first, part.first, part.end, part.end};
    unsigned more = 1;
    Edges cut = {true, true};
    while (true) {
        if (cut.left)
            window.from -= std::min(window.from, more);
        if (cut.right)
            window.to += std::min(count - window.to, more);
        more *= 2;
        for (unsigned i = window.from; i < window.to; ++i)
            engrave(i);
        _found = {};
        double origin = 0;
        SystemDraft draft = draftOf(parts, window, origin);
        const bool endsLine = window.end == count;
        const Span own = {origin,
                          endsLine ? draft.right : origin + layout::toSpaces(part.places->width)};
        CrossStaffBeams beams = placeRows(draft);
        addRowSigns(draft);
        cut = cutEdges(draft, window, own);
        if (cut.left || cut.right)
            continue;
        const Span rowSpan = spanOf(draft, window, own);
        separateRows(draft, rowSpan.left, rowSpan.right);
        built.distances.assign(1, 0);
        for (std::size_t i = 1; i < draft.rows.size(); ++i)
            built.distances.push_back(draft.rows[i].y - draft.rows[i - 1].y);
        if (given != nullptr)
            for (std::size_t i = 1; i < draft.rows.size(); ++i)
                draft.rows[i].y = draft.rows[i - 1].y + (*given)[i];
        beams.draw();
        addCrossStaffSlurs(draft);
        cut = cutEdges(draft, window, own);
        if (cut.left || cut.right)
            continue;
        for (const RowDraft &row : draft.rows)
            built.isTied |= !row.beamsAbove.empty();
        for (const Ink &ink : draft.inks)
            built.isTied |= ink.kind == MarkKind::Slur;
        if (window.from == 0)
            addSystemHead(draft);
        addBarLines(draft);
        const Span span = spanOf(draft, window, own);
        keepOwn(draft, window);
        BuiltSystem system;
        measure(draft, span.left, span.right, system);
        if (window.first == 0) {
            system.bare = {draft.staffLeft, system.above, system.top};
            addNumber(draft, system);
        } else {
            draft.staffLeft = own.left;
        }
        draft.right = endsLine ? draft.right : own.right + overlap;
        built.lastRow = draft.rows.back().y;
        built.top = system.top;
        built.bottom = system.bottom - built.lastRow;
        built.drawing = draw(draft, origin, system);
        built.hangers = std::move(system.hangers);
        built.problems = ownProblems(window);
        return built;
    }
}

} // namespace zarn::engraving
