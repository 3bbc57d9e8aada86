// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/io/musicxml/Metronome.h>
#include <ZarnCore/model/attributes/ZarnBeamGroups.h>
#include <ZarnCore/model/form/ZarnTripletFeel.h>
#include <ZarnCore/utils/rational.h>

#include <pugixml.hpp>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace zarn::io {

// What one part says about bars and staves besides its notes. Bars and staves count from 0.

struct WrittenKey {
    int bar;
    int fifths;
    bool minor;
    pugi::xml_node node;
};

struct WrittenTime {
    int bar;
    unsigned beats;
    unsigned unit;
    bool free; ///< senza misura
    pugi::xml_node node;
    BeamGroups groups = {}; ///< of a sum such as 3+2
    MeterSign sign = MeterSign::Numbers;
};

struct WrittenClef {
    int bar;
    int staff;
    utils::rational position;
    ClefType clef;
    Ottavia ottavia;
    bool tablature;
};

struct WrittenTempo {
    int bar;
    utils::rational position;
    Tempo tempo = {0, TempoUnit::Quarter}; ///< 0: so many times the one before
    double factor = 1;
    std::string text = {};
    bool visible = false;
    pugi::xml_node node = {};
};

struct WrittenRepeat {
    int bar;
    bool forward;
    unsigned times; ///< of a backward repeat
};

struct WrittenEnding {
    int first;
    int last;
    std::uint32_t passes;
    bool isOpen = false;   ///< the bracket has no end, as of an ending that the music goes on from
    bool isLost = false;   ///< nobody says where it ends: `last` is the last bar it can have
    std::string text = {}; ///< where that is another one than its numbers
    bool isHidden = false;
};

/// A rehearsal letter, or a title of the form.
struct WrittenSection {
    int bar;
    std::string text;
    bool isLetter;
    bool isCircled;
    utils::rational position; ///< exact, in quarters
};

/// From here on.
struct WrittenSwing {
    int bar;
    TripletFeel feel;
};

/// A sign that changes the order of playing, before it is known what the score has to offer.
struct WrittenJump {
    enum class Kind : std::uint8_t { Segno, Coda, Fine, DaCapo, DalSegno, ToCoda };
    enum class Until : std::uint8_t { End, Fine, Coda, DoubleCoda };

    int bar;
    Kind kind;
    Until until;
    std::string name; ///< of the segno or coda; empty when it has none
    pugi::xml_node node;
    std::string words = {}; ///< what it reads as; none for a sign
};

struct WrittenFermata {
    int bar;
    utils::rational position;
    Fermata kind;
    bool isAtEnd = false;    ///< over the bar line, whatever the length of the bar
    utils::rational end = 0; ///< of the note or rest under it
};

/// A bar line of its own kind at the end of a bar.
struct WrittenBarLine {
    int bar;
    BarLine line;
};

/// Bars that repeat those before begin to be written as signs, or cease to be.
struct WrittenMeasureRepeat {
    int bar;
    int staff; ///< -1 for all
    int count; ///< bars that one sign repeats; 0 where it ends
    pugi::xml_node node;
};

struct WrittenStaff {
    int lines = 0;           ///< 0: not said
    std::vector<int> tuning; ///< MIDI keys, the lowest string first
    int capo = 0;
    /// The bar of the first clef of notes.
    int notesFrom = std::numeric_limits<int>::max();
    bool tablature = false; ///< has a TAB clef from the first one on
    bool alternate = false; ///< repeats another staff in another notation
    bool hasTwin = false;   ///< was made one with its tablature
};

/// A transposition of the first staff, from a bar on.
struct WrittenTransposition {
    int bar;
    int chromatic; ///< to what sounds, in semitones
    int diatonic;  ///< and in steps; 0 when not said
};

struct WrittenBar {
    utils::rational length; ///< what the notes of the part reach
    bool implicit = false;
    bool isCounted = false;    ///< says that it is not implicit
    std::optional<int> number; ///< as written; nothing for what is no number, such as "X1"
    pugi::xml_node node;
};

/// Kinds of signs that join notes, and may lack an end.
struct JoiningSigns {
    bool links = false; ///< from beat to beat: slurs, slides, hairpins ...
    bool spans = false; ///< along lines: numbered slurs, syllables, pedals, words
};

struct PartFacts {
    std::vector<WrittenKey> keys;
    std::vector<WrittenTime> times;
    std::vector<WrittenClef> clefs;
    std::vector<WrittenTempo> tempos;
    std::vector<WrittenRepeat> repeats;
    std::vector<WrittenEnding> endings;
    std::vector<WrittenSection> sections;
    std::vector<WrittenSwing> swings;
    std::vector<WrittenJump> jumps;
    std::vector<WrittenMeasureRepeat> measureRepeats;
    std::vector<WrittenFermata> fermatas;
    std::vector<WrittenBarLine> barLines;
    std::vector<int> systemStarts; ///< bars that the document begins a system with
    std::vector<int> doubleBars;
    std::vector<int> finalBars; ///< bars that end with a final bar line, with a repeat or without
    std::vector<int> movementTitles; ///< bars over which such a title stands
    std::vector<WrittenBar> bars;
    std::vector<WrittenStaff> staves;
    std::vector<WrittenTransposition> transpositions;
    JoiningSigns joining;
    int chromatic = 0; ///< transposition of the track to what sounds, in semitones
};

} // namespace zarn::io
