// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/io/musicxml/MusicXmlTag.h>
#include <ZarnCore/model/ZarnBeatMarks.h>
#include <ZarnCore/model/ZarnNoteMarks.h>
#include <ZarnCore/model/attributes/ZarnBeamGroups.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/music/ZarnTimeSignature.h>
#include <ZarnCore/utils/rational.h>

#include <pugixml.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zarn::io {

/// `actual` notes in the time of `normal`.
struct TupletRatio {
    int actual = 1;
    int normal = 1;

    bool isPlain() const noexcept { return actual == normal; }
    friend bool operator==(const TupletRatio &left, const TupletRatio &right) noexcept
    {
        return left.actual == right.actual && left.normal == right.normal;
    }
};

/// Note type, dots and time modification as they stand in a document.
struct WrittenRhythm {
    /// Halvings of the maxima: 5 is the quarter, 13 the 1024th; -1 when nothing is written.
    static constexpr int NoType = -1;
    static constexpr int Quarter = 5;

    int type = NoType;
    int dots = 0;
    TupletRatio outer; ///< of the outermost tuplet
    TupletRatio inner; ///< what all tuplets inside of it add

    friend bool operator==(const WrittenRhythm &left, const WrittenRhythm &right) noexcept
    {
        return left.type == right.type && left.dots == right.dots && left.outer == right.outer
            && left.inner == right.inner;
    }
};

enum class NoteKind : std::uint8_t { Unknown, Pitched, Unpitched, Rest };

/// One <note>.
struct WrittenNote {
    static constexpr int Unset = -1;

    pugi::xml_node node;
    utils::rational onset;     ///< exact, in quarters from the start of the measure
    utils::rational length;    ///< exact; 0 for a grace note
    utils::rational tolerance; ///< how far the onset may be off, by rounding
    RhythmValue rhythm;

    int voice = 0; ///< number of the voice's name in the part
    int staff = 0;
    NoteKind kind = NoteKind::Unknown;
    bool grace = false;
    bool slashed = false;
    bool isBefore = false; ///< of a grace note: its time comes from the note before
    bool chord = false;
    bool cue = false;
    bool wholeMeasure = false;
    bool hidden = false; ///< is not printed
    bool tieStart = false;
    bool tieStop = false;
    bool ghost = false;
    bool crossHead = false;
    HeadFill headFill = HeadFill::Auto;
    bool beamedOn = false;        ///< its beam leads on
    bool mayExclude = false;      ///< has a mark that takes others off
    bool hasSigns = false;        ///< `WrittenMeasure::signs` has some of its
    bool hasAccidental = false;   ///< is written with the one of its pitch
    bool needsAccidental = false; ///< other notes or the key call for one

    int step = Unset; ///< 0 for C to 6 for B; for unpitched notes where they stand on the staff
    int octave = 4;
    int alter = 0;      ///< in whole semitones
    int midi = Unset;   ///< as written
    int string = Unset; ///< as written: 1 is the highest
    int fret = Unset;
    const char *head = "";       ///< note head, as written
    const char *instrument = ""; ///< id of the score instrument

    NoteMarks marks;
    BeatMarks beatMarks; ///< of the whole chord, as far as it has been read
};

/// A sign at a note that its marks do not hold: it leads to another note, or few notes have it.
struct WrittenSign {
    pugi::xml_node node;
    Tag tag = Tag::Unknown; ///< `Technical` for all bends in it
    std::size_t note = 0;   ///< index in the measure
};

/// One end of a sign that stands between the notes.
struct WrittenSpan {
    pugi::xml_node node;
    Tag tag = Tag::Unknown;
    utils::rational position; ///< exact, in quarters
    int staff = 0;
    std::size_t note = 0; ///< index of the note in the measure that follows it in the document
};

/// What stands at a position over the beats.
struct WrittenMark {
    enum class Kind : std::uint8_t { Dynamic, Attack, Text, ChordSymbol, Ottava };

    pugi::xml_node node;
    Kind kind = Kind::Text;
    utils::rational position; ///< exact, in quarters
    int staff = 0;
    MarkSide side = MarkSide::Auto; ///< of dynamics and texts
    int value = 0; ///< of `NoteDynamic` or `AttackDynamic`, or the `Ottavia` that begins or, with
                   ///< None, ends
    std::string text;
    std::shared_ptr<const ChordDiagram> diagram; ///< of a chord symbol
    std::size_t note = 0; ///< index of the note in the measure that follows it in the document
};

/// Time that the document leaves to a voice: the voice is of the staff from there on.
struct WrittenClaim {
    std::size_t note = 0; ///< index of the note in the measure that follows
    int staff = 0;
    int voice = 0;
    utils::rational onset; ///< exact, in quarters
};

/// Music of one measure of one part.
struct WrittenMeasure {
    pugi::xml_node node;
    std::vector<WrittenNote> notes;
    std::vector<WrittenMark> marks;
    std::vector<WrittenSign> signs; ///< in the order of their notes
    std::vector<WrittenSpan> spans;
    std::vector<WrittenClaim> claims;
    TimeSignature meter;
    BeamGroups groups;      ///< of the beams, where the meter names them
    utils::rational length; ///< the position that the notes reach, exactly

    /// A mark in front of the next note of the document, for the caller to fill.
    WrittenMark &addMark(pugi::xml_node sign, WrittenMark::Kind kind,
                         const utils::rational &position, int staff)
    {
        WrittenMark mark;
        mark.node = sign;
        mark.kind = kind;
        mark.position = position;
        mark.staff = staff;
        mark.note = notes.size();
        return marks.emplace_back(std::move(mark));
    }
};

} // namespace zarn::io
