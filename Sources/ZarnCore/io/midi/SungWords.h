// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/TickMap.h>
#include <ZarnCore/io/midi/ZarnMidiTrack.h>

namespace zarn {
class Track;
}

namespace zarn::io {

/// Adds what a track of the score sings, as lyric events where its notes begin, in UTF-8. Each time
/// that a bar is played its next line is sung, while there is one. A space stands behind the end of
/// each word, nothing behind a syllable that goes on. Of voices that sing at one time the first one
/// counts.
void addLyrics(const Track &track, const playback::PlaybackPlan &plan, const TickMap &ticks,
               MidiTrack &midi);

} // namespace zarn::io
