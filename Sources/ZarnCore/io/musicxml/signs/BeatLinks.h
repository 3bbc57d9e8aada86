// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/SpanMatcher.h>

namespace zarn::io {

/// The glyph that tells a wavy line of a vibrato from that of a trill.
const char *glyphOfWave(Vibrato vibrato, bool isOfBar);

/// Puts what leads over beats, and stands in <ornaments>, into the tree: tremolos between two notes
/// and wavy lines, which are the line of a trill or a vibrato.
class BeatLinks {
public:
    explicit BeatLinks(ImportContext &context)
        : _context(context), _tremolos(context), _waves(context)
    {
    }

    /// An element at a note that stands at a place; false for other elements.
    bool add(Tag tag, pugi::xml_node node, const NotePlace &place);

    void finishPart(const StaffBars &staves);

private:
    void setTremolo(const SpanMatcher::Span &span, const Staff::Bars &bars);
    void setWave(const SpanMatcher::Span &span, const Staff::Bars &bars);
    void leaveOut(const SpanMatcher::Span &span, const char *what);

    ImportContext &_context;
    SpanMatcher _tremolos;
    SpanMatcher _waves;
};

} // namespace zarn::io
