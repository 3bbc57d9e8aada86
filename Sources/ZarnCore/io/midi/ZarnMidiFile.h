// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/ZarnMidiDivision.h>
#include <ZarnCore/io/midi/ZarnMidiTrack.h>

#include <vector>

namespace zarn::io {

/// A Standard MIDI File: what it says, and nothing of what it means.
struct MidiFile {
    /// 0: one track; 1: tracks that sound together; 2: tracks that stand on their own.
    int format = 1;
    MidiDivision division;
    std::vector<MidiTrack> tracks;
};

} // namespace zarn::io
