// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/AttributesReader.h>
#include <ZarnCore/io/musicxml/BarlineReader.h>
#include <ZarnCore/io/musicxml/DirectionReader.h>
#include <ZarnCore/io/musicxml/MeasureTimeline.h>
#include <ZarnCore/io/musicxml/NoteReader.h>
#include <ZarnCore/io/musicxml/OpenTies.h>
#include <ZarnCore/io/musicxml/RhythmFitter.h>
#include <ZarnCore/io/musicxml/StaffTranspositions.h>

namespace zarn::io {

/// Reads the measures of one part after another, and puts every note at its exact place.
///
/// A note's length is what its type, dots and tuplets say, as long as rounding explains how the
/// written duration differs from it; otherwise the duration holds.
class PartReader {
public:
    PartReader(ImportContext &context, SourceTally &tally);

    void startPart(PartFacts &facts, PartTally &tally);

    /// Reads a measure into `measure`, whose memory is used again. `content` holds the elements;
    /// `frame` is the <measure>, which is the same in the partwise layout.
    void readMeasure(pugi::xml_node frame, pugi::xml_node content, WrittenMeasure &measure);

    /// Reports what the part left open.
    void finishPart();

private:
    void readNote(pugi::xml_node node, WrittenMeasure &measure);
    void addSigns(WrittenMeasure &measure);
    void readPrint(pugi::xml_node print);
    void joinChord(WrittenNote &note);
    bool fillsItsBar(const WrittenNote &note, const utils::rational &length) const;
    void placeNote(WrittenNote &note);
    std::optional<utils::rational> nominalLength(const WrittenRhythm &rhythm, WrittenNote &note);
    void fitLength(WrittenNote &note, const utils::rational &length);
    void addLength(const utils::rational &length);
    void claim(pugi::xml_node forward, WrittenMeasure &measure);
    void jump(pugi::xml_node node, int sign);

    ImportContext &_context;
    SourceTally &_whole;
    PartFacts *_facts = nullptr;
    PartTally *_tally = nullptr;
    utils::rational _length; ///< of the part, as the written durations say

    MeasureTimeline _timeline;
    RhythmFitter _fitter;
    NoteReader _notes;
    StaffTranspositions _transpositions;
    OpenTies _ties;
    AttributesReader _attributes;
    DirectionReader _directions;
    BarlineReader _barlines;

    /// What further notes of a chord take over from its first one.
    struct ChordPlace {
        utils::rational onset;
        utils::rational tolerance;
        utils::rational length;
        RhythmValue rhythm;
        bool grace;
    };
    std::optional<ChordPlace> _chord; ///< in the measure, when a note has been read
    WrittenRhythm _chordRhythm;
    std::optional<utils::rational> _chordDuration; ///< as written, in divisions
    bool _hasStrayStaff = false; ///< a note stood on a staff past the last that can be
};

} // namespace zarn::io
