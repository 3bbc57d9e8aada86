// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>

namespace zarn::io {

/// The numbers that tell signs of one kind apart which are open at once (MusicXML 4.0,
/// number-level): each gets the lowest that is free.
///
/// A number that was freed is taken again in the same line of beats, or from the next bar on:
/// within a bar, voices are written one after the other, and signs of two of them would overlap.
class Numbering {
public:
    static constexpr int Most = 16;

    /// 0 when all are taken. `line` names the line of beats, `bar` the bar that is written.
    int take(int line, int bar)
    {
        for (auto &slot : _slots)
            if (!slot.isTaken && (slot.line == line || slot.bar < bar)) {
                slot = {true, line, bar};
                return static_cast<int>(&slot - _slots.data()) + 1;
            }
        return 0;
    }

    void free(int number, int line, int bar)
    {
        if (number > 0)
            _slots[static_cast<std::size_t>(number) - 1] = {false, line, bar};
    }

private:
    struct Slot {
        bool isTaken = false;
        int line = -1;
        int bar = -1; ///< where it was freed
    };

    std::array<Slot, Most> _slots;
};

} // namespace zarn::io
