// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Slurs.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/signs/NoteLinks.h>
#include <ZarnCore/io/musicxml/signs/Placement.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace zarn::io {

namespace {

auto lineOf(const NotePlace &place)
{
    return std::make_tuple(place.staff, place.slot);
}

/// The kind of line; waves are none of slurs.
SlurLine slurLineOf(pugi::xml_node slur)
{
    const char *const type = slur.attribute("line-type").value();
    for (const SlurLine line : {SlurLine::Dashed, SlurLine::Dotted})
        if (std::strcmp(type, lineTypeOf(line)) == 0)
            return line;
    return SlurLine::Solid;
}

/// The side that a slur is placed on; where none is said, the way that its curve bends.
SlurSide slurSideOf(pugi::xml_node slur)
{
    if (const SlurSide side = sideOf(slur); side != SlurSide::Auto)
        return side;
    const char *const orientation = slur.attribute("orientation").value();
    if (std::strcmp(orientation, "over") == 0)
        return SlurSide::Above;
    return std::strcmp(orientation, "under") == 0 ? SlurSide::Below : SlurSide::Auto;
}

/// Adds an end to those of a beat, which has ends before beginnings.
void addEnd(Beat &beat, const SlurEnd &end)
{
    auto ends = beat.slurEnds();
    const auto at = end.isBegin ? ends.end()
                                : std::find_if(ends.begin(), ends.end(),
                                               [](const SlurEnd &other) { return other.isBegin; });
    ends.insert(at, end);
    beat.setSlurEnds(ends);
}

} // namespace

const char *lineTypeOf(SlurLine line) noexcept
{
    switch (line) {
    case SlurLine::Dashed:
        return "dashed";
    case SlurLine::Dotted:
        return "dotted";
    case SlurLine::Solid:
        break;
    }
    return nullptr;
}

void Slurs::add(pugi::xml_node slur, const NotePlace &place)
{
    if (!_matcher.add({Tag::Slur, slur.attribute("number").as_int(1), place, slur}))
        _context.addUnheld(slur, Tag::Slur);
}

void Slurs::finishPart(const StaffBars &staves)
{
    if (_matcher.isEmpty())
        return;
    auto spans = _matcher.finish();
    leaveLegatoOut(spans, staves);
    // The longest of those that begin together comes first, and so does what is around others.
    std::stable_sort(spans.begin(), spans.end(), [](const Span &left, const Span &right) {
        const auto &a = left.begin.place;
        const auto &b = right.begin.place;
        return std::make_tuple(lineOf(a), a.inLine(), right.end.place.inLine())
            < std::make_tuple(lineOf(b), b.inLine(), left.end.place.inLine());
    });
    std::vector<Span> left;
    const Span *last = nullptr; // of the outermost ones
    for (const auto &span : spans) {
        const auto &begin = span.begin.place;
        const bool isBehind = !last || !last->end.place.isInLineOf(begin)
            || last->end.place.inLine() <= begin.inLine();
        if (begin.isInLineOf(span.end.place) && isBehind
            && markOutermost(span, staves[static_cast<std::size_t>(begin.staff)]))
            last = &span;
        else
            left.push_back(span);
    }
    number(left);
}

/// A slur over hammer-ons and pull-offs, from the first of them to the last, is their own sign; a
/// second one of the same length is not.
void Slurs::leaveLegatoOut(std::vector<Span> &spans, const StaffBars &staves)
{
    std::set<const Beat *> begun;
    const auto isOwn = [&](const Span &span) {
        const auto &begin = span.begin.place;
        const auto &end = span.end.place;
        const auto &first = begin.beat->notes();
        if (!begin.isInLineOf(end)
            || std::none_of(first.begin(), first.end(),
                            [](const auto &note) { return note->isHopo(); }))
            return false;
        const VoiceSlotLine line(staves[static_cast<std::size_t>(begin.staff)], begin.slot);
        bool isLegato = true;
        const Beat *last = nullptr;
        line.visit(begin, end, [&](const Beat &beat) {
            isLegato = isLegato && (!last || leadsByLegato(*last, beat));
            last = &beat;
        });
        const auto *const before = line.previous(begin.bar, begin.index);
        int bar = end.bar;
        unsigned index = end.index;
        const auto *const after = line.next(bar, index);
        return isLegato && last && last != begin.beat
            && !(before && leadsByLegato(*before, *begin.beat))
            && !(after && leadsByLegato(*last, *after)) && begun.insert(begin.beat).second;
    };
    spans.erase(std::remove_if(spans.begin(), spans.end(), isOwn), spans.end());
}

/// Marks the joints between the beats under a slur; false when beats in between are missing.
bool Slurs::markOutermost(const Span &span, const Staff::Bars &bars)
{
    const auto &begin = span.begin.place;
    const auto &end = span.end.place;
    const SlurLine line = slurLineOf(span.begin.node);
    const SlurSide side = slurSideOf(span.begin.node);
    const bool isHeld = VoiceSlotLine(bars, begin.slot).visit(begin, end, [&](Beat &beat) {
        if (&beat != begin.beat)
            beat.setSlurredToPrevious(true);
        if (&beat != end.beat)
            beat.setSlurredToNext(true);
        if (line != beat.slurLine())
            beat.setSlurLine(line);
        if (side != beat.slurSide())
            beat.setSlurSide(side);
    });
    if (isHeld && begin.beat->isSlurredToPrevious())
        begin.beat->setSlurBegins(true);
    return isHeld;
}

/// Gives each slur the lowest number that is free while it lasts. A number is taken again from the
/// bar behind its last end on, or behind it in the same voice, so that it means the same in
/// whatever order voices and staves are read.
void Slurs::number(std::vector<Span> &spans)
{
    std::stable_sort(spans.begin(), spans.end(), [](const Span &left, const Span &right) {
        return left.begin.place.inTime() < right.begin.place.inTime();
    });
    std::array<const NotePlace *, SlurEnd::HighestNumber> ends = {};
    for (const auto &span : spans) {
        const auto &begin = span.begin.place;
        const auto isFree = [&](const NotePlace *end) {
            return !end || end->bar < begin.bar
                || (end->isInLineOf(begin) && end->inLine() <= begin.inLine());
        };
        const auto found = std::find_if(ends.begin(), ends.end(), isFree);
        if (found == ends.end()) {
            _context.addUnheld(span.begin.node, Tag::Slur);
            _context.addUnheld(span.end.node, Tag::Slur);
            _context.addProblemInBar(begin.bar, span.begin.node,
                                     "more slurs than can be told apart begin before others end; "
                                     "this one was left out");
            continue;
        }
        *found = &span.end.place;
        const auto number = static_cast<std::uint8_t>(found - ends.begin() + 1);
        const SlurLine line = slurLineOf(span.begin.node);
        const SlurSide side = slurSideOf(span.begin.node);
        addEnd(*begin.beat, {number, true, line, side});
        addEnd(*span.end.place.beat, {number, false, line, side});
    }
}

} // namespace zarn::io
