// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiPart.h>

#include <vector>

namespace zarn::io {

/// The keys of a file, in the order of time, out of those that its tracks state. Tracks of
/// transposing instruments may have keys of their own: of different keys at one time that counts
/// which fits the notes of the parts up to the next one best.
std::vector<KeyChange> chooseKeys(std::vector<KeyChange> stated, const MidiMusic &music);

} // namespace zarn::io
