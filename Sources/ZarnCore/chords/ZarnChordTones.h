// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnTone.h>
#include <ZarnCore/music/ZarnToneSet.h>

namespace zarn::chord {

class Chord;

/// What of a chord matters to a hand: which tones sound, not how they are spelled.
struct ChordTones {
    ToneSet tones;     ///< the bass among them
    ToneSet omissible; ///< those that a player may leave out, such as the fifth
    Tone root;
    Tone bass;

    /// No tones for the chord that is none.
    ZARNCORE_EXPORT static ChordTones of(const Chord &chord);

    ChordTones transposed(int semitones) const noexcept
    {
        return {tones.transposed(semitones), omissible.transposed(semitones), root + semitones,
                bass + semitones};
    }

    friend bool operator==(const ChordTones &left, const ChordTones &right) noexcept
    {
        return left.tones == right.tones && left.omissible == right.omissible
            && left.root == right.root && left.bass == right.bass;
    }
    friend bool operator!=(const ChordTones &left, const ChordTones &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn::chord
