// SPDX-License-Identifier: MIT
#include "show/DrumNames.h"

#include <ZarnCore/model/ZarnNote.h>

#include <array>

namespace zarn::tool {

namespace {

constexpr int FirstKey = 35;

/// One percussion key. Keys that differ in how one instrument is struck share a row.
struct KeySound {
    const char *row;
    const char *letter;
    int height;
};

/// General MIDI Level 1 percussion keys from 35 on; heights as a drum staff stacks them.
constexpr std::array<KeySound, 47> KeySounds = {{
    {"Kick 2", "o", 11},       {"Kick", "o", 12},        {"Snare", "x", 40},
    {"Snare", "o", 40},        {"Hand clap", "x", 45},   {"Snare", "o", 40},
    {"Floor tom 2", "o", 21},  {"Hi-hat", "x", 90},      {"Floor tom", "o", 22},
    {"Hi-hat foot", "x", 5},   {"Low tom", "o", 50},     {"Hi-hat", "o", 90},
    {"Mid tom 2", "o", 51},    {"Mid tom", "o", 52},     {"Crash", "x", 99},
    {"High tom", "o", 53},     {"Ride", "x", 95},        {"China", "x", 97},
    {"Ride", "b", 95},         {"Tambourine", "x", 80},  {"Splash", "x", 96},
    {"Cowbell", "x", 81},      {"Crash 2", "x", 98},     {"Vibraslap", "x", 79},
    {"Ride 2", "x", 94},       {"High bongo", "o", 78},  {"Low bongo", "o", 77},
    {"High conga", "x", 76},   {"High conga", "o", 76},  {"Low conga", "o", 75},
    {"High timbale", "o", 74}, {"Low timbale", "o", 73}, {"High agogo", "x", 72},
    {"Low agogo", "x", 71},    {"Cabasa", "x", 70},      {"Maracas", "x", 69},
    {"Whistle", "x", 68},      {"Whistle", "o", 68},     {"Guiro", "x", 67},
    {"Guiro", "o", 67},        {"Claves", "x", 66},      {"High block", "x", 65},
    {"Low block", "x", 64},    {"Cuica", "x", 63},       {"Cuica", "o", 63},
    {"Triangle", "x", 62},     {"Triangle", "o", 62},
}};

} // namespace

DrumSound drumSoundOf(const Note &note)
{
    const bool hasCross = note.isDead() || note.noteHead() == NoteHead::Cross;
    if (note.midi() < 0) {
        if (note.staffLine() != Note::NoStaffLine)
            return {QStringLiteral("line %1").arg(note.staffLine()),
                    hasCross ? QStringLiteral("x") : QStringLiteral("o"), note.staffLine()};
        return {QStringLiteral("percussion"), hasCross ? QStringLiteral("x") : QStringLiteral("o"),
                0};
    }
    const auto index = static_cast<std::size_t>(note.midi() - FirstKey);
    if (note.midi() < FirstKey || index >= KeySounds.size())
        return {QStringLiteral("key %1").arg(note.midi()), QStringLiteral("o"), -note.midi()};
    const KeySound &sound = KeySounds[index];
    return {QLatin1String(sound.row), QLatin1String(sound.letter), sound.height};
}

} // namespace zarn::tool
