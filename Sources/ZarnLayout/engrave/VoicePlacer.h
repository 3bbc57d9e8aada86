// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/engrave/Problems.h>
#include <ZarnLayout/source/Rows.h>

#include <cstddef>
#include <vector>

namespace zarn::engraving {

/// Puts the voices of a bar beside one another: heads, stems and flags of one column keep off those
/// of the others, numbers of a string stand side by side, and rests go where they meet nothing.
class VoicePlacer {
public:
    VoicePlacer(const Row &row, const Pen &pen, const BarSource &source, unsigned bar,
                Problems &problems)
        : _row(row), _pen(pen), _source(source), _bar(bar), _problems(problems)
    {
    }

    /// Moves the chords, whose heads and stems have their places already, and the rests.
    void place(EngravedBar &bar);

private:
    using Members = Few<std::size_t, 4>; ///< chords of a column, by number

    bool standsAlone(const Members &members) const;
    void placeColumn(const Members &members);
    bool shareRest(const Members &members);
    void placeVoicesOnStrings(const Members &members);
    void placeRest(Chord &chord, std::vector<Box> &taken);

    const Row &_row;
    const Pen &_pen;
    const BarSource &_source;
    const unsigned _bar;
    Problems &_problems;
    EngravedBar *_result = nullptr;
};

} // namespace zarn::engraving
