// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/PitchWheel.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace zarn::io {

namespace {

using playback::PitchMotion;
using playback::PlannedNote;
using Rank = MidiTrackBuilder::Rank;

constexpr double longestStep = 1.0 / 8; ///< quarters
constexpr double longestSeconds = 0.010;
constexpr int wheelUnits = 8192;

/// The time that the notes of one motion sound.
struct Span {
    std::uint64_t start;
    std::uint64_t end;
};

class WheelWriter {
public:
    WheelWriter(const playback::PlaybackPlan &plan, const playback::Lane &lane,
                const TickMap &ticks, MidiTrackBuilder &track)
        : _plan(plan), _lane(lane), _ticks(ticks), _track(track)
    {
    }

    void addRange()
    {
        const int channel = _lane.channel;
        constexpr int none = 127;
        const auto control = [&](MidiControl controller, int value) {
            _track.addControl(0, channel, static_cast<int>(controller), value);
        };
        control(MidiControl::Parameter, 0); // registered parameter 0: range of the wheel
        control(MidiControl::ParameterFine, 0);
        control(MidiControl::DataEntry, _lane.bendRange);
        control(MidiControl::DataEntryFine, 0);
        control(MidiControl::Parameter, none);
        control(MidiControl::ParameterFine, none);
    }

    void write(const PitchMotion &motion, const Span &span)
    {
        _last = 0;
        const auto &points = motion.points;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const std::uint64_t from = _ticks.tickOf(points[i].time);
            // Of two points at one time the later one counts.
            const std::uint64_t to =
                i + 1 < points.size() ? _ticks.tickOf(points[i + 1].time) : from + 1;
            if (to <= from || from > span.end)
                continue;
            const double start = points[i].semitones;
            const double end = i + 1 < points.size() ? points[i + 1].semitones : start;
            const std::uint64_t step = start == end ? to - from : stepAt(from);
            for (std::uint64_t tick = from; tick < to && tick < span.end; tick += step)
                turn(std::max(tick, span.start), Rank::Change,
                     start
                         + (end - start) * static_cast<double>(tick - from)
                             / static_cast<double>(to - from));
        }
        turn(span.end, Rank::Release, 0);
    }

private:
    std::uint64_t stepAt(std::uint64_t tick) const
    {
        const double quarters = std::min(
            longestStep, longestSeconds * _plan.tempo().tempoAt(_ticks.quartersOf(tick)) / 60);
        return std::max<std::uint64_t>(
            static_cast<std::uint64_t>(quarters * _ticks.ticksPerQuarter()), 1);
    }

    void turn(std::uint64_t tick, Rank rank, double semitones)
    {
        const int bend =
            std::clamp(static_cast<int>(std::lround(semitones / _lane.bendRange * wheelUnits)),
                       -wheelUnits, wheelUnits - 1);
        if (bend != _last)
            _track.addPitchBend(tick, rank, _lane.channel, bend);
        _last = bend;
    }

    const playback::PlaybackPlan &_plan;
    const playback::Lane &_lane;
    const TickMap &_ticks;
    MidiTrackBuilder &_track;
    int _last = 0;
};

} // namespace

void addPitchWheel(const playback::PlaybackPlan &plan, std::size_t lane, const TickMap &ticks,
                   MidiTrackBuilder &track)
{
    if (plan.lanes()[lane].bendRange == 0)
        return;
    std::map<std::int32_t, Span> spans;
    for (const PlannedNote &note : plan.notes()) {
        if (note.lane != lane || note.motion == PlannedNote::NoMotion)
            continue;
        const Span sounding{ticks.tickOf(note.start), ticks.tickOf(note.end)};
        Span &span = spans.insert({note.motion, sounding}).first->second;
        span.start = std::min(span.start, sounding.start);
        span.end = std::max(span.end, sounding.end);
    }
    WheelWriter writer(plan, plan.lanes()[lane], ticks, track);
    writer.addRange();
    for (const auto &[motion, span] : spans)
        writer.write(plan.motions()[static_cast<std::size_t>(motion)], span);
}

} // namespace zarn::io
