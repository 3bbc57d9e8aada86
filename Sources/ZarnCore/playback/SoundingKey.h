// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnTrack.h>

#include <optional>

namespace zarn::playback {

/// A key that is heard.
struct SoundingKey {
    int key = 0; ///< 0 to 127
    bool isPercussion = false;
    bool isGuessed = false; ///< nothing says how the percussion note sounds
};

/// What a note sounds, its harmonic aside: with the transposition of its track, brought into the
/// range of MIDI by octaves; for percussion the key of its own or of its articulation, else an
/// unspecific one. Nothing for a note without a pitch.
std::optional<SoundingKey> soundingKey(const Note &note, const Track &track);

/// The key of a harmonic: above the open string for a natural one, above the note for all others.
/// Without a string the note of a natural harmonic is taken as it is written.
int keyOfHarmonic(const Note &note, const Staff &staff, const Track &track, int key);

/// By octaves into 0 to 127.
int withinMidi(int key) noexcept;

} // namespace zarn::playback
