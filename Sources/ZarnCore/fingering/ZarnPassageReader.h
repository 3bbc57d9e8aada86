// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/fingering/ZarnPassage.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <cstdint>
#include <vector>

namespace zarn {

class Beat;
class Note;
class Staff;

namespace fingering {

/// What is known of a passage beforehand.
enum class GivenStrings : std::uint8_t {
    Ignored,  ///< all strings are found anew
    KeptOpen, ///< open strings stay open
    Kept,     ///< notes that have a string stay on it
};

/// What becomes of the fingers of the left hand.
enum class LeftFingers : std::uint8_t {
    Untouched,
    Written, ///< found with the strings; those of notes that are kept stay
};

enum class OpenStrings : std::uint8_t {
    AsTheyFit,
    Avoided, ///< played only where a pitch is nowhere else
};

/// What the player wants.
struct FingeringOptions {
    GivenStrings given = GivenStrings::Ignored;
    OpenStrings openStrings = OpenStrings::AsTheyFit;
    LeftFingers fingers = LeftFingers::Untouched;

    /// Frets that stopped notes may have, both included; all that the staff has when `highestFret`
    /// is -1.
    int lowestFret = 1;
    int highestFret = -1;

    /// Most frets between two stopped notes of a chord; -1 for what the instrument's hand holds.
    int widestSpan = -1;

    friend bool operator==(const FingeringOptions &left, const FingeringOptions &right) noexcept
    {
        return left.given == right.given && left.openStrings == right.openStrings
            && left.fingers == right.fingers && left.lowestFret == right.lowestFret
            && left.highestFret == right.highestFret && left.widestSpan == right.widestSpan;
    }
};

/// A note of the score, by its place on its staff, and the note of the passage that it is part of.
struct PassageSource {
    std::uint32_t bar;
    std::uint32_t beat;
    std::uint32_t note; ///< its number in the beat
    std::uint32_t passageNote;
    std::uint8_t voice;
};

/// A stretch of a staff as a passage.
struct ReadPassage {
    Passage passage;

    /// The notes that were asked for, in the order of the tree.
    std::vector<PassageSource> sources;
};

/// Whether the notes of a staff can be fingered: it has strings, and no more than a hand is asked
/// to play.
ZARNCORE_EXPORT bool canBeFingered(const Staff &staff);

/// Reads beats of a staff, given by spans in the order of the tree. Notes around them, of the bars
/// beside them too, that have a string are part of the passage and fixed. So are notes that are
/// tied to such ones, and dead notes and natural harmonics on a string. Fingers count as given
/// where strings do. Hammer-ons, pull-offs and slides lead to a note on the same string; what is
/// let ring does so to the end of its bar. The pitch of a note on a string is what the string
/// sounds there: editions may write it an octave higher. Notes without a pitch are left out.
ZARNCORE_EXPORT ReadPassage readPassage(const Staff &staff, const std::vector<BeatSpan> &spans,
                                        const FingeringOptions &options);

} // namespace fingering
} // namespace zarn
