// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/utils/rational.h>

#include <cstdint>
#include <vector>

namespace zarn {

class ScoreModel;

/// How often a chord may change. In compound meters a beat has three units; bars that have no
/// half, such as those of three beats, count as a whole.
enum class NamingStep : std::uint8_t { Beat, HalfBar, Bar };

/// A chord symbol that may stand at a place.
struct NamedPlace {
    /// Counted from 0.
    unsigned bar = 0;
    /// Quarters from the start of the bar.
    utils::rational offset;
    /// None where the music is silent.
    chord::Chord chord;
};

/// Chord symbols for the bars `first` to `last`, both included, from all that is heard in them
/// but unpitched percussion. Only the places where the chord changes are listed.
ZARNCORE_EXPORT std::vector<NamedPlace> nameChords(const ScoreModel &model, unsigned first,
                                                   unsigned last, NamingStep step);

} // namespace zarn
