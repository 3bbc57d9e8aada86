// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <array>
#include <cstdint>

namespace zarn::io {

/// The accidentals that hold in a bar of a staff: those of its key, and of the notes before, for
/// their letter in their octave.
class HeldAccidentals {
public:
    /// Begins a bar under a key of so many fifths, as written.
    void startBar(int fifths);

    /// Whether a note has to be told from what holds. What it is altered by holds from there on.
    bool take(int octave, int step, int alter);

    /// From here on nobody can be sure what holds: after a note that was altered in the bar before
    /// and is tied on.
    void doubt(int octave, int step);

private:
    static constexpr int steps = 7;
    using ByOctaveAndStep = std::array<std::int8_t, std::size_t(steps) * 12>; ///< from octave -1

    static std::size_t indexOf(int octave, int step);

    int _fifths = 0;
    ByOctaveAndStep _ofKey = {};
    ByOctaveAndStep _held = {};
};

/// Has the accidentals of a measure shown that its notes are written with and that nothing in the
/// measure asks for: reminders after a measure in which another one held. Those that are asked for
/// are left to the rules of notation, so that they follow when notes before them change.
void keepReminders(WrittenMeasure &measure, int fifths);

} // namespace zarn::io
