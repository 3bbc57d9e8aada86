// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/engrave/Problems.h>
#include <ZarnLayout/page/EngravedScore.h>
#include <ZarnLayout/space/Skyline.h>

#include <map>
#include <utility>
#include <vector>

namespace zarn::engraving {

/// A chord or rest at its place in a system.
struct PlacedChord {
    const Chord *chord = nullptr;
    const BarSource *source = nullptr;
    unsigned shownBar = 0;
    unsigned bar = 0; ///< index in the score
    double x = 0;     ///< of its origin
    double stemTip = 0;
    double signTop = 1e9; ///< of articulations
    double signBottom = -1e9;
    bool hasTupletElsewhere = false; ///< its tuplet is named at a beam over two staves

    double headCentre() const noexcept { return x + chord->width / 2; }
    double stemX() const noexcept { return x + chord->stemX; }
    const BeatSource &beat() const noexcept { return *chord->beat; }
    const NoteSource &note(const Head &head) const { return source->notes[head.note]; }

    /// The outermost ink of heads and stem.
    double top() const noexcept
    {
        const double heads =
            chord->isRest() ? 0 : std::min(chord->top() - 0.5 * chord->scale, signTop);
        return chord->hasStem && chord->isStemUp && !chord->isRest() ? std::min(heads, stemTip)
                                                                     : heads;
    }
    double bottom() const noexcept
    {
        const double heads =
            chord->isRest() ? 0 : std::max(chord->bottom() + 0.5 * chord->scale, signBottom);
        return chord->hasStem && !chord->isStemUp && !chord->isRest() ? std::max(heads, stemTip)
                                                                      : heads;
    }
};

/// Words that stand at one height all over a line: how far outwards their base line is from the top
/// line of the row, by what they are and on which side.
using WordHeights = std::map<int, double>;

/// A row of a system while it is drawn. y counts from its top line.
struct RowDraft {
    const Row *row = nullptr;
    unsigned number = 0;
    int stringCount = 0; ///< of the staff's tuning
    Inks inks;
    std::vector<PlacedChord> chords; ///< voice by voice, in time
    std::vector<PlacedChord> silent; ///< what signs hang on that is not drawn in its place

    /// All that signs hang on, voice by voice, in time; there when signs are added.
    std::vector<const PlacedChord *> carriers;

    Skyline above; ///< reaches upwards: -y
    Skyline below; ///< reaches downwards: y
    double y = 0;  ///< of the top line, in the system

    WordHeights wantedHeights; ///< as the ink wants them
    WordHeights givenHeights;  ///< at least, in a part of a line, as other parts want them

    /// From where to where a beam leads to the row above, and to the one below: room that is its.
    std::vector<std::pair<double, double>> beamsAbove;
    std::vector<std::pair<double, double>> beamsBelow;

    /// Beams between the row and another one, where they come nearest to it.
    Inks beamsBetween;
    /// Where dashes behind words of a system before go on; `Auto` where none do.
    MarkSide openWords = MarkSide::Auto;

    /// Bar lines that run through what lies above the row, and below it.
    bool hasLinesAbove = false;
    bool hasLinesBelow = false;
    std::vector<double> barLines; ///< where they stand, their left edges

    RowDraft(const Row &row, unsigned number, double width)
        : row(&row), number(number), above(width, 0), below(width, row.height())
    {
    }

    void cover(const Box &box)
    {
        above.insert(box.left, box.right, -box.top);
        below.insert(box.left, box.right, box.bottom);
    }

    /// Adds ink that others must keep away from.
    void add(Ink ink)
    {
        cover(ink.box);
        inks.push_back(std::move(ink));
    }
    void add(Inks more)
    {
        for (Ink &ink : more)
            add(std::move(ink));
    }
};

struct BarPlace {
    unsigned shownBar = 0;
    double left = 0;  ///< where the notes' room begins, behind the bar line and its signs
    double right = 0; ///< of the bar line's left edge
    std::vector<double> columns;
};

/// One system while it is drawn.
struct SystemDraft {
    SystemDraft(const EngravedScore &engraved, const Pen &used, Problems &found)
        : score(engraved), pen(used), problems(found)
    {
    }

    const EngravedScore &score;
    const Pen &pen;
    Problems &problems;
    unsigned first = 0; ///< shown bars
    unsigned end = 0;
    double staffLeft = 0; ///< where staff lines begin
    double musicLeft = 0; ///< behind clefs and keys
    double right = 0;
    double room = 0; ///< of the whole line: what is longer becomes smaller
    bool isFirst = false;
    bool knowsBefore = false; ///< what begins in the bar in front goes on here
    bool knowsBehind = false;
    OpenSyllables openSyllables; ///< at its beginning
    std::vector<RowDraft> rows;
    std::vector<BarPlace> bars;

    /// The bar that a chord stands in.
    const BarPlace &barOf(const PlacedChord &chord) const { return bars[chord.shownBar - first]; }

    /// Where the last bar ends: behind it are its line and what warns of the next system.
    double musicRight() const noexcept { return bars.empty() ? right : bars.back().right; }

    /// Ink over the whole system: bar lines through staves, brackets.
    Inks inks;
};

} // namespace zarn::engraving
