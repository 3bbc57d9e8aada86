// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/NotePlace.h>

#include <pugixml.hpp>

#include <vector>

namespace zarn::io {

class ImportContext;

/// The type of the <pedal> of a change.
const char *pedalTypeOf(PedalChange change);

/// Puts what happens to the sustain pedal on the beats of a part.
class Pedals {
public:
    explicit Pedals(ImportContext &context) : _context(context) { }

    /// A <pedal> at a time; the place has no beat.
    void add(pugi::xml_node pedal, const NotePlace &place);

    void finishPart(const StaffBars &staves);

private:
    struct Written {
        NotePlace place;
        PedalChange change;
        pugi::xml_node node;
    };

    ImportContext &_context;
    std::vector<Written> _pedals;
};

} // namespace zarn::io
