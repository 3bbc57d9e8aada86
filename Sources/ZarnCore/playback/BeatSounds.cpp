// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/BeatSounds.h>

#include <ZarnCore/model/notes/ZarnFretting.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::playback {

namespace {

constexpr int fullValue = 127;
constexpr int plainBrightness = 64;
constexpr int dullBrightness = 32;
const utils::rational slapLength(1, 8);

// The nearest to a knock on wood in the percussion map of General MIDI: its wood blocks.
constexpr int fingerKnock = 76;
constexpr int thumbKnock = 77;

/// Expression over the time of a beat, from point to point: its share and its value.
struct ExpressionPoint {
    int eighth;
    int value;
};
using ExpressionShape = std::array<ExpressionPoint, 3>;

constexpr int swellFloor = 64;

/// False for a beat that neither fades nor swells.
bool shapeOf(const Beat &beat, ExpressionShape &shape)
{
    switch (beat.fadding()) {
    case Fadding::FadeIn:
        shape = {{{0, 0}, {4, fullValue / 2}, {8, fullValue}}};
        return true;
    case Fadding::FadeOut:
        shape = {{{0, fullValue}, {4, fullValue / 2}, {8, 0}}};
        return true;
    case Fadding::VolumeSwell:
        shape = {{{0, 0}, {4, fullValue}, {8, 0}}};
        return true;
    case Fadding::NoFadding:
        break;
    }
    if (beat.hairpin() != Hairpin::Swell)
        return false;
    shape = {{{0, swellFloor}, {4, fullValue}, {8, swellFloor}}};
    return true;
}

int valueAt(const ExpressionShape &shape, int step, int steps)
{
    const double eighth = 8.0 * step / steps;
    const auto &[from, to] =
        eighth <= shape[1].eighth ? std::pair(shape[0], shape[1]) : std::pair(shape[1], shape[2]);
    const double share = (eighth - from.eighth) / (to.eighth - from.eighth);
    return static_cast<int>(std::lround(from.value + (to.value - from.value) * share));
}

bool isPalmMuted(const Beat &beat)
{
    const auto &notes = beat.notes();
    return !notes.empty() && std::all_of(notes.begin(), notes.end(), [](const auto &note) {
        return note->isPalmMuted();
    });
}

} // namespace

void BeatSounds::play()
{
    for (const PlayedBeat &played : _beats) {
        if (played.beat->isCue())
            continue;
        if (_isDull || !played.beat->isCommon()
            || (played.beat->hasNotes() && !played.beat->notes().front()->isCommon()))
            addBrightness(played);
        if (played.beat->isCommon())
            continue;
        addExpression(played);
        if (played.beat->golpe() != ZarnGolpeType::None)
            knock(played);
        if (played.beat->isDeadSlapped())
            slapDead(played);
    }
    if (_isDull)
        addControl(_beats.back().end(), BrightnessController, plainBrightness);
}

void BeatSounds::addControl(const utils::rational &time, Controller controller, int value)
{
    PlannedControl control;
    control.time = time;
    control.track = static_cast<std::uint16_t>(_place.track.index());
    control.number = controller;
    control.value = static_cast<std::uint16_t>(value);
    _result.controls.push_back(control);
}

void BeatSounds::addExpression(const PlayedBeat &played)
{
    ExpressionShape shape;
    if (played.length.sign() <= 0 || !shapeOf(*played.beat, shape))
        return;
    constexpr int steps = 32;
    for (int i = 0; i < steps; ++i)
        addControl(played.start + played.length * i / steps, ExpressionController,
                   valueAt(shape, i, steps));
    addControl(played.end(), ExpressionController, fullValue);
}

void BeatSounds::addBrightness(const PlayedBeat &played)
{
    const bool isDull = isPalmMuted(*played.beat);
    if (isDull == _isDull)
        return;
    _isDull = isDull;
    addControl(played.start, BrightnessController, isDull ? dullBrightness : plainBrightness);
}

PlannedNote BeatSounds::noteOf(const PlayedBeat &played, int key,
                               const utils::rational &length) const
{
    PlannedNote note;
    note.start = played.start;
    note.end = played.start + std::min(played.length, length);
    note.key = static_cast<std::uint8_t>(key);
    const double velocity =
        _place.dynamics.velocityAt(_place.bars.writtenStart(played.bar), played.offset);
    note.velocity = static_cast<std::uint8_t>(std::clamp(std::lround(velocity), 1L, 127L));
    note.track = static_cast<std::uint16_t>(_place.track.index());
    note.lane = note.track;
    note.staff = static_cast<std::uint8_t>(_place.staff.index());
    note.voice = static_cast<std::uint8_t>(_place.slot);
    note.beat = played.index;
    note.bar = played.bar;
    note.playedBar = played.playedBar;
    return note;
}

void BeatSounds::knock(const PlayedBeat &played)
{
    const bool isFinger = played.beat->golpe() == ZarnGolpeType::Finger;
    PlannedNote note = noteOf(played, isFinger ? fingerKnock : thumbKnock, slapLength);
    note.technique = Technique::Knock;
    note.isPercussion = true;
    _result.hasPercussion = true;
    _result.notes.push_back(note);
}

void BeatSounds::slapDead(const PlayedBeat &played)
{
    for (unsigned string = 0; string < _place.staff.tuning().stringCount(); ++string) {
        const int written = writtenPitch(_place.staff, static_cast<int>(string), 0);
        if (written < 0)
            continue;
        PlannedNote note =
            noteOf(played, withinMidi(written + _place.track.transpositionOffset()), slapLength);
        note.technique = Technique::Dead;
        note.string = static_cast<std::int8_t>(string);
        _result.hasPitches = true;
        _result.notes.push_back(note);
    }
}

} // namespace zarn::playback
