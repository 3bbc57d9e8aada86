// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiPart.h>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

/// Gives an empty model its master bars with meters, keys, tempos and sections, and its title.
void writeMasterBars(const MidiMusic &music, const MeterLine &bars, ScoreModel &model);

} // namespace zarn::io
