// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnChordTones.h>

#include <ZarnCore/chords/ZarnChord.h>

namespace zarn::chord {

ChordTones ChordTones::of(const Chord &chord)
{
    if (chord.isNone())
        return {};
    ChordTones tones;
    tones.tones = chord.toneSetWithBass();
    tones.root = chord.root().tone();
    tones.bass = chord.bass().tone();
    tones.omissible = chord.omissibleTones();
    if (chord.hasBass())
        tones.omissible.remove(tones.bass);
    return tones;
}

} // namespace zarn::chord
