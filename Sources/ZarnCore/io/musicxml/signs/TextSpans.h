// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/SpanMatcher.h>

namespace zarn::io {

/// The words that dashes behind them make a palm mute of all notes under them.
const char *palmMuteWords();

/// Puts the dashes and brackets of a part behind the words of its beats. Those behind "P.M." and
/// "let ring" are a way of playing the notes under them.
class TextSpans {
public:
    explicit TextSpans(ImportContext &context) : _context(context), _matcher(context) { }

    /// A <dashes> or <bracket> at a time; the place has no beat.
    void add(Tag tag, pugi::xml_node node, const NotePlace &place);

    /// The words are there already.
    void finishPart(const StaffBars &staves);

private:
    void set(const SpanMatcher::Span &span, const Staff::Bars &bars);
    void leaveOut(const SpanMatcher::Span &span);

    ImportContext &_context;
    SpanMatcher _matcher;
};

} // namespace zarn::io
