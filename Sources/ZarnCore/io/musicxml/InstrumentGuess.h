// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/instruments/InstrumentName.h>

#include <vector>

namespace zarn::io {

class PartList;
struct ListedPart;
struct NoteTally;
struct PartFacts;

/// Finds out what the parts of a score are played on.
///
/// What a standard sound names counts first, then a name that is understood as a whole, then the
/// General MIDI program, then a part of a name; what one of them leaves open ("Guitar") the next
/// ones may tell. A name that instruments and voices share ("Bass") is decided by the words under
/// the notes and by the parts beside it. A piano, or on tablature a guitar, when nothing tells.
class InstrumentGuesser {
public:
    explicit InstrumentGuesser(const PartList &list);

    InstrumentSet::Type guess(const ListedPart &part, const PartFacts &facts,
                              const NoteTally &notes) const;

private:
    /// How many parts of the score are of each sort.
    struct Ensemble {
        int ranges = 0; ///< named by a range: soprano, alto, tenor ...
        int voices = 0;
        int bowed = 0;
        int rhythm = 0; ///< guitars and drums
        int brass = 0;
        int saxophones = 0;
        int recorders = 0;

        void count(const NamedInstrument &named, int sign);
    };

    static InstrumentSet::Type kitOf(const ListedPart &part);
    InstrumentSet::Type pitchedTypeOf(const ListedPart &part, const PartFacts &facts,
                                      const NoteTally &notes) const;
    InstrumentSet::Type typeOfRange(const NamedInstrument &named, const ListedPart &part,
                                    bool isOnFrets, const NoteTally &notes) const;

    Ensemble _ensemble;
};

} // namespace zarn::io
