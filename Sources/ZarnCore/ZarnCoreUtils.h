// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Halvec::audio {
struct HVVolumePan;
}

namespace zarn {

class Bar;
class Beat;
class GuitarTuning;
class KeySignature;
class MasterBar;
class Note;
class Score;
class TimeSignature;
class Track;
class ZarnVolumePan;

/// How far a search goes along the voices of one number in a staff.
enum class SearchDeep : std::uint8_t {
    Voice,     ///< to the end of the voice in its bar
    Connected, ///< on through the neighbouring bars, up to one whose voice has no beats
    Staff,     ///< to the end of the staff, past bars whose voice has no beats
};

/// What another note must have in common with a note to be in its slot.
enum class NoteSlot : std::uint8_t {
    Location, ///< the string when both have one, else key, articulation and staff line, as in ties
    String,   ///< the string; a note without one has no slot
    Midi,     ///< the written key; a note without one has no slot
    Any,      ///< nothing: all notes
};

/// Helpers over scores and ranges of their bars.
class ZARNCORE_EXPORT ZarnCoreUtils {
public:
    using BarIterator = std::vector<std::shared_ptr<Bar>>::const_iterator;
    using MasterBarIterator = std::vector<std::shared_ptr<MasterBar>>::const_iterator;

    ZarnCoreUtils() = delete;

    // For every bar from `first` up to, not including, `last`. They change the bars themselves:
    // no command is made and no event sent.

    static void set_clef(BarIterator first, BarIterator last, ClefType clef);

    /// The key at concert pitch.
    static void set_key_signature(MasterBarIterator first, MasterBarIterator last,
                                  const KeySignature &key);
    static void set_time_signature(MasterBarIterator first, MasterBarIterator last,
                                   const TimeSignature &signature);

    // Between the score's gain and the audio layer's decibels. A `ZarnVolumePan` comes back from
    // both conversions as it was, to the bit; a level above 0 decibels or a pan off the ends has
    // none and is clamped, and what is no number becomes silence or the middle.

    static Halvec::audio::HVVolumePan
    convertZarnVolumePanToHVVolumePan(const ZarnVolumePan &volumePan) noexcept;
    static ZarnVolumePan
    convertHVVolumePanToZarnVolumePan(const Halvec::audio::HVVolumePan &volumePan);

    // Which notations a track is shown in, asked of its score; false for null and for a track
    // without one.

    static bool trackHasSlash(const Track *track);
    static bool trackHasStdNotation(const Track *track);
    static bool trackHasTablature(const Track *track);

    using BeatPredicate = std::function<bool(const std::shared_ptr<const Beat> &)>;
    using NotePredicate = std::function<bool(const std::shared_ptr<const Note> &)>;

    // Searches along the voice in which a beat or note is, from it, without it, to the limit and
    // with it, or without a limit as far as the mode goes. The first that the predicate accepts,
    // or null. The notes of a beat come in their order in the beat, or backwards in the reverse:
    // what comes next to the lowest note of a chord may be the note above it.

    static std::shared_ptr<const Beat> findNextBeat(const std::shared_ptr<const Beat> &beat,
                                                    const BeatPredicate &accepts,
                                                    const std::shared_ptr<const Beat> &limit,
                                                    SearchDeep deep);
    static std::shared_ptr<const Beat> findPreviousBeat(const std::shared_ptr<const Beat> &beat,
                                                        const BeatPredicate &accepts,
                                                        const std::shared_ptr<const Beat> &limit,
                                                        SearchDeep deep);
    static std::shared_ptr<const Note> findNextNote(const std::shared_ptr<const Note> &note,
                                                    const NotePredicate &accepts,
                                                    const std::shared_ptr<const Note> &limit,
                                                    SearchDeep deep);
    static std::shared_ptr<const Note> findPreviousNote(const std::shared_ptr<const Note> &note,
                                                        const NotePredicate &accepts,
                                                        const std::shared_ptr<const Note> &limit,
                                                        SearchDeep deep);

    /// The nearest note in the slot in a later, or earlier, beat of the staff's voice, however
    /// far: after 6:3 with `NoteSlot::String` the next note on the lowest string.
    static std::shared_ptr<const Note> findFirstNextNote(const std::shared_ptr<const Note> &note,
                                                         NoteSlot slot);
    static std::shared_ptr<const Note>
    findFirstPreviousNote(const std::shared_ptr<const Note> &note, NoteSlot slot);

