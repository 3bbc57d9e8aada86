// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

#include <vector>

namespace zarn::engraving {

enum class Side : std::uint8_t { Above, Below };

/// Marks that stand above or below a row, as near to it as ink lets them. Their y is 0 at their
/// base line until they are placed.
struct SideItem {
    Side side = Side::Above;
    Inks inks;
    double gap = 0.4;

    /// The score says on which side it stands.
    bool isSideGiven = false;

    /// Items of one line, but for 0, share their base line.
    int line = 0;
};

/// The line of vibratos, of what is muted with the palm and so on: each kind has its own.
constexpr int stretchLine = 1;

/// The side on which something from left to right has room: not where a beam leads to another row.
Side openSide(const RowDraft &row, Side wish, double left, double right);

using SideItems = std::vector<SideItem>;

/// What finds no room on a line, nearer than the gap to another item of it, stands by itself,
/// outside of what is on the line.
void partNeighbours(SideItems &items, int line, double gap);

/// Places items in their order, those of one line together with the first of them. With `words`,
/// above 0, they are words of one kind, all on one line, that stand at one height all over the row.
void place(RowDraft &row, SideItems items, int words = 0);

/// Chords of one voice that carry the same sign, first and last included.
struct ChordRun {
    std::size_t first = 0;
    std::size_t last = 0;
    bool comesFromBefore = false; ///< begins in a system before this one
    bool goesOn = false;          ///< ends in a later one
};

/// The runs of chords of which `has` says yes; rests between them are part of a run. A chord at
/// which `goesOn(last, chord)` says no begins another run.
template <class Has, class GoesOn>
std::vector<ChordRun> runsOf(const RowDraft &row, Has has, GoesOn goesOn)
{
    std::vector<ChordRun> runs;
    bool isOpen = false;
    for (std::size_t i = 0; i < row.chords.size(); ++i) {
        const PlacedChord &chord = row.chords[i];
        if (i > 0 && row.chords[i - 1].chord->voice != chord.chord->voice)
            isOpen = false;
        if (has(chord)) {
            if (isOpen && goesOn(row.chords[runs.back().last], chord))
                runs.back().last = i;
            else
                runs.push_back({i, i, false, false});
            isOpen = true;
        } else if (!chord.chord->isRest()) {
            isOpen = false;
        }
    }
    return runs;
}

template <class Has>
std::vector<ChordRun> runsOf(const RowDraft &row, Has has)
{
    return runsOf(row, has, [](const PlacedChord &, const PlacedChord &) { return true; });
}

/// Moves what would lead over the end of the line to the left, as far as its beginning at most.
void keepOnLine(Inks &inks, const SystemDraft &draft);

/// A mark of a chord, around the origin of the chord.
const Ink &inkOf(const SystemDraft &draft, const RowDraft &row, const PlacedChord &chord,
                 std::uint32_t number);

/// Where the ink of a chord begins, accidentals included.
double leftInkOf(const SystemDraft &draft, const RowDraft &row, const PlacedChord &chord);

/// Where its ink ends on the right, dots and flags included.
double rightInkOf(const SystemDraft &draft, const RowDraft &row, const PlacedChord &chord);

/// Where the heads of a chord end on the right.
double rightOf(const PlacedChord &chord);

MarkPlace placeOf(const RowDraft &row, const PlacedChord &chord, int note = -1);

/// All that signs hang on, voice by voice, in time: chords, and what is not drawn in its place.
std::vector<const PlacedChord *> carriersOf(const RowDraft &row);

/// The chord of the same voice behind one, whose number is given; null when there is none.
const PlacedChord *nextChord(const RowDraft &row, std::size_t number);

} // namespace zarn::engraving
