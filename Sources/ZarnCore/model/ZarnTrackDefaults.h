// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <array>
#include <cstdint>

namespace zarn {

/// How a new track of an instrument category is set up.
struct TrackDefaults {
    /// Category that the row stands for: a member, or a group with all its members.
    InstrumentSet::Type type;
    ZarnIconID icon;
    std::uint8_t staffCount = 1;
    ClefType clef = ClefType::G2;

    /// Semitones from written to sounding.
    std::int8_t transpositionOffset = 0;

    /// Standard tuning: open strings as they sound, string 0 first; 0 behind the last string.
    std::array<std::uint8_t, 6> strings = {};
    GuitarTuning::Instrument tuningInstrument = GuitarTuning::Undefined;
    bool shortDroneString = false;
};

/// The row of a category: its own, or that of the smallest group which holds it.
ZARNCORE_EXPORT const TrackDefaults &trackDefaults(InstrumentSet::Type type) noexcept;

/// Clef at the start of a staff: that of the table; below a treble clef stands a bass clef, as on
/// a piano, but not below that of a fretted instrument.
ZARNCORE_EXPORT ClefType defaultClef(InstrumentSet::Type type, unsigned staffIndex) noexcept;

} // namespace zarn
