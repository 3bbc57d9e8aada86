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

/// Farther away is not looked for what passes over a part.
constexpr unsigned mostBarsAround = 16;

/// Whether a text whose line ends at a chord stands in front of it.
bool hasOpenText(const RowDraft &row, std::size_t number)
{
    return std::any_of(row.chords.begin(), row.chords.begin() + static_cast<std::ptrdiff_t>(number),
                       [&](const PlacedChord &chord) {
                           const auto &details = chord.beat().details;
                           return details && begins(details->textSpan);
                       });
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

double LinePartBuilder::placeOf(unsigned shownBar, const LineWindow &window) const
{
    return layout::toSpaces(_bars[shownBar].left - _bars[window.from].left);
}

SystemDraft LinePartBuilder::draftOf(const LineWindow &window) const
{
    SystemDraft draft = SystemBuilder::draftOf(window.from, window.to);
    // What goes on beyond the window is not drawn by its part, which is all that counts.
    draft.knowsBefore = draft.knowsBehind = false;
    for (unsigned i = window.from; i < window.to; ++i) {
        const double x = placeOf(i, window);
        const LinePlaces &places = *_bars[i].places;
        BarPlace bar;
        bar.shownBar = i;
        bar.left = x + places.left;
        bar.right = x + places.right;
        bar.columns.reserve(places.columns.size());
        for (const double column : places.columns)
            bar.columns.push_back(x + column);
        draft.bars.push_back(std::move(bar));
    }
    const bool endsLine = window.to == _score.shown.size();
    draft.staffLeft = _bars[window.from].places->joint;
    draft.musicLeft = draft.bars.front().left;
    const double right = draft.bars.back().right;
    Joint tail;
    if (endsLine)
        tail = jointBefore(_score, window.to, JointPlace::Tail, _pen);
    draft.right = right + tail.width;
    draft.room = window.from == 0 && endsLine ? draft.right - draft.staffLeft : 1e9;
    addRows(draft, draft.right);
    for (unsigned i = window.from; i < window.to; ++i) {
        const JointPlace place = i == 0 ? JointPlace::Head : JointPlace::Middle;
        placeJoint(draft, jointBefore(_score, i, place, _pen),
                   placeOf(i, window) + _bars[i].places->joint, i);
    }
    if (endsLine)
        placeJoint(draft, tail, right, window.to);
    return draft;
}

LinePartBuilder::Span LinePartBuilder::ownSpan(const SystemDraft &draft,
                                               const LineWindow &window) const
{
    return {placeOf(window.first, window),
            window.end == _score.shown.size() ? draft.right : placeOf(window.end, window)};
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
        } else if (ink.box.left < own.right && ink.box.right > own.left) {
            // What makes way for something that passes must see all of it.
            edges.left |= reachesLeft && window.first - window.from < mostBarsAround;
            edges.right |= reachesRight && window.to - window.end < mostBarsAround;
        }
    });
    const bool looksLeft = canGoLeft && window.first - window.from < mostBarsAround;
    const bool looksRight = canGoRight && window.to - window.end < mostBarsAround;
    for (const RowDraft &row : draft.rows)
        for (std::size_t i = 0; i < row.chords.size(); ++i) {
            const PlacedChord &chord = row.chords[i];
            const auto isOther = [&](std::size_t other) {
                return other >= row.chords.size()
                    || row.chords[other].chord->voice != chord.chord->voice;
            };
            // A hairpin goes on behind bars in which its voice is silent.
            if (chord.beat().marks.hairpin() != Hairpin::NoHairpin && chord.shownBar >= window.first
                && chord.shownBar < window.end) {
                edges.left |= looksLeft && isOther(i - 1);
                edges.right |= looksRight && isOther(i + 1);
            }
            // The line behind a text is drawn with the text.
            const auto &details = chord.beat().details;
            if (details && details->textSpan == TextSpan::End)
                edges.left |= looksLeft && !hasOpenText(row, i);
        }
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

BuiltLinePart LinePartBuilder::build(unsigned first, unsigned end,
                                     const std::function<void(unsigned)> &engrave) const
{
    const auto count = static_cast<unsigned>(_score.shown.size());
    return build({first - std::min(first, 1U), first, end, std::min(end + 1, count)}, engrave, {});
}

BuiltLinePart LinePartBuilder::build(const LineWindow &known,
                                     const std::function<void(unsigned)> &engrave,
                                     LineHeights given) const
{
    const auto count = static_cast<unsigned>(_score.shown.size());
    BuiltLinePart built;
    built.given = std::move(given);
    LineWindow &window = built.window;
    window = known;
    unsigned more = 2;
    Edges cut;
    while (true) {
        if (cut.left)
            window.from -= std::min(window.from, more);
        if (cut.right)
            window.to += std::min(count - window.to, more);
        if (cut.left || cut.right)
            more *= 2;
        for (unsigned i = window.from; i < window.to; ++i)
            engrave(i);
        _found = {};
        SystemDraft draft = draftOf(window);
        const Span own = ownSpan(draft, window);
        for (std::size_t row = 0; row < built.given.words.size(); ++row)
            draft.rows[row].givenHeights = built.given.words[row];
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
        built.words.clear();
        for (RowDraft &row : draft.rows)
            built.words.push_back(std::move(row.wantedHeights));
        for (std::size_t i = 1; i < built.given.distances.size(); ++i)
            draft.rows[i].y = draft.rows[i - 1].y + built.given.distances[i];
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
        if (window.end < count)
            draft.right = own.right + overlap;
        built.lastRow = draft.rows.back().y;
        built.top = system.top;
        built.bottom = system.bottom - built.lastRow;
        built.drawing = draw(draft, own.left, system);
        built.hangers = std::move(system.hangers);
        built.problems = ownProblems(window);
        return built;
    }
}

} // namespace zarn::engraving
