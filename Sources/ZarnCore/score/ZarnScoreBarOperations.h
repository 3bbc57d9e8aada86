// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>

#include <cstdint>
#include <map>
#include <set>

namespace zarn {

class AttributeValue;
enum class BarAttribute : std::uint8_t;

/// What can be done to the bars of a score. Indexes are counted from 0, ranges of bars include both
/// ends. Each answers whether it was done: what cannot be done is logged and changes nothing.
class ZARNCORE_EXPORT ScoreBarOperations {
public:
    bool createBar(unsigned index);

    /// Inserts empty bars, in every staff of every track, in front of a bar or at the end.
    bool createBars(unsigned index, unsigned count);

    bool removeBar(unsigned index);

    /// Removes bars, both ends included, from every staff of every track.
    bool removeBarRange(unsigned first, unsigned last);

    /// Puts bars of a staff under one clef; changes of clef inside them go.
    bool setClef(unsigned track, unsigned staff, unsigned first, unsigned last, ClefType clef);

    /// Makes bars repeat the one or, as pairs, the two before; no mark shows their notes again.
    bool setBarSimileMark(unsigned track, unsigned staff, unsigned first, unsigned last,
                          SimileMark mark);

    // Attributes by their ids in the table of bars.

    bool setBarAttribute(unsigned track, unsigned staff, unsigned first, unsigned last,
                         BarAttribute id, const AttributeValue &value);
    bool setBarAttributes(unsigned track, unsigned staff, unsigned first, unsigned last,
                          const std::map<BarAttribute, AttributeValue> &values);
    bool unsetBarAttributes(unsigned track, unsigned staff, unsigned first, unsigned last,
                            const std::set<BarAttribute> &ids);

protected:
    ScoreBarOperations() = default;
    ~ScoreBarOperations() = default;
};

} // namespace zarn
