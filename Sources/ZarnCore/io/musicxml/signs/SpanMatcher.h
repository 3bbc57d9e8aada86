// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/MusicXmlTag.h>
#include <ZarnCore/io/musicxml/signs/NotePlace.h>

#include <pugixml.hpp>

#include <utility>
#include <vector>

namespace zarn::io {

class ImportContext;

/// One end of a sign that leads from one place of a part to another.
struct SpanEnd {
    Tag tag = Tag::Unknown;
    int number = 1;
    NotePlace place;
    pugi::xml_node node;
};

/// Brings the two ends of signs together, in the order in which a document has them, which is that
/// of its voices and not of time.
///
/// Ends belong together when they have the element and the number in common, those of one voice
/// before others. An end may stand in front of its beginning in the same bar, when that is in a
/// voice which the document writes later.
class SpanMatcher {
public:
    /// `isOneName` brings beginnings and ends of different elements together too.
    enum class Names { Apart, Together };

    explicit SpanMatcher(ImportContext &context, Names names = Names::Apart)
        : _context(context), _names(names)
    {
    }

    struct Span {
        SpanEnd begin;
        SpanEnd end;
    };

    void begin(const SpanEnd &begin);
    void end(const SpanEnd &end);

    /// Takes an end as `begin` or `end` by the attribute "type" of its element; false for others.
    bool add(const SpanEnd &end);

    /// Reports what has one end only, and hands out the others.
    std::vector<Span> finish();

    /// Whether anything has been added.
    bool isEmpty() const noexcept { return _spans.empty() && _begun.empty() && _ended.empty(); }

    /// The ends that no beginning was found for, until `finish`: some signs may be so.
    std::vector<SpanEnd> takeEnds();

private:
    bool mayBelong(const SpanEnd &begin, const SpanEnd &end) const;
    void forgetEndsBefore(int bar);
    void report(const SpanEnd &end, const char *what);

    ImportContext &_context;
    Names _names;
    std::vector<SpanEnd> _begun;
    std::vector<SpanEnd> _ended; ///< without a beginning so far
    std::vector<SpanEnd> _stray; ///< without one for good
    std::vector<Span> _spans;
};

} // namespace zarn::io
