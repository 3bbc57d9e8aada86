// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnFingeringLibrary.h>
#include <ZarnCore/chords/ZarnFretboard.h>
#include <ZarnCore/commands/Track/ZarnChangedChords.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/notes/ZarnRetuning.h>
#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnKeySignature.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn {

/// What becomes of chords when the strings of their staff are tuned anew.
///
/// Where the pitches are kept, symbols stay, and a diagram that sounds otherwise becomes the best
/// way to play its chord; it goes where that is not known or no hand can play it. So it is with
/// other numbers of strings. Where the frets are kept, so are the diagrams; chords that sound
/// higher or lower by the same on all strings are transposed in the key, others with a diagram are
/// named by what it sounds. A chord without a diagram stays then.
///
/// Each chord is looked at once. Shapes are the built-in ones, not the user's, so that a command
/// does the same whenever it is done.
class ChordRetuning {
public:
    /// Strings with their capos.
    struct Strings {
        GuitarTuning tuning;
        chord::Capos capos;
    };

    ChordRetuning(const Strings &before, const Strings &after, unsigned fretCount,
                  Retuning retuning);

    /// Of the chords to come.
    void setKey(const KeySignature &key);

    ChordMark retuned(const ChordMark &chord);
    ChordsOfStaff retuned(ChordsOfStaff sets);

private:
    /// What is done with the chords.
    enum class Way { Leave, Transpose, Name, Voice };

    /// By what chords show.
    struct IsBefore {
        bool operator()(const ChordMark &left, const ChordMark &right) const;
    };

    Way wayFor(Retuning retuning) const;
    std::optional<int> commonShift() const;
    bool soundsOtherwise(const ChordDiagram &diagram) const;
    ChordMark find(const ChordMark &chord);
    ChordMark transposed(const ChordMark &chord) const;
    ChordMark named(const ChordMark &chord) const;
    ChordMark voiced(const ChordMark &chord);
    std::optional<ChordDiagram> voicingOf(const std::string &symbol);

    Strings _before;
    Strings _after;
    chord::Fretboard _neckBefore;
    chord::Fretboard _neckAfter;
    unsigned _fretCount;
    std::optional<int> _shift; ///< semitones, when all strings go by the same
    Way _way;

    std::optional<KeySignature> _key;
    Interval _interval; ///< in the key, for `Way::Transpose`
    std::map<ChordMark, ChordMark, IsBefore> _found;
    std::map<std::string, std::optional<ChordDiagram>> _voicings; ///< by chord symbol
    chord::FingeringLibrary _library;
};

} // namespace zarn
