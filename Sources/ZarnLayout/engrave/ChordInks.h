// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/AccidentalPacker.h>
#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/source/Rows.h>

#include <set>

namespace zarn::engraving {

/// The chords of all voices that stand together.
using ColumnChords = Few<Chord *, 4>;

/// The strokes of a tremolo of a chord, and where their middle is, from its origin: on its stem, by
/// where that ends, else above the notes, or below those of a lower voice.
Sign tremoloSign(unsigned strokes);
Point tremoloPoint(const Chord &chord, double stemTip, const Fonts &fonts);

/// Makes the marks of the chords and rests of a bar whose heads and stems have their places:
/// heads, ledger lines, stems and flags of what is not beamed, dots, accidentals, arpeggios.
class ChordInks {
public:
    ChordInks(const Row &row, const Pen &pen, const BarSource &source, unsigned bar, bool hasVoices)
        : _row(row), _pen(pen), _source(source), _bar(bar), _hasVoices(hasVoices)
    {
    }

    void add(EngravedBar &bar);

private:
    void addChord(const Chord &chord, Inks &inks) const;
    void addHeads(const Chord &chord, Inks &inks) const;
    Inks parentheses(const Chord &chord, const Head &head) const;
    void addLedgers(const Chord &chord, Inks &inks) const;
    void addStem(const Chord &chord, Inks &inks) const;
    void addRest(const Chord &chord, Inks &inks) const;
    /// `taken`: the spaces, by half spaces above the bottom line, that have dots in this column.
    void addDots(const Chord &chord, double right, std::set<int> &taken, Inks &inks) const;
    void addArpeggio(const Chord &chord, double left, Inks &inks) const;
    double dotStart(const Chord &chord, const ColumnChords &column) const;

    const Row &_row;
    const Pen &_pen;
    const BarSource &_source;
    unsigned _bar;
    bool _hasVoices;
};

/// Heads, stem and flag of a chord as boxes around its origin, to see what stands in whose way.
Few<Box, 6> chordShape(const Chord &chord, const Fonts &fonts);

/// The sign of a rest around its origin.
Ink restInk(const Row &row, const Pen &pen, const Chord &chord);

/// The sign of a rest whose origin is at a height: with a line of its own outside the staff, where
/// it would hang from nothing.
Sign restSign(const Row &row, RhythmValue::NoteValue value, double y);

/// The flags of a stem.
Sign flagOf(int count, bool isUp);

} // namespace zarn::engraving
