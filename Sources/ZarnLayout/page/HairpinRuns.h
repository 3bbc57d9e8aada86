// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemDraft.h>

#include <vector>

namespace zarn::engraving {

/// Beats under one hairpin.
struct HairpinRun {
    Hairpin kind = Hairpin::NoHairpin;
    const PlacedChord *first = nullptr;
    const PlacedChord *last = nullptr;
    const PlacedChord *next = nullptr; ///< behind the last in its voice and bar; null for none
    bool isFirstOfVoice = false;       ///< nothing of its voice is in front of it
};

/// The hairpins of a row, in the order of the voices that they begin in. `carriers` are all that
/// signs hang on, voice by voice, in time.
std::vector<HairpinRun> hairpinRuns(const std::vector<const PlacedChord *> &carriers);

/// Where a hairpin ends behind whose last beat nothing is drawn in its voice and bar: at the bar
/// line, or at the column behind a hidden beat that others follow.
double endOfBeat(const SystemDraft &draft, const PlacedChord &chord);

} // namespace zarn::engraving
