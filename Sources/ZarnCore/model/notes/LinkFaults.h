// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <vector>

namespace zarn {

class Beat;
class Note;
class Staff;

// Links of beats that lack their other end. The neighbour is null where there is none.

bool leadsSlurToNothing(const Beat &beat, const Beat *next) noexcept;
bool takesSlurFromNothing(const Beat &beat, const Beat *previous) noexcept;

/// A tremolo between two beats is between notes; of different values it is idle.
bool lacksTremoloPartner(const Beat &beat, const Beat *next) noexcept;

/// A mark that a slur or a hairpin begins where there is none.
bool beginsNoSlur(const Beat &beat) noexcept;
bool beginsNoHairpin(const Beat &beat) noexcept;

/// A link that lacks what it needs; ties, which may end in the open, are none.
struct BrokenLink {
    enum class Kind {
        SlurToNothing,
        SlurFromNothing,
        SlurBegin,
        HairpinBegin,
        Tremolo,
        Hopo,
        Slide,
    };

    unsigned bar;
    unsigned voice;
    unsigned beat;
    Note *note; ///< null for a link of the beat
    Kind kind;
};

/// What it is: "a slur that leads to no beat".
const char *textOf(BrokenLink::Kind kind) noexcept;

/// In the order of the tree.
ZARNCORE_EXPORT std::vector<BrokenLink> brokenLinks(const Staff &staff);

/// Takes the broken links of a staff off; returns them.
ZARNCORE_EXPORT std::vector<BrokenLink> takeBrokenLinksOff(const Staff &staff);

} // namespace zarn
