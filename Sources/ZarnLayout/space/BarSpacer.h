// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/BarEngraver.h>
#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/space/LineBreaker.h>
#include <ZarnLayout/space/SpringLine.h>

#include <vector>

namespace zarn::engraving {

/// Words of one height at both ends of a bar that is as narrow as it can be.
struct WordEnds {
    unsigned row;
    int height;
    double before; ///< from the start of the bar to the first of them
    double after;  ///< how far the last of them reaches behind the end of the bar
};

/// Words above a staff, which need room at the end of a line alone.
struct WordOverBar {
    unsigned column; ///< of the rods
    double reach;    ///< to the right, from there
};

/// Springs and rods of one bar over all rows. Column 0 of the rods is the start of the bar, then
/// come the columns of notes, then the end of the bar.
struct SpacedBar {
    struct Rod {
        unsigned from;
        unsigned to;
        double length;
        double air; ///< of its length, between ink
    };

    Onsets onsets;
    std::vector<double> springs;    ///< behind each column, at factor 1
    std::vector<Rod> rods;          ///< in the order of `to`
    double firstGap = 0;            ///< from the start of the bar to the first column
    double emptyWidth = 0;          ///< of a bar without columns
    BarWidth width;                 ///< without the signs around its bar lines
    std::vector<WordEnds> words;    ///< by row and height
    std::vector<WordOverBar> texts; ///< of tempos and beats
    double textsAfter = 0;          ///< how far they reach behind the end of the bar, if they do

    /// Adds the bar to a line whose last column is the start of the bar.
    void addTo(SpringLine &line) const;
};

/// Times at which something begins in a bar, over all staves.
Onsets onsetsOf(const std::vector<const BarSource *> &staves);

/// Width that a note value wants, in staff spaces: a fixed one for a quarter, and the same ratio
/// for each doubling, whatever else is in the score.
double naturalWidth(const utils::rational &length);

/// Puts grace notes and clefs in front of the columns of a bar, the same in all rows.
void placeInFront(const std::vector<EngravedBar *> &rows, std::size_t columnCount);

/// Does the same, and finds how far apart the columns of the bar want to be and must be.
SpacedBar spaceBar(const std::vector<EngravedBar *> &rows,
                   const std::vector<const BarSource *> &staves, const ColumnSource &column,
                   Onsets onsets, double ratio, const Fonts &fonts);

} // namespace zarn::engraving