    /// The note that was struck when a tied note sounds on: the one at the start of its chain of
    /// ties, from beat to beat without a gap. Null for a note that is not tied, and when the
    /// chain is broken.
    static std::shared_ptr<const Note> findTieOriginNote(const std::shared_ptr<const Note> &note,
                                                         NoteSlot slot);

    /// The note that was struck when a held or released bend goes on in this one: the nearest
    /// before it in the slot, or where that is tied, the origin of its ties. Beats with other
    /// notes may stand between, a rest ends the search, for the string is silent then.
    static std::shared_ptr<const Note> findBendOriginNote(const std::shared_ptr<const Note> &note,
                                                          NoteSlot slot);

    // A score of its own that shows a part of another: the texts, the page and its settings, the
    // tempo and mastering, and the listed tracks in the order in which they are listed, each once.
    // What is not there is left out, and so are audio tracks. It has nothing to undo.

    /// Whole tracks.
    static std::unique_ptr<Score> make_score_preview(const Score &score,
                                                     const std::vector<unsigned> &tracks);

    /// Bars by (track, bar), in columns in the order of the score: (0, 8), (1, 8), (0, 4) gives
    /// two tracks with two bars, the first of them empty in the second track. Tempo and sounds
    /// are those that hold at the bars. Ties to notes that are not there are undone; a simile mark
    /// whose bars are not there gives way to the music that it stands for.
    using BarPlaces = std::vector<std::pair<unsigned, unsigned>>;
    static std::unique_ptr<Score> make_score_preview(const Score &score, const BarPlaces &bars);

    /// The same bars on the strings of another tuning: every fretted staff is fingered anew for
    /// the same pitches. A tuning without strings, or with more than a staff may have, changes
    /// nothing.
    static std::unique_ptr<Score> make_score_preview(const Score &score, const BarPlaces &bars,
                                                     const GuitarTuning &tuning);

    /// Makes a score from a short text:
    ///
    ///     guitar 4/4: 6:3q 5:2e 5:0e [4:0 3:0 2:0]h | rw
    ///     guitar(D2 A2 D3 G3 B3 E4) capo=2 key=F#m: |: "D5"[6:0 5:0]h. 1:xq :|x3
    ///     piano 3/4 tempo=96: c5e/3 d5 e5 f#5h~ | f#5h. + [c3 g3]h. | c3 ; drums: kickq snare
    ///
    /// Tracks stand between ";". A track begins with its instrument: guitar, guitar7, nylon,
    /// electric, bass, bass5, piano, drums, voice, or the text of any category of
    /// `InstrumentSet::Type`. Behind it, in parentheses, the open strings from the lowest. Then
    /// settings: the time, `key=` (`m` for minor), `capo=`, `tempo=` (quarters per minute). Then
    /// ":" and the music, with "+" between the staves.
    ///
    /// - Bars end with "|"; repeats stand between "|:" and ":|", ":|x3" plays three times. Time
    ///   and `key=` may stand at the start of any bar. Shorter tracks are filled with empty bars.
    /// - Up to four voices of a bar stand between "&".
    /// - A note is string:fret (string 1 is the highest, as players count; fret x is a dead note),
    ///   or the written pitch by name with octave, c4 being middle C: c4, bb3, f#5; on drums kick,
    ///   snare, rim, hat, openhat, pedalhat, crash, ride, bell, china, splash, tom1 to tom6, clap,
    ///   cowbell, tambourine. Notes in brackets are a chord, r is a rest.
    /// - The length follows: w h q e s t x (whole to sixty-fourth), dots, and "/3" for a triplet,
    ///   "/5:4" for any tuplet. Without a length the one before holds, at first a quarter.
    /// - "~" ties a beat to the next of its voice. A chord symbol stands in quotes before its beat.
    ///
    /// Raises `CoreException` with line, column and what would be right. The bars need not be
    /// full. The score has nothing to undo.
    static std::unique_ptr<Score> make_from_string(const std::string &text);
};

} // namespace zarn
