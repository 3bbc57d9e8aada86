// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/ZarnPassage.h>

#include <cstdint>
#include <vector>

namespace zarn::fingering {

/// Until when notes sound, and until when they should be left to ring: players hold the notes of
/// broken chords until one comes that would clash.
class Ringing {
public:
    /// `longest`: quarters that a note rings at most, from its onset. The passage outlives this.
    Ringing(const Passage &passage, double longest);

    /// Whether a note sounds, as it is written or left to ring, when another begins.
    bool lasts(std::uint32_t note, double onset) const { return _lasts[note] > onset + sameTime; }

    /// The same for the time that it would ring on by itself.
    bool rings(std::uint32_t note, double onset) const { return _ends[note] > onset + sameTime; }

    /// Whether something is tied to a note at that time or later.
    bool isTiedOn(std::uint32_t note, double onset) const
    {
        return _passage.notes[note].tiedUntil > onset - sameTime;
    }

    /// Whether a note and the two events behind it are so far apart that they are tones of a chord.
    bool isOfBrokenChord(std::uint32_t note) const { return _isOfBrokenChord[note] != 0; }

private:
    static constexpr double sameTime = 1e-6;

    const Passage &_passage;
    std::vector<double> _lasts;
    std::vector<double> _ends;
    std::vector<char> _isOfBrokenChord;
};

} // namespace zarn::fingering
