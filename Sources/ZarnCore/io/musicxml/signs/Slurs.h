// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/SpanMatcher.h>

namespace zarn::io {

/// The line-type of MusicXML 4.0; null for a solid line, which is what it has without one.
const char *lineTypeOf(SlurLine line) noexcept;

/// Puts the slurs of a part into the tree. The outermost ones of a voice are marks of its beats;
/// those inside of them, those that cross them, and those that lead to another voice or staff are
/// pairs of ends with a number.
class Slurs {
public:
    explicit Slurs(ImportContext &context) : _context(context), _matcher(context) { }

    /// A <slur> at a note that stands at a place.
    void add(pugi::xml_node slur, const NotePlace &place);

    void finishPart(const StaffBars &staves);

private:
    using Span = SpanMatcher::Span;

    static void leaveLegatoOut(std::vector<Span> &spans, const StaffBars &staves);
    static bool markOutermost(const Span &span, const Staff::Bars &bars);
    void number(std::vector<Span> &spans);

    ImportContext &_context;
    SpanMatcher _matcher;
};

} // namespace zarn::io
