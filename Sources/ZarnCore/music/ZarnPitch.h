// SPDX-License-Identifier: MIT
#pragma once

namespace zarn::core {

/// A pitch as a step of the natural scale and its alteration. Octaves are counted as MIDI numbers
/// divide by 12: middle C, MIDI 60, begins octave 5.
class Pitch {
public:
    /// C in octave 0.
    constexpr Pitch() noexcept = default;

    /// `naturalStep` is 0, 2, 4, 5, 7, 9 or 11 semitones above C, `alteration` -2 to 2 semitones.
    /// Other numbers are kept as they are; no pitch class has them.
    constexpr Pitch(int naturalStep, int alteration, int octave = 0) noexcept
        : _naturalStep(naturalStep), _alteration(alteration), _octave(octave)
    {
    }

    constexpr int naturalStep() const noexcept { return _naturalStep; }
    constexpr int alteration() const noexcept { return _alteration; }
    constexpr int octave() const noexcept { return _octave; }

    /// MIDI number; the octave is that of the natural step (C flat of octave 5 is 59).
    constexpr int midi() const noexcept { return 12 * _octave + _naturalStep + _alteration; }

    friend constexpr bool operator==(const Pitch &left, const Pitch &right) noexcept
    {
        return left._naturalStep == right._naturalStep && left._alteration == right._alteration
            && left._octave == right._octave;
    }
    friend constexpr bool operator!=(const Pitch &left, const Pitch &right) noexcept
    {
        return !(left == right);
    }

private:
    int _naturalStep = 0;
    int _alteration = 0;
    int _octave = 0;
};

} // namespace zarn::core
