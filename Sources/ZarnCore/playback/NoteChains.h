// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/playback/AttackVelocity.h>
#include <ZarnCore/playback/PlayedVoice.h>

#include <cstdint>
#include <vector>

namespace zarn::playback {

/// A written note at a time that it is played.
struct NotePiece {
    static constexpr std::uint32_t None = 0xFFFFFFFF;

    const Note *note = nullptr;
    std::uint32_t beat = 0;    ///< in the played beats
    std::uint32_t next = None; ///< the piece that it is held into
    std::uint16_t number = 0;  ///< of the note in its beat
    std::int8_t slideTo = 0;   ///< semitones to the note that it slides to
    std::int8_t shift = 0;     ///< semitones above the first piece of its chain
};

/// Notes that are struck once: tied to each other, or reached by a slide without an attack.
struct NoteChain {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    Approach approach = Approach::Struck;

    /// Begins with a note that is held from one before, which the voice does not have; ends with
    /// one that is held into a note which it does not have.
    bool isLooseAtStart = false;
    bool isLooseAtEnd = false;
};

/// All notes of a voice in the order of playing, joined to chains.
///
/// A tie joins notes that follow on each other as they are played: into a second ending from the
/// bar in front of the first. A note that is tied to none is struck.
struct NoteChains {
    std::vector<NotePiece> pieces;
    std::vector<NoteChain> chains;

    static NoteChains of(const PlayedBeats &beats);
};

} // namespace zarn::playback
