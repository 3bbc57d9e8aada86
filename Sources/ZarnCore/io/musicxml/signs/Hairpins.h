// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/SpanMatcher.h>

#include <map>
#include <tuple>

namespace zarn::io {

/// The type of the <wedge> that begins a crescendo or decrescendo.
const char *wedgeTypeOf(Hairpin hairpin);

/// Puts the hairpins of a part over its beats: one is a run of beats of a voice.
class Hairpins {
public:
    explicit Hairpins(ImportContext &context) : _context(context), _matcher(context) { }

    /// A <wedge> at a time; the place has no beat.
    void add(pugi::xml_node wedge, const NotePlace &place);

    void finishPart(const StaffBars &staves);

private:
    /// A kind of hairpins on a staff, and a bar with a time in it.
    using Meeting = std::tuple<int, Hairpin, int, utils::rational>;

    void set(const SpanMatcher::Span &span, const Staff::Bars &bars);

    ImportContext &_context;
    SpanMatcher _matcher;
    std::map<Meeting, const Beat *> _ends; ///< the last beats of the part's hairpins, so far
};

} // namespace zarn::io
