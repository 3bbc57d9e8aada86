// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MeterLine.h>

#include <cstddef>

namespace zarn::io {

/// What became of notes for which a staff had no voice.
struct VoiceLosses {
    std::size_t shortened = 0; ///< notes that end where a fifth voice begins
    MidiTime first = 0;        ///< when that was first
};

/// Puts the notes of a staff, in the order in which they are written, into voices, the highest
/// first. Notes that begin and end together are a chord. Where one line sounds alone it is one
/// voice; where several do, each goes on with what lies nearest, and they cross as little as can
/// be. At most four voices; what a fifth one would need ends earlier. On the staves of a keyboard a
/// chord that no hand could hold is two.
VoiceLosses separateVoices(PlayedNotes &notes, const MeterLine &bars, bool isForHands);

} // namespace zarn::io
