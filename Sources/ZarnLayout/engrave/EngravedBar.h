// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Ink.h>
#include <ZarnLayout/source/BarSource.h>
#include <ZarnLayout/source/Rows.h>

#include <cstdint>
#include <vector>

namespace zarn::engraving {

/// A head, or the number of a fret, of a chord.
struct Head {
    std::uint16_t note = 0; ///< number in the bar's notes
    std::int16_t line = 0;  ///< half spaces above the bottom line; in tablature the string
    double x = 0;           ///< its left edge, from the origin of the chord
    double y = 0;
    double width = 0;
    std::uint32_t glyph = 0;
    bool isDisplaced = false; ///< on the other side of the stem
};

/// A beat of one row as it is engraved: a chord, a rest, or a sign in their place. Its marks lie
/// around its origin, the left edge of the heads on the usual side of the stem.
struct Chord {
    const BeatSource *beat = nullptr;
    unsigned voice = 0;   ///< number
    unsigned column = 0;  ///< of its bar
    double x = 0;         ///< from the column
    double scale = 1;     ///< of small notes
    Few<Head, 1> heads;   ///< from the lowest up; none for rests
    double width = 0;     ///< of the heads on the usual side
    double restShift = 0; ///< of a rest, down from its usual place
    bool isAbove = false; ///< of a rest beside other voices: these are below it
    bool hasStem = false;
    bool isStemUp = true;
    bool isForced = false; ///< the stem's direction is not free: said, or there are other voices
    bool hasRival = false; ///< other voices are in its bar
    bool isBeamed = false;
    bool isCrossBeamed = false; ///< by a beam that other staves hang on too
    bool isSlash = false;       ///< one slash stands for the notes
    bool isShared = false;      ///< a rest that the sign of another voice stands for
    double stemX = 0;           ///< middle of the stem, from the origin
    double stemRoot = 0;        ///< y where the stem leaves the head that is farthest from its tip
    double stemTip = 0;         ///< y
    Box room; ///< of a grace note, for what leads from it and to it: bends, slides
    std::uint32_t firstInk = 0;
    std::uint32_t inkEnd = 0;

    bool isRest() const noexcept { return heads.empty(); }
    double top() const noexcept { return heads.empty() ? 0 : heads.back().y; }
    double bottom() const noexcept { return heads.empty() ? 0 : heads.front().y; }
};

/// Where the marks of a bar of a row come from: those that are of no voice, and those of a chord or
/// of one of its notes, by number in the beat.
inline MarkPlace placeOfBar(const Row &row, unsigned bar)
{
    MarkPlace place;
    place.track = static_cast<std::int16_t>(row.track);
    place.bar = static_cast<std::int32_t>(bar);
    place.staff = static_cast<std::int8_t>(row.staff);
    return place;
}

inline MarkPlace placeOfChord(const Row &row, unsigned bar, const Chord &chord, int note = -1)
{
    MarkPlace place = placeOfBar(row, bar);
    place.voice = static_cast<std::int8_t>(chord.voice);
    place.beat = static_cast<std::int16_t>(chord.beat->index);
    place.note = static_cast<std::int16_t>(note);
    return place;
}

/// What keeps columns apart: the ink of a row around a column.
struct SpaceBox {
    enum class Kind : std::uint8_t { Head, Accidental, Dot, Stem, Ledger, Rest, Sign, Text };

    Box box;
    Kind kind;
};
using SpaceBoxes = Few<SpaceBox, 6>;

/// Heights of lyrics and chord symbols in the boxes that keep columns apart: far from all other
/// ink, so that words meet words alone.
constexpr double lyricSpaceY = 1000;
constexpr double symbolSpaceY = -1000;
constexpr double dynamicSpaceY = 500;
constexpr double pedalSpaceY = 600;

/// A row of a bar, engraved before the places of its columns are known.
struct EngravedBar {
    std::vector<Chord> chords; ///< voice by voice, in time
    Inks inks;                 ///< of the chords, around their origins

    /// What signs hang on that has no ink of its own in the columns: rests of whole bars, which
    /// stand in the middle, and beats that are hidden. Voice by voice, in time.
    std::vector<Chord> silent;

    /// Around the columns: the boxes of a column follow one another.
    struct ColumnSpace {
        SpaceBoxes boxes;
    };
    std::vector<ColumnSpace> columns;

    /// Of words at a grace note, around its column as long as the note has no place in front of it.
    struct GraceWord {
        std::uint32_t chord; ///< its number in `chords`
        SpaceBox space;
    };
    std::vector<GraceWord> graceWords; ///< note by note

    /// Clefs that change inside the bar, each in front of a column; the one behind the last column
    /// is in front of the bar line.
    struct ColumnSign {
        unsigned column;
        Ink ink;
    };
    std::vector<ColumnSign> clefs;

    /// A rest for the whole bar, or a simile sign: in the middle of the bar.
    Inks centred;
    double centredWidth = 0;
};

} // namespace zarn::engraving
