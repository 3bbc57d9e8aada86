// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiPart.h>

namespace zarn {
class NodeBlocks;
class ScoreModel;
} // namespace zarn

namespace zarn::io {

class MidiOddities;

/// Whether the instrument of a part is written on two staves.
bool isForTwoHands(const MidiPart &part) noexcept;

/// Makes the track of a part behind the others of a model that has its master bars. The notes have
/// their times, voices and spellings; where the instrument has frets, the track gets strings and
/// frets. Its beats and notes are made in the blocks.
void writeTrack(const MidiPart &part, const MeterLine &bars, NodeBlocks &nodes, ScoreModel &model,
                MidiOddities &oddities);

} // namespace zarn::io
