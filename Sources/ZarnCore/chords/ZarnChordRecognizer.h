// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/chords/ZarnKeySpelling.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnToneSet.h>

#include <string>
#include <vector>

namespace zarn::chord {

/// A part of what a name costs, in hundredths.
struct NameReason {
    int cost;
    /// "third in the bass".
    std::string text;
};

/// One way to name some tones.
struct ChordName {
    /// With its bass, unless the root is the lowest. Omissions that everybody understands are not
    /// said by the name: see `unheard`.
    Chord chord;

    /// How far-fetched the name is, in hundredths; the best name costs least.
    int cost = 0;

    /// Degrees that the chord has and the tones lack.
    DegreeList unheard;

    /// What the cost has on account of where the tones lie, which a bare set does not tell.
    bool isSeventhFar = false;
    bool isEleventhLow = false;
    bool isThirteenthClose = false;

    bool isJudgedByPlace() const noexcept
    {
        return isSeventhFar || isEleventhLow || isThirteenthClose;
    }

    /// What the cost is made of, the kind of chord first.
    ZARNCORE_EXPORT std::vector<NameReason> reasons() const;
};

/// Finds the chords that tones may be, by the cost of each reading, not by the first that fits.
///
/// A kind costs what it is unusual; inversions, tones left out and a bass from outside cost more
/// on top. All readings of all sets over all basses are prepared in a table when the first
/// recognizer is made; any number of them may be used by different threads.
class ZARNCORE_EXPORT ChordRecognizer {
public:
    /// The key decides how roots are spelled, and which of two equal names comes first.
    explicit ChordRecognizer(const KeySignature &key = KeySignature());

    /// All names of a set of tones over a bass, which belongs to the set; the best one first. None
    /// for a single tone, and for clusters that no symbol names.
    std::vector<ChordName> names(ToneSet tones, Tone bass) const;

    /// The names of sounding pitches (MIDI numbers) in any order, the lowest being the bass.
    std::vector<ChordName> names(const std::vector<int> &pitches) const;

    const KeySpelling &spelling() const noexcept { return _spelling; }

private:
    KeySpelling _spelling;
};

} // namespace zarn::chord
