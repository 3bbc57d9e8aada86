// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <cstdint>
#include <string>

namespace zarn::io {

/// What the name of a part or an instrument says, read by whole words in the languages that scores
/// are written in, without regard to case, accents, numbers ("2.", "III") and keys ("in Bb").
struct NamedInstrument {
    /// A word that several instruments and voices share, when nothing else in the name tells.
    enum class Range : std::uint8_t { None, High, Alto, Tenor, Baritone, Bass };

    InstrumentSet::Type type = InstrumentSet::unknown;
    Range range = Range::None;

    /// The name leaves the kind open: a guitar that is not said to be electric.
    bool isOpen = false;

    /// Every word was understood; otherwise a part of the name gave the type.
    bool isWhole = false;

    /// As `isWhole`, and one instrument alone is meant.
    bool isExact() const noexcept { return isWhole && type != InstrumentSet::unknown && !isOpen; }

    bool isKnown() const noexcept { return type != InstrumentSet::unknown || range != Range::None; }
};

NamedInstrument readInstrumentName(const std::string &name);

} // namespace zarn::io
