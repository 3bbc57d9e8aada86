// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <array>
#include <cstdint>
#include <optional>

namespace zarn::io {

/// How long a note of a type of `WrittenRhythm` is without dots and tuplets, in quarters.
utils::rational lengthOfType(int type);

/// Finds the rhythm values that hold what a document writes, exactly.
///
/// A rhythm value ends at the 256th and starts at the long: the values beyond are held with a
/// tuplet ratio of their own, a 512th as one of four 256ths in the time of two.
class RhythmFitter {
public:
    struct Fit {
        RhythmValue value;
        utils::rational length;
    };

    /// What type, dots and tuplets say; the type is written. Nothing when a ratio does not fit.
    const std::optional<Fit> &written(const WrittenRhythm &rhythm);

    /// One value of exactly this length, which is above 0: plain or dotted; else in the written
    /// tuplets; else with a ratio of its own. Nothing when no ratio fits.
    std::optional<Fit> ofLength(const utils::rational &length, const WrittenRhythm &rhythm);

private:
    struct Memory {
        WrittenRhythm rhythm;
        std::optional<Fit> fit;
    };

    /// The last answers: music repeats few rhythms in a row of many notes.
    std::array<Memory, 16> _memory;
};

} // namespace zarn::io
