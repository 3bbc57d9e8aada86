// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MeterLine.h>

#include <vector>

namespace zarn::io {

// What is done with the notes of a staff of which the file says how they are written. Each note
// knows its place by its number in the list.

/// Whether that is any.
bool isToldAtAll(const PlayedNotes &notes) noexcept;

/// The notes by staff, the upper one first. Those of which nothing is said go where the last note
/// was nearest.
std::vector<PlayedNotes> splitAsWritten(const PlayedNotes &notes,
                                        const std::vector<WrittenPlace> &places);

/// Gives them their times, voices and ties, and puts all in the order of their times.
void placeAsWritten(PlayedNotes &notes, const std::vector<WrittenPlace> &places,
                    const MeterLine &bars);

/// Gives them their spelling where it stands for their key.
void spellAsWritten(PlayedNotes &notes, const std::vector<WrittenPlace> &places);

/// Takes them out of the others, and puts them back in the order of their times.
PlayedNotes takeTold(PlayedNotes &notes);
void putBack(const PlayedNotes &told, PlayedNotes &notes);

} // namespace zarn::io
