// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <cstdint>
#include <string>

namespace zarn::playback {

/// How the sound of a note is brought out, for those who have a sample of it.
enum class Technique : std::uint8_t {
    Plucked,
    HammeredOn,
    PulledOff,
    Tapped,
    Slapped,
    Popped,
    PalmMuted,
    Harmonic,
    Dead,  ///< on muted strings, without a pitch of its own
    Knock, ///< on the body of a guitar
};

/// "plucked", "hammered on" and so on.
ZARNCORE_EXPORT std::string techniqueText(Technique technique);

/// A note that sounds once: a chain of tied notes is one, each stroke of a tremolo is one.
struct PlannedNote {
    static constexpr std::int32_t NoMotion = -1;

    // In quarters of playing and in seconds, from the first played bar; in front of it below 0.
    utils::rational start;
    utils::rational end;
    double startSecond = 0;
    double endSecond = 0;

    std::uint8_t key = 0;      ///< MIDI key that sounds
    std::uint8_t velocity = 0; ///< 1 to 127
    Technique technique = Technique::Plucked;
    bool isPercussion = false;      ///< the key is one of the General MIDI percussion map
    std::int8_t string = -1;        ///< 0 the lowest; -1 for none
    std::uint16_t lane = 0;         ///< in `PlaybackPlan::lanes`
    std::int32_t motion = NoMotion; ///< in `PlaybackPlan::motions`

    // Where its attack is written.
    std::uint16_t track = 0;
    std::uint8_t staff = 0;
    std::uint8_t voice = 0;
    std::uint16_t note = 0; ///< in its beat
    std::uint32_t beat = 0; ///< in its voice
    std::uint32_t bar = 0;
    std::uint32_t playedBar = 0; ///< in `PlayedBars::bars`: which time the bar is played

    utils::rational length() const { return end - start; }
};

/// A change of how a track sounds.
struct PlannedControl {
    enum class Kind : std::uint8_t {
        Program,    ///< `number` is the program of the General MIDI sound, the value its bank
        Controller, ///< `number` is a MIDI controller
    };

    utils::rational time; ///< in quarters of playing
    double second = 0;
    std::uint16_t track = 0;
    Kind kind = Kind::Controller;
    std::uint8_t number = 0;
    std::uint16_t value = 0; ///< 0 to 127; of a bank coarse * 128 + fine
    std::int16_t sound = -1; ///< of a program, in `PlaybackPlan::sounds`
};

/// The MIDI controllers that a plan makes use of.
enum Controller : std::uint8_t {
    VolumeController = 7,
    PanController = 10,
    ExpressionController = 11,
    SustainController = 64,
    BrightnessController = 74,
};

} // namespace zarn::playback
