// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/SpanMatcher.h>

namespace zarn::io {

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

    /// Slurs are there already.
    void finishPart(const StaffBars &staves);

private:
    void link(const SpanMatcher::Span &span, const StaffBars &staves);
    void leaveOut(const SpanMatcher::Span &span, const char *why);

    ImportContext &_context;
    SpanMatcher _legato;
    SpanMatcher _slides;
};

} // namespace zarn::io
