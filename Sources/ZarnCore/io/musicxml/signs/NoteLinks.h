// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/SpanMatcher.h>

namespace zarn::io {

/// What a hammer-on or a pull-off from a note leads to in a later beat: the note of its string, or,
/// for a note without a string, the first one of another pitch; null for none.
const Note *legatoAim(const Note &note, const Beat &beat);

/// Whether a note of a beat is hammered on, or pulled off, to a note of the next one.
bool leadsByLegato(const Beat &beat, const Beat &next);

/// Puts what leads from a note to the next one into the tree: hammer-ons and pull-offs, slides and
/// glissandi.
///
/// Documents disagree on what is a hammer-on and what a pull-off, and the frets tell: an end of the
/// one belongs to a beginning of the other.
class NoteLinks {
public:
    explicit NoteLinks(ImportContext &context)
        : _context(context), _legato(context, SpanMatcher::Names::Together), _slides(context)
    {
    }

    /// An element at a note that stands at a place; false for other elements.
    bool add(Tag tag, pugi::xml_node node, const NotePlace &place);

    /// Slides, when the slurs are there, and in front of both the hammer-ons, which have slurs of
    /// their own.
    void finishLegato(const StaffBars &staves);
    void finishSlides(const StaffBars &staves);

private:
    void link(const SpanMatcher::Span &span, const StaffBars &staves);
    void leaveOut(const SpanMatcher::Span &span, const char *why);

    ImportContext &_context;
    SpanMatcher _legato;
    SpanMatcher _slides;
};

} // namespace zarn::io
