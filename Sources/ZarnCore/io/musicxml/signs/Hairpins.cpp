// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Hairpins.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/signs/Placement.h>
#include <ZarnCore/io/musicxml/signs/StaffTimes.h>
#include <ZarnCore/utils/EnumTable.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace zarn::io {

namespace {

/// The types of a <wedge> that begins.
constexpr auto wedgeTexts = utils::enumTable<Hairpin>(utils::KeyMatch::Exact,
                                                      {
                                                          {Hairpin::Crescendo, "crescendo"},
                                                          {Hairpin::Decrescendo, "diminuendo"},
                                                      });
static_assert(wedgeTexts.isConsistent());

} // namespace

const char *wedgeTypeOf(Hairpin hairpin)
{
    return wedgeTexts.textOrFirst(hairpin).data();
}

void Hairpins::add(pugi::xml_node wedge, const NotePlace &place)
{
    const std::string_view type = wedge.attribute("type").value();
    const SpanEnd end = {Tag::Wedge, wedge.attribute("number").as_int(1), place, wedge};
    if (type == "stop")
        _matcher.end(end);
    else if (wedgeTexts.value(type))
        _matcher.begin(end);
    else if (type != "continue")
        _context.addUnheld(wedge, Tag::Wedge);
}

void Hairpins::finishPart(const StaffBars &staves)
{
    if (_matcher.isEmpty())
        return;
    _ends.clear();
    auto spans = _matcher.finish();
    std::stable_sort(spans.begin(), spans.end(),
                     [](const SpanMatcher::Span &left, const SpanMatcher::Span &right) {
                         return left.begin.place.inTime() < right.begin.place.inTime();
                     });
    for (const auto &span : spans)
        set(span, staves[static_cast<std::size_t>(span.begin.place.staff)]);
}

void Hairpins::set(const SpanMatcher::Span &span, const Staff::Bars &bars)
{
    const auto &begin = span.begin.place;
    const auto &end = span.end.place;
    const auto kind = *wedgeTexts.value(span.begin.node.attribute("type").value());
    const auto places = StaffTimes(bars).between(begin, end);
    const bool isSwell = places.size() == 1 && kind == Hairpin::Decrescendo
        && places.front().beat->hairpin() == Hairpin::Crescendo
        && places.front().onset < begin.onset;
    if (isSwell) {
        places.front().beat->setHairpin(Hairpin::Swell);
        places.front().beat->setHairpinBegins(false);
        return;
    }
    const auto isFree = [&](const NotePlace &place) {
        return place.beat->hairpin() == Hairpin::NoHairpin;
    };
    const auto first = std::find_if(places.begin(), places.end(), isFree);
    if (first == places.end()) {
        _context.addUnheld(span.begin.node, Tag::Wedge);
        _context.addUnheld(span.end.node, Tag::Wedge);
        _context.addProblemInBar(begin.bar, span.begin.node,
                                 places.empty() ? "a hairpin over bars without beats was left out"
                                                : "a hairpin under another one was left out");
        return;
    }
    const auto last = std::find_if_not(first, places.end(), isFree);
    const MarkSide side = sideOf(span.begin.node);
    for (auto place = first; place != last; ++place) {
        place->beat->setHairpin(kind);
        if (side != MarkSide::Auto)
            place->beat->setHairpinSide(side);
    }
    // Another one of its kind may end there in whatever voice.
    const auto *before = VoiceSlotLine(bars, first->slot).previous(first->bar, first->index);
    const auto other = _ends.find({begin.staff, kind, first->bar, first->onset});
    const bool meetsAnother = (before && before->hairpin() == kind)
        || (other != _ends.end() && other->second->hairpin() == kind);
    if (meetsAnother)
        first->beat->setHairpinBegins(true);
    const auto &ending = *std::prev(last);
    const auto *const beats = VoiceSlotLine(bars, ending.slot).beatsOf(ending.bar);
    if (ending.index + 1 == beats->size())
        _ends[{begin.staff, kind, ending.bar + 1, 0}] = ending.beat;
    else
        _ends[{begin.staff, kind, ending.bar, ending.onset + ending.beat->length()}] = ending.beat;
}

} // namespace zarn::io
