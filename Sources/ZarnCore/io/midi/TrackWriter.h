// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiPart.h>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class MidiOddities;

/// Whether the instrument of a part is written on two staves.
bool isForTwoHands(const MidiPart &part) noexcept;

/// Makes the track of a part behind the others of a model that has its master bars. The notes have
/// their times, voices and spellings; where the instrument has frets, the track gets strings and
/// frets.
void writeTrack(const MidiPart &part, const MeterLine &bars, ScoreModel &model,
                MidiOddities &oddities);

} // namespace zarn::io
