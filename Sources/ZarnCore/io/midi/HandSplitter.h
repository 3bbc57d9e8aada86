// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/PlayedNote.h>

#include <vector>

namespace zarn::io {

/// Whether what a keyboard plays on one staff is written on two: it is low and high, and both at
/// once.
bool needsTwoStaves(const PlayedNotes &notes);

/// Parts the notes of a keyboard, in the order in which they were played, between two hands: a hand
/// reaches an octave with ease, also while it holds keys, has five fingers and does not jump
/// without need. The right one comes first.
std::vector<PlayedNotes> splitHands(const PlayedNotes &notes);

} // namespace zarn::io
