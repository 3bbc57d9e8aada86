// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/NotePlace.h>

#include <pugixml.hpp>

#include <vector>

namespace zarn::io {

class ImportContext;

/// What <fingering> says of a finger of the left hand; on keys the thumb is 1, on strings 0 is the
/// open string. Null for none, and for an open string on keys, which has an element of its own.
const char *fingeringText(Fingering finger, bool areKeys);

/// Whether the fingers of a part are read as those of keys. The part has notes on frets or not,
/// uses the fifth finger or not, and has so many staves.
constexpr bool areFingersOfKeys(bool hasFrets, bool hasFifth, std::size_t staffCount)
{
    return !hasFrets && (hasFifth || staffCount > 1);
}

/// Gives notes the fingers that <fingering> numbers. On strings 1 is the index finger, on keys the
/// thumb: what is played is known when the part has been read.
class Fingers {
public:
    explicit Fingers(ImportContext &context) : _context(context) { }

    void add(pugi::xml_node fingering, const NotePlace &place);

    /// Strings have no fifth finger: where one is written, or music on two staves, there are keys.
    void finishPart(const StaffBars &staves);

private:
    struct Numbered {
        Note *note;
        int finger;
    };

    ImportContext &_context;
    std::vector<Numbered> _numbered;
};

} // namespace zarn::io
