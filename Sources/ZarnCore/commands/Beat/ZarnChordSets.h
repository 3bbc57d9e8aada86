// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <vector>

namespace zarn {

class ScoreModel;
class Staff;
struct ChordMark;

/// What a command adds to the working sets of staves: the symbols of chords that it writes, and
/// their diagrams.
class ZARNCORE_EXPORT ChordSets {
public:
    void clear() noexcept { _added.clear(); }

    /// Puts symbol and diagram of a chord behind the others of their sets, unless they are there.
    void add(Staff &staff, const ChordMark &chord);

    /// Takes out what was put in, the last first.
    void takeBack(ScoreModel &model);

private:
    struct Added {
        unsigned track;
        unsigned staff;
        bool isSymbol;
        bool isDiagram;
    };
    std::vector<Added> _added;
};

} // namespace zarn
