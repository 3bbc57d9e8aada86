// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/ZarnTypedPitch.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>
#include <ZarnCore/music/StaffPlaces.h>

#include <cstdlib>

namespace zarn {
namespace {

constexpr int octave = 12;
constexpr int highestKey = 127;
constexpr int middleLine = 4; // in half spaces above the bottom one

/// The key of the note that was played last in front of a place.
std::optional<int> keyInFront(const ScoreModelIndex &place)
{
    constexpr unsigned farthest = 16;
    for (unsigned count = 1; count <= farthest; ++count) {
        const auto beat = ScoreModelIndex::previousBeat(place, count);
        if (beat == nullptr)
            break;
        if (beat->hasNotes() && beat->note(0)->midi() != Note::Unset)
            return beat->note(0)->midi();
    }
    return std::nullopt;
}

int keyOfMiddle(const Bar &bar)
{
    const auto clef = static_cast<std::size_t>(bar.clef());
    return staffPlaces::midiOf(staffPlaces::bottomLines[clef] + middleLine);
}

} // namespace

std::optional<TypedPitch> typedPitch(const ScoreModelIndex &place, NoteName letter)
{
    const auto bar = place.bar();
    if (bar == nullptr || !letter.isValid())
        return std::nullopt;
    const PitchClass spelling(letter, writtenKeySignature(*bar).accidentalWithStep(letter));
    const int near = keyInFront(place).value_or(keyOfMiddle(*bar));
    int key = spelling.midi(near / octave - 1);
    while (std::abs(key + octave - near) <= std::abs(key - near))
        key += octave;
    if (key < 0 || key > highestKey)
        return std::nullopt;
    return TypedPitch{key, spelling};
}

} // namespace zarn
