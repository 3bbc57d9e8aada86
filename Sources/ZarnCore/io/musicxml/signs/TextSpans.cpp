// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/TextSpans.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/signs/Placement.h>
#include <ZarnCore/io/musicxml/signs/StaffTimes.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace zarn::io {

namespace {

/// Words over the strings of a guitar, and what they say of each note; the first ones of a way of
/// playing are written.
struct PlayingWords {
    std::string_view words;
    void (Note::*set)(bool);
};

const PlayingWords playingWords[] = {
    {"P.M.", &Note::setPalmMute},      {"PM", &Note::setPalmMute},
    {"palm mute", &Note::setPalmMute}, {"let ring", &Note::setLetRing},
    {"Let ring", &Note::setLetRing},   {"l.r.", &Note::setLetRing},
};

} // namespace

const char *palmMuteWords()
{
    return playingWords[0].words.data();
}

void TextSpans::add(Tag tag, pugi::xml_node node, const NotePlace &place)
{
    if (!_matcher.add({tag, node.attribute("number").as_int(1), place, node}))
        _context.addUnheld(node, tag);
}

void TextSpans::finishPart(const StaffBars &staves)
{
    if (_matcher.isEmpty())
        return;
    for (const auto &span : _matcher.finish())
        set(span, staves[static_cast<std::size_t>(span.begin.place.staff)]);
}

void TextSpans::set(const SpanMatcher::Span &span, const Staff::Bars &bars)
{
    const auto &begin = span.begin.place;
    const auto &end = span.end.place;
    const StaffTimes times(bars);
    const auto places = times.between(begin, end);
    if (places.empty())
        return leaveOut(span);
    auto &first = *places.front().beat;
    const MarkSide side = sideOf(span.begin.node);
    const bool isBelow = side == MarkSide::Below
        || (side == MarkSide::Auto && first.text().empty() && !first.textBelow().empty());
    for (const auto &[words, set] : playingWords)
        if ((isBelow ? first.textBelow() : first.text()) == words) {
            for (const auto &place : places)
                for (const auto &note : place.beat->notes())
                    (*note.*set)(true);
            isBelow ? first.setTextBelow({}) : first.setText({});
            return;
        }
    auto *last = places.back().beat;
    if (last == &first)
        last = times.atOrAfter(end.bar, end.onset).beat;
    if (!last || last == &first || first.textSpan() != TextSpan::None
        || last->textSpan() != TextSpan::None)
        return leaveOut(span);
    first.setTextSpan(isBelow ? TextSpan::BeginBelow : TextSpan::Begin);
    last->setTextSpan(TextSpan::End);
}

void TextSpans::leaveOut(const SpanMatcher::Span &span)
{
    _context.addUnheld(span.begin.node, span.begin.tag);
    _context.addUnheld(span.end.node, span.end.tag);
    _context.addProblemInBar(span.begin.place.bar, span.begin.node,
                             std::string("a ") + tagName(span.begin.tag)
                                 + " that meets another one at its beat was left out");
}

} // namespace zarn::io
