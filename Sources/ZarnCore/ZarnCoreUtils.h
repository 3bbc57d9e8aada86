// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>

#include <memory>
#include <string>
#include <vector>

namespace Halvec::audio {
struct HVVolumePan;
}

namespace zarn {

class Bar;
class KeySignature;
class MasterBar;
class Score;
class TimeSignature;
class ZarnVolumePan;

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
