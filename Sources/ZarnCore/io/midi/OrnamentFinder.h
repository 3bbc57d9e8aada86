// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/TempoLine.h>

namespace zarn::io {

/// Finds what players do around the written times in files that are exact otherwise, and puts the
/// notes where they are written. The notes of rolled chords, which begin shortly one after the
/// other, upwards or downwards, and end together, get the onset of the first one and are marked; a
/// short note that takes the place of a longer one beside it becomes a grace note. Notes are in the
/// order in which they were played, before and after.
void findOrnaments(PlayedNotes &notes, const std::vector<TempoChange> &tempos, double tick);

} // namespace zarn::io
