// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/io/instruments/InstrumentName.h>

#include <cstdint>
#include <string_view>

namespace zarn::io {

/// What a word adds to the instrument that it stands with.
enum Trait : std::uint16_t {
    NoTrait = 0,
    Electric = 1 << 0,
    Acoustic = 1 << 1,
    Nylon = 1 << 2,
    Double = 1 << 3, ///< an octave lower: contrabassoon, double bass
    English = 1 << 4,
    Synthetic = 1 << 5,
    Fretless = 1 << 6,
    Upright = 1 << 7,
    Lead = 1 << 8,
    Low = 1 << 9, ///< "bass", in any language
};

/// A word of names: an instrument, a trait, a range of voices, or, with none of these, one that
/// tells nothing.
struct InstrumentWord {
    std::string_view word; ///< small letters without accents, several words in one
    InstrumentSet::Type type = InstrumentSet::unknown;
    bool isOpen = false; ///< the instrument is of several kinds
    Trait trait = NoTrait;
    NamedInstrument::Range range = NamedInstrument::Range::None;
};

/// Null for an unknown word.
const InstrumentWord *findInstrumentWord(std::string_view word);

} // namespace zarn::io
