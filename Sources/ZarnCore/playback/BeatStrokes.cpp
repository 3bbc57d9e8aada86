// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/BeatStrokes.h>

#include <ZarnCore/playback/DynamicsCurve.h>
#include <ZarnCore/playback/PlayingTime.h>

#include <algorithm>
#include <numeric>

namespace zarn::playback {

namespace {

constexpr int ticksPerQuarter = 960; ///< of the lengths of strums
constexpr std::size_t notesOfStrummedChord = 3;

/// Repeats a stroke until the time is over; the last one fills what is left.
std::vector<Stroke> tremolo(unsigned speed, const utils::rational &length)
{
    const utils::rational each = tremoloStroke(speed);
    const auto count = std::max<std::int64_t>((length / each).floor(), 1);
    std::vector<Stroke> strokes;
    for (std::int64_t i = 0; i < count; ++i) {
        Stroke stroke;
        stroke.offset = each * i;
        stroke.length = i + 1 == count ? length - stroke.offset : each;
        stroke.velocityChange = i % 2 == 0 ? 0 : -velocityStep / 2;
        strokes.push_back(stroke);
    }
    return strokes;
}

/// The way of the hand for a finger of a rasgueado: fingers flick down, the index finger up when it
/// comes again, the thumb up behind a finger and at the start.
Direction directionOf(const std::string &fingers, std::size_t at)
{
    const char finger = fingers[at];
    if (finger == 'i')
        return at > 0 && fingers[at - 1] == 'i' ? Direction::Up : Direction::Down;
    if (finger == 'p')
        return at == 0 || fingers[at - 1] != 'p' ? Direction::Up : Direction::Down;
    return Direction::Down;
}

std::vector<Stroke> rasgueado(RasgueadoType type, const utils::rational &length)
{
    const std::string name = rasgueadoToString(type);
    const auto end = name.find('_');
    const std::string fingers = name.substr(0, end);
    const bool hasLongFirst = end != std::string::npos && name.substr(end) == "_2";
    const auto count = static_cast<std::int64_t>(fingers.size());
    const utils::rational first =
        hasLongFirst && count > 1 ? length / 2 : bounded(length / std::max<std::int64_t>(count, 1));
    std::vector<Stroke> strokes;
    utils::rational offset;
    for (std::size_t i = 0; i < fingers.size(); ++i) {
        Stroke stroke;
        stroke.offset = offset;
        stroke.length = i == 0 ? first : bounded((length - first) / (count - 1));
        stroke.strum.direction = directionOf(fingers, i);
        stroke.strum.length = Strum::BrushLength;
        advance(offset, stroke.length);
        strokes.push_back(stroke);
    }
    return strokes;
}

/// The brush or the arpeggio of a beat, as a way of the hand.
Strum strumOf(const Beat &beat)
{
    if (beat.brushDirection() != Direction::None) {
        Strum strum = beat.brush();
        if (strum.length == 0)
            strum.length = Strum::BrushLength;
        return strum;
    }
    Strum strum = beat.arpeggio();
    if (strum.direction == Direction::None)
        return {};
    if (strum.length == 0)
        strum.length = Strum::ArpeggioLength;
    // An arpeggio names the way of the pitches.
    strum.direction = strum.direction == Direction::Up ? Direction::Down : Direction::Up;
    return strum;
}

} // namespace

utils::rational tremoloStroke(unsigned speed)
{
    return {1, std::int64_t(1) << speed};
}

std::vector<Stroke> strokesOf(const Beat &beat, const utils::rational &length)
{
    if (beat.tremolo() != 0 && length.sign() > 0)
        return tremolo(beat.tremolo(), length);
    if (beat.rasgueado() != RasgueadoType::None && length.sign() > 0)
        return rasgueado(beat.rasgueado(), length);
    return {{utils::rational(), length, 0, strumOf(beat)}};
}

std::vector<Stroke> strokesOfPair(const Beat &first, TremoloSide side,
                                  const TremoloPairTimes &times)
{
    using Value = RhythmValue::NoteValue;
    const Value value = first.rhythmValue().getNoteValue();
    const unsigned flags = value > Value::Quarter
        ? static_cast<unsigned>(value) - static_cast<unsigned>(Value::Quarter)
        : 0;
    const utils::rational each = tremoloStroke(first.tremoloToNext() + flags);
    const bool isSecond = side == TremoloSide::Second;
    std::vector<Stroke> strokes;
    const auto takeTurns = [&](const utils::rational &start, const utils::rational &length,
                               std::int64_t least, bool isOwnTurn) {
        const auto count = std::max<std::int64_t>((length / each).floor(), least);
        const utils::rational share = bounded(length / count);
        for (std::int64_t i = isOwnTurn ? 0 : 1; i < count; i += 2) {
            Stroke stroke;
            stroke.offset = start + share * i;
            if (isSecond)
                stroke.offset -= times.distance;
            stroke.length = share;
            strokes.push_back(stroke);
        }
    };
    if (times.joint == PairJoint::Direct) {
        takeTurns(0, times.first + times.second, 2, !isSecond);
    } else {
        takeTurns(0, times.first, 1, !isSecond);
        takeTurns(times.distance, times.second, 1, isSecond);
    }
    return strokes;
}

Strum autoBrush(const Beat &beat, const utils::rational &offset)
{
    Strum strum;
    if (beat.noteCount() < notesOfStrummedChord || beat.isNonArpeggio())
        return strum;
    const bool isBetween = (offset * 2).floor() % 2 != 0;
    strum.direction = isBetween ? Direction::Up : Direction::Down;
    strum.length = Strum::BrushLength;
    return strum;
}

std::vector<utils::rational> strumDelays(const Strum &strum, std::size_t noteCount,
                                         const utils::rational &length)
{
    std::vector<utils::rational> delays(noteCount);
    if (strum.direction == Direction::None || noteCount < 2)
        return delays;
    const utils::rational whole =
        std::min(utils::rational(strum.length, ticksPerQuarter), length / 2);
    const auto gaps = static_cast<std::int64_t>(noteCount) - 1;
    for (std::size_t i = 0; i < noteCount; ++i) {
        const auto rank = static_cast<std::int64_t>(i);
        delays[i] = whole * (strum.direction == Direction::Down ? rank : gaps - rank) / gaps;
        if (strum.anchor == StrumAnchor::EndsOnBeat)
            delays[i] -= whole;
    }
    return delays;
}

std::vector<std::size_t> orderFromLowest(const Beat &beat)
{
    const auto &notes = beat.notes();
    const bool haveStrings = std::all_of(
        notes.begin(), notes.end(), [](const auto &note) { return note->string() != Note::Unset; });
    std::vector<std::size_t> sorted(notes.size());
    std::iota(sorted.begin(), sorted.end(), std::size_t(0));
    std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t left, std::size_t right) {
        return haveStrings ? notes[left]->string() < notes[right]->string()
                           : notes[left]->midi() < notes[right]->midi();
    });
    std::vector<std::size_t> places(notes.size());
    for (std::size_t i = 0; i < sorted.size(); ++i)
        places[sorted[i]] = i;
    return places;
}

} // namespace zarn::playback
