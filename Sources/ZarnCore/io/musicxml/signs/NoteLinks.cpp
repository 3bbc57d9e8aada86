// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/NoteLinks.h>

#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <string>

namespace zarn::io {

namespace {

bool isLegato(Tag tag)
{
    return tag == Tag::HammerOn || tag == Tag::PullOff;
}

/// The note of the next beat that has one on the string, or, for a note without a string, of the
/// next beat with notes; null when there is none.
const Note *nextOf(const NotePlace &place, const Staff::Bars &bars)
{
    const VoiceSlotLine line(bars, place.slot);
    int bar = place.bar;
    unsigned index = place.index;
    while (const auto *beat = line.next(bar, index)) {
        if (const auto *note = legatoAim(*place.note, *beat))
            return note;
        const bool isLast = place.note->string() == Note::Unset && beat->hasNotes();
        if (isLast || bar > place.bar + 1)
            break;
    }
    return nullptr;
}

} // namespace

const Note *legatoAim(const Note &note, const Beat &beat)
{
    if (note.string() != Note::Unset)
        return beat.noteOnString(note.string()).get();
    const auto &notes = beat.notes();
    const auto found = std::find_if(notes.begin(), notes.end(), [&note](const auto &other) {
        return other->midi() != note.midi();
    });
    return found == notes.end() ? nullptr : found->get();
}

bool leadsByLegato(const Beat &beat, const Beat &next)
{
    return std::any_of(beat.notes().begin(), beat.notes().end(), [&next](const auto &note) {
        return note->isHopo() && legatoAim(*note, next) != nullptr;
    });
}

bool NoteLinks::add(Tag tag, pugi::xml_node node, const NotePlace &place)
{
    if (!isLegato(tag) && tag != Tag::Slide && tag != Tag::Glissando)
        return false;
    auto &matcher = isLegato(tag) ? _legato : _slides;
    if (!place.note || !matcher.add({tag, node.attribute("number").as_int(1), place, node}))
        _context.addUnheld(node, tag);
    return true;
}

void NoteLinks::finishLegato(const StaffBars &staves)
{
    if (!_legato.isEmpty())
        for (const auto &span : _legato.finish())
            link(span, staves);
}

void NoteLinks::finishSlides(const StaffBars &staves)
{
    if (_slides.isEmpty())
        return;
    for (const auto &end : _slides.takeEnds()) {
        end.place.note->setSlideIn(SlideIn::FromBelow);
        _context.addProblemInBar(end.place.bar, end.node,
                                 "a slide that begins at no note was read as one from below");
    }
    for (const auto &span : _slides.finish())
        link(span, staves);
}

void NoteLinks::link(const SpanMatcher::Span &span, const StaffBars &staves)
{
    const auto &begin = span.begin.place;
    const auto &end = span.end.place;
    if (!begin.isInLineOf(end)) {
        leaveOut(span, " to another voice was left out");
        return;
    }
    auto &note = *begin.note;
    if (!isLegato(span.begin.tag)) {
        note.setSlideOut(begin.beat->isSlurredToNext() ? SlideOut::Legato : SlideOut::Shift);
        if (span.begin.tag == Tag::Glissando)
            _context.addProblemInBar(begin.bar, span.begin.node, "a glissando was read as a slide");
        return;
    }
    const auto *next = nextOf(begin, staves[static_cast<std::size_t>(begin.staff)]);
    if (!next || next->midi() == note.midi())
        leaveOut(span, " without another fret of its string to lead to was left out");
    else
        note.setHopo(true);
}

void NoteLinks::leaveOut(const SpanMatcher::Span &span, const char *why)
{
    _context.addUnheld(span.begin.node, span.begin.tag);
    _context.addUnheld(span.end.node, span.end.tag);
    _context.addProblemInBar(span.begin.place.bar, span.begin.node,
                             std::string("a ") + tagName(span.begin.tag) + why);
}

} // namespace zarn::io
