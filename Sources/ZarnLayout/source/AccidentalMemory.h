// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/source/BarSource.h>

#include <array>
#include <vector>

namespace zarn::engraving {

/// Which accidentals hold at a moment of a bar, and which a note therefore needs. An accidental
/// holds to the end of the bar, for its letter in its octave.
class AccidentalMemory {
public:
    /// A bar begins in a key, flats below 0.
    explicit AccidentalMemory(int key);

    /// The accidental in front of the next note. A note that is tied from the bar before needs
    /// none, and what it is altered by holds for itself alone. What differs from another note at
    /// once on its line always has one.
    AccidentalSign next(const NoteSource &note, bool isTiedOverBar, bool differsAtOnce);

private:
    static constexpr int unsure = 100; ///< nobody can know: whatever follows is written

    std::array<std::int8_t, 7> _key;
    std::array<std::array<std::int8_t, 7>, 12> _held;
};

/// Gives all notes of a bar their accidentals, in the order in which they are read. `respelled`
/// says of each note whether it is tied from one of another name, and is therefore written anew.
void setAccidentals(BarSource &bar, const std::vector<bool> &respelled);

} // namespace zarn::engraving
