// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

namespace zarn {

class Staff;

/// Pitches and places on a fretted staff, with its tuning, its capos and the transposition of its
/// track. Pitches are MIDI keys as written: a guitar sounds an octave below. A short drone string
/// is numbered along the long neck.

/// The written pitch of a string at a fret; -1 when the string or the fret does not exist, or when
/// the pitch is no MIDI key. Frets count from the capo, or from the nut when the model ignores the
/// capo; the open string is fret 0 then too.
ZARNCORE_EXPORT int writtenPitch(const Staff &staff, int string, int fret);

/// The fret on which a string sounds a written pitch; -1 when there is none.
ZARNCORE_EXPORT int fretOfPitch(const Staff &staff, int string, int midi);

} // namespace zarn
