// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiPart.h>

#include <memory>

namespace zarn {
class NodeBlocks;
class Track;
} // namespace zarn

namespace zarn::io {

class MidiOddities;

/// Whether the instrument of a part is written on two staves.
bool isForTwoHands(const MidiPart &part) noexcept;

/// The track of a part whose notes have their times, voices and spellings. Its beats and notes are
/// made in the blocks. Several threads may each make one.
std::shared_ptr<Track> makeTrack(const MidiPart &part, const MeterLine &bars, NodeBlocks &nodes,
                                 MidiOddities &oddities);

/// What is found when the track is one of a model with its master bars: strings and frets where the
/// instrument has them, and where words end of which syllables were left out.
void finishTrack(const MidiPart &part, Track &track, MidiOddities &oddities);

} // namespace zarn::io
