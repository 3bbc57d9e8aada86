// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/Ink.h>
#include <ZarnCore/utils/rational.h>

#include <QString>

#include <climits>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace zarn::sheet {

/// A vertical line through all tracks of a bar, on which something stands: a moment in quarters
/// from the start of the bar, and the order of what shares the moment.
struct ColumnKey {
    static constexpr int Signature = INT_MIN; ///< in front of everything
    static constexpr int BarEnd = INT_MAX;    ///< behind everything
    static constexpr int Beat = 0;            ///< grace notes before it count from -1 downwards

    utils::rational onset;
    int order = Beat;

    friend bool operator<(const ColumnKey &left, const ColumnKey &right)
    {
        return std::tie(left.onset, left.order) < std::tie(right.onset, right.order);
    }
    friend bool operator==(const ColumnKey &left, const ColumnKey &right)
    {
        return left.onset == right.onset && left.order == right.order;
    }
};

/// One horizontal line through all bars: a string, a row of note names, a row of rhythms.
struct Lane {
    enum class Kind : std::uint8_t {
        Text,   ///< nothing between the cells
        Row,    ///< the same, with bar lines
        String, ///< a line between the cells, with bar lines
    };

    QString label;
    Kind kind = Kind::Text;
    int staff = 0;          ///< index in `Sheet::staves`
    bool isOptional = true; ///< left out of systems where nothing stands on it
    bool hasRepeatDots = false;

    /// Holds stretches, in as many rows as they need to pass each other; the first one is next to
    /// the notes.
    enum class Stacking : std::uint8_t { None, Upwards, Downwards };
    Stacking stacking = Stacking::None;
};

struct Cell {
    QString text;
    Ink ink = Ink::Plain;
};

/// A bracket over some columns of a lane, with a text in it.
struct Span {
    int lane = 0;
    ColumnKey first;
    ColumnKey last; ///< included
    QString text;
};

/// Words in a stacked lane, or a line over some time: a slur, a hairpin, "let ring" with its
/// dashes. They take no room between the columns. What goes on over a bar line has a piece in each
/// bar.
struct Stretch {
    enum class Style : std::uint8_t {
        Words,   ///< no line
        Dashes,  ///< from the words to a stroke at the last column
        Wave,    ///< from the words up to the next column
        Slur,    ///< from column to column
        Opening, ///< a crescendo, up to the next column
        Closing, ///< a decrescendo, the same
        Pedal,   ///< until it is lifted at the last column
        PedalToChange,
    };

    int lane = 0;
    Style style = Style::Words;
    QString words;
    ColumnKey first;
    ColumnKey last; ///< included
    Ink ink = Ink::Plain;
    int inset = 0; ///< columns that are left free at its beginning

    int run = 0; ///< the same number for all pieces
    bool begins = true;
    bool ends = true;
};

/// A text over a column that may reach over what follows it, and moves up when there is no room.
struct Heading {
    ColumnKey at;
    QString text;
    Ink ink = Ink::Heading;
};

enum class BarLine : std::uint8_t {
    Single,
    Double,
    RepeatStart,
    RepeatEnd,
    RepeatBoth,
    Final,
    Dashed,
    Dotted,
    Heavy,
    Short,
    None,
};

/// An alternate ending drawn over its bars.
struct EndingMark {
    QString text; ///< "1.", empty outside of endings
    bool begins = false;
    bool ends = false;
};

/// One bar of all tracks.
struct SheetBar {
    int number = 0;         ///< counted from 1
    utils::rational length; ///< in quarters, for the room behind the last column
    std::map<ColumnKey, std::map<int, Cell>> columns;
    std::vector<Span> spans;
    std::vector<Stretch> stretches;
    std::vector<Heading> headings;
    EndingMark ending;
    BarLine left = BarLine::Single; ///< joined with the bar line before by the layout
    BarLine right = BarLine::Single;

    void put(const ColumnKey &column, int lane, const QString &text, Ink ink)
    {
        Cell &cell = columns[column][lane];
        cell.text += text;
        cell.ink = ink;
    }
};

/// The name of a staff at the left of its first lane.
struct SheetStaff {
    QString name;
};

/// The music as lines and columns, before it is broken into systems.
struct Sheet {
    std::vector<SheetStaff> staves;
    std::vector<Lane> lanes; ///< from top to bottom, the lanes of a staff together
    std::vector<SheetBar> bars;
    int runCount = 0; ///< of stretches
    int labelGap = 1; ///< columns between the names at the left and the music
};

} // namespace zarn::sheet
