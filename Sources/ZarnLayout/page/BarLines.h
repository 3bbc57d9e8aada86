// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

#include <optional>

namespace zarn::engraving {

enum class LineStyle : std::uint8_t {
    None,
    Single,
    Double,
    Final,
    RepeatEnd,
    RepeatStart,
    RepeatBoth,
    Dashed,
    Dotted,
    Heavy,
    Short,
    Tick,
};

/// Where a joint of bars stands in its system.
enum class JointPlace : std::uint8_t { Head, Middle, Tail };

/// What stands between two bars, from left to right: a new clef, the bar line, a new key and a new
/// meter, the start of a repeat behind these. At the head of a system clefs and keys stand
/// whatever went before, and a system whose next one brings something new says so at its end.
struct Joint {
    LineStyle line = LineStyle::None;
    LineStyle lateLine = LineStyle::None;
    double clefX = 0; ///< all from the end of the bar in front
    double lineX = 0;
    double keyX = 0;
    double meterX = 0;
    double lateLineX = 0;
    double width = 0;
    std::vector<Inks> clefs; ///< by row; empty where there is none
    std::vector<Inks> keys;
    std::vector<Inks> meters;
};

/// The joint in front of a shown bar; the number of shown bars for the one behind the last.
Joint jointBefore(const EngravedScore &score, unsigned shownBar, JointPlace place, const Pen &pen);

double widthOf(LineStyle style) noexcept;

/// The dots of a bar line for one row, which are drawn as a part of the row: everything else there
/// keeps away from them.
Inks repeatDots(LineStyle style, double x, const Row &row, const Pen &pen);

/// What is to be read between two rows and keeps its ground there: bar lines stop at it and go on
/// behind it.
struct Readable {
    unsigned row = 0; ///< that it belongs to
    Box box;          ///< in the system
};

/// All of a system, of rows between which bar lines run.
std::vector<Readable> readablesBetweenRows(const SystemDraft &draft);

/// Draws the strokes of a bar line through rows that are next to each other. With `isJoined`, row
/// by row, it goes on to the next row.
void addBarLine(SystemDraft &draft, LineStyle style, double x, const std::vector<bool> &isJoined,
                unsigned bar, const std::vector<Readable> &readables);

} // namespace zarn::engraving
