// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <vector>

namespace zarn::io {

/// The position inside a measure, kept twice: as the written durations give it, and exactly.
///
/// Exporters round durations to their divisions, so the written position drifts away from the
/// music. Lengths advance each position by its own amount; a jump in written time lands on the
/// exact position that was meant: one that was passed before, when one lies within the rounding
/// that has gathered, or else, where plain values are passed over, that much behind the exact
/// position, or else the written one.
class MeasureTimeline {
public:
    void startMeasure();

    /// Divisions of a quarter; positive.
    void setDivisions(const utils::rational &divisions);
    const utils::rational &divisions() const noexcept { return _divisions; }

    const utils::rational &exact() const noexcept { return _now.exact; }
    const utils::rational &written() const noexcept { return _now.written; }

    /// Greatest positions that were reached in the measure. Where a jump landed no farther behind
    /// all notes than rounding can explain, they end with the measure.
    utils::rational exactReach() const;
    const utils::rational &writtenReach() const noexcept { return _reach.written; }

    /// Whether two lengths differ by no more than rounding to the divisions can explain.
    bool isRounding(const utils::rational &exact, const utils::rational &written) const;

    void advance(const utils::rational &exact, const utils::rational &written);

    /// Moves by a written length, which may be negative. False when that led before the start of
    /// the measure, where the position stays.
    bool jump(const utils::rational &written);

    /// How far apart positions may lie and still be meant as one.
    utils::rational tolerance() const;

private:
    struct Position {
        utils::rational exact;
        utils::rational written;
    };

    void pass();
    utils::rational landing(const utils::rational &start, const utils::rational &written) const;

    Position _now;
    Position _reach;            ///< the exact one of lengths, and of jumps to places passed before
    utils::rational _jumpReach; ///< of jumps to other places
    utils::rational _divisions = 1;
    bool _isBehindLength = false; ///< and not where a jump led
    int _roundedLengths = 0;
    std::vector<Position> _passed; ///< where lengths began and ended
};

} // namespace zarn::io
