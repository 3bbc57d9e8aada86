// SPDX-License-Identifier: MIT
#include <ZarnViews/widgets/SheetChanges.h>

#include <algorithm>
#include <tuple>

namespace zarn::views {
namespace {

using layout::Box;
using layout::DrawList;
using layout::DrawMark;
using layout::MarkShape;

/// Of systems that changed. The parts of a line, which has the whole score, move by hundreds: to
/// measure them takes longer than to paint those that are seen.
constexpr std::size_t mostChanged = 16;

/// A mark with the list that has its path or text.
struct ListedMark {
    const DrawList *list;
    const DrawMark *mark;
};

/// Paths and texts are numbered through their list: marks in front of them move the number.
bool isListed(const DrawMark &mark)
{
    return mark.shape == MarkShape::Path || mark.shape == MarkShape::Text;
}

/// All that is seen of a mark but what its path or text holds; of paths the place of the begin, as
/// all of them have the same origin.
auto lookOf(const ListedMark &listed)
{
    const DrawMark &mark = *listed.mark;
    layout::Point at = mark.at;
    if (mark.shape == MarkShape::Path && listed.list->path(mark).pointCount > 0)
        at = listed.list->points()[listed.list->path(mark).firstPoint];
    return std::make_tuple(at.y, at.x, mark.shape, mark.glyph, mark.to.y, mark.to.x, mark.thickness,
                           mark.gap, mark.cap, isListed(mark) ? 0 : mark.detail);
}

bool haveEqualPath(const ListedMark &a, const ListedMark &b)
{
    const DrawList::Path &one = a.list->path(*a.mark);
    const DrawList::Path &other = b.list->path(*b.mark);
    const auto points = a.list->points().begin() + one.firstPoint;
    const auto otherPoints = b.list->points().begin() + other.firstPoint;
    const auto verbs = a.list->verbs().begin() + one.firstVerb;
    const auto otherVerbs = b.list->verbs().begin() + other.firstVerb;
    return std::equal(points, points + one.pointCount, otherPoints, otherPoints + other.pointCount)
        && std::equal(verbs, verbs + one.verbCount, otherVerbs, otherVerbs + other.verbCount);
}

bool haveEqualText(const ListedMark &a, const ListedMark &b)
{
    const DrawList::Text &one = a.list->textOf(*a.mark);
    const DrawList::Text &other = b.list->textOf(*b.mark);
    return one.style == other.style && one.advance == other.advance && one.ink == other.ink
        && a.list->characters(*a.mark) == b.list->characters(*b.mark);
}

bool looksEqual(const ListedMark &a, const ListedMark &b)
{
    if (lookOf(a) != lookOf(b))
        return false;
    switch (a.mark->shape) {
    case MarkShape::Path:
        return haveEqualPath(a, b);
    case MarkShape::Text:
        return haveEqualText(a, b);
    default:
        return true;
    }
}

Box boxOf(const ListedMark &mark, const layout::MusicFont &font)
{
    return mark.list->box(*mark.mark, font);
}

std::vector<ListedMark> sortedMarks(const DrawList &list, std::size_t first, std::size_t last)
{
    std::vector<ListedMark> marks;
    marks.reserve(last - first);
    for (std::size_t i = first; i < last; ++i)
        marks.push_back({&list, &list.marks()[i]});
    std::stable_sort(marks.begin(), marks.end(), [](const ListedMark &a, const ListedMark &b) {
        return lookOf(a) < lookOf(b);
    });
    return marks;
}

/// Around the marks that only one of two lists has. All ink has one colour: in which order marks
/// are painted does not show.
Box changeOfMarks(const DrawList &before, const DrawList &after, const layout::MusicFont &font)
{
    // Edits change little: most marks are the same at the same place from one end of the lists.
    const auto &a = before.marks();
    const auto &b = after.marks();
    const std::size_t both = std::min(a.size(), b.size());
    std::size_t head = 0;
    while (head < both && looksEqual({&before, &a[head]}, {&after, &b[head]}))
        ++head;
    std::size_t tail = 0;
    while (tail < both - head
           && looksEqual({&before, &a[a.size() - 1 - tail]}, {&after, &b[b.size() - 1 - tail]}))
        ++tail;

    const auto old = sortedMarks(before, head, a.size() - tail);
    const auto present = sortedMarks(after, head, b.size() - tail);
    Box change;
    auto one = old.begin();
    auto other = present.begin();
    while (one != old.end() || other != present.end()) {
        if (one != old.end() && other != present.end() && looksEqual(*one, *other)) {
            ++one;
            ++other;
            continue;
        }
        const bool isOnlyOld =
            other == present.end() || (one != old.end() && lookOf(*one) <= lookOf(*other));
        change = change.unitedWith(boxOf(isOnlyOld ? *one++ : *other++, font));
    }
    return change;
}

} // namespace

std::optional<Box> changeOfSheet(const layout::LayoutPage &before, const layout::LayoutPage &after,
                                 const layout::MusicFont &font)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < std::min(before.systems.size(), after.systems.size()); ++i)
        kept += before.systems[i] == after.systems[i] ? 1 : 0;
    if (std::max(before.systems.size(), after.systems.size()) - kept > mostChanged)
        return std::nullopt;

    Box change;
    const auto add = [&](const layout::PlacedSystem &system) {
        change = change.unitedWith(system.drawing->marks.box(font).movedBy(system.at));
    };
    const std::size_t both = std::min(before.systems.size(), after.systems.size());
    for (std::size_t i = 0; i < both; ++i) {
        const layout::PlacedSystem &old = before.systems[i];
        const layout::PlacedSystem &present = after.systems[i];
        if (old.at != present.at) {
            add(old);
            add(present);
        } else if (old.drawing != present.drawing) {
            const Box box = changeOfMarks(old.drawing->marks, present.drawing->marks, font);
            if (box != Box())
                change = change.unitedWith(box.movedBy(present.at));
        }
    }
    std::for_each(before.systems.begin() + static_cast<std::ptrdiff_t>(both), before.systems.end(),
                  add);
    std::for_each(after.systems.begin() + static_cast<std::ptrdiff_t>(both), after.systems.end(),
                  add);
    static const DrawList nothing;
    if (before.marks != after.marks)
        change = change.unitedWith(changeOfMarks(before.marks ? *before.marks : nothing,
                                                 after.marks ? *after.marks : nothing, font));
    return change;
}

} // namespace zarn::views
