// SPDX-License-Identifier: MIT
#pragma once

#include "common/Choices.h"
#include "edit/Values.h"

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

namespace zarn {

class ScoreModel;

namespace tool {

struct Word;

/// How a parameter is written. Places are counted from 1 by the user, from 0 in the value.
enum class Kind {
    Whole,       ///< int
    Decimal,     ///< double
    Switch,      ///< bool: on, off
    Text,        ///< QString
    Choice,      ///< int: the number of a word of a list
    Bar,         ///< int
    BarGap,      ///< int: a bar, or the place behind the last one
    Bars,        ///< BarRange: 5, 5-8, all
    Beat,        ///< BeatPlace: 3:2
    NewBeat,     ///< BeatPlace: the same, also in the bar that would be the next
    Beats,       ///< BeatRange: 3:2, 3:2-4, 3:2-4:1
    Selection,   ///< SelectionValue: all words that are left
    CursorMoves, ///< vector of CursorMove: all words that are left
    Track,       ///< int
    TrackGap,    ///< int: a track, or the place behind the last one
    String,      ///< int from 0, the lowest; typed from 1, the highest
    Rhythm,      ///< RhythmValue
    Time,        ///< TimeSignature
    Key,         ///< KeySignature
    Pitch,       ///< PitchValue, as it sounds; on drums also a drum
    Music,       ///< QString in quotes: the library's short text
    Instrument,  ///< QString: what `makeTrack` takes
    Tuning,      ///< QString, what `tuningOf` takes: all words that are left
    Passes,      ///< int, a bit per pass: 1, 1,3, 1-3, none
    Strip,       ///< int: a track, or -1 for "master"
    NamedValues, ///< vector of NamedValue: all words that are left, names and values in turn
    Several,     ///< vector of int: the numbers of words of a list, or none: all that are left
};

/// An assumed parameter may be left out anywhere in the line; the selection or the cursor, as far
/// as there are any, stand in for it.
enum class Presence { Required, Optional, Assumed };

/// One parameter of an edit command.
struct Parameter {
    QString name; ///< as the help shows it: "BARS"
    Kind kind;
    Presence presence = Presence::Required;
    double least = 0; ///< of numbers
    double most = 0;
    const Choices *choices = nullptr;
};

/// What the numbers of a line are checked against.
struct ReadingContext {
    const ScoreModel *model;
    Where where;
    bool hasCursor = false; ///< whether the cursor is anywhere
    bool hasSelection = false;
};

/// Reads one word. Raises `LineError` that says what would be right.
Value readValue(const Parameter &parameter, const Word &word, const ReadingContext &context);

/// Whether a parameter takes all words that are left, and what it makes of them.
bool takesAllWords(const Parameter &parameter);
Value readValues(const Parameter &parameter, const std::vector<Word> &words,
                 const ReadingContext &context);

/// Whether a word may be meant for a parameter, right or wrong.
bool looksLike(const Parameter &parameter, const Word &word);

/// Whether there is something that stands in for a parameter that is left out.
bool isAssumable(const Parameter &parameter, const ReadingContext &context);

/// Reads "t2", "s1" or "v3" into the place; false for any other word. Raises `LineError` for a
/// track, staff or voice that does not exist.
bool readWhere(const Word &word, const ReadingContext &context, Where &where);

/// What a parameter takes, for messages and help: "a bar such as 5 or bars such as 5-8".
QString expectation(const Parameter &parameter);

/// What stands in for a parameter, and that nothing does; empty for one that is never assumed.
QString assumption(const Parameter &parameter);
QString missingAssumption(const Parameter &parameter);

/// Words to offer for a parameter that takes one of a list.
QStringList suggestions(const Parameter &parameter);

} // namespace tool
} // namespace zarn
