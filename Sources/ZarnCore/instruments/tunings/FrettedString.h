// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnTone.h>

#include <list>

namespace zarn {

/// One string, and the frets at which it sounds a pitch or a tone; `GuitarTuning` says more.
class FrettedString {
public:
    /// Open pitch as a MIDI number, and the fret of the long neck at which the string begins.
    FrettedString(int openMidi, int firstFret) noexcept : _openMidi(openMidi), _firstFret(firstFret)
    {
    }

    int midi(int fret) const noexcept;

    // -1 when there is no such fret.

    int fret(int midi, int lastFret) const noexcept;
    int fret(const Tone &tone, unsigned firstFret, int lastFret) const noexcept;

    /// All frets with a tone, ascending.
    std::list<int> frets(const Tone &tone, int lastFret) const;

private:
    int _openMidi;
    int _firstFret;
};

} // namespace zarn
