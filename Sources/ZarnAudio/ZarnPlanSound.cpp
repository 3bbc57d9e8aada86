// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnPlanSound.h>

#include <ZarnAudio/ZarnSynthesizer.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace Halvec::audio {

namespace {

using Kind = TimedEvent::Kind;
using zarn::playback::Lane;
using zarn::playback::PitchMotion;
using zarn::playback::PlannedControl;
using zarn::playback::PlannedNote;
using zarn::playback::PlaybackPlan;

/// What a motion has between its points, at times that rise; without fractions, which grow large
/// here.
class MotionCursor {
public:
    explicit MotionCursor(const PitchMotion &motion) : _points(motion.points) { }

    double semitonesAt(double quarters)
    {
        while (_next < _points.size() && _points[_next].time.toDouble() <= quarters)
            ++_next;
        if (_next == 0)
            return _points.front().semitones;
        const auto &before = _points[_next - 1];
        if (_next == _points.size())
            return before.semitones;
        const auto &next = _points[_next];
        const double start = before.time.toDouble();
        const double share = (quarters - start) / (next.time.toDouble() - start);
        return before.semitones + share * (next.semitones - before.semitones);
    }

private:
    const std::vector<PitchMotion::Point> &_points;
    std::size_t _next = 0; ///< the first point behind the last time
};

/// The events of a plan, one kind after the other.
class EventMaker {
public:
    EventMaker(const PlaybackPlan &plan, const std::vector<PlanSound::Channel> &channels,
               double framesPerSecond)
        : _plan(plan), _channels(channels), _framesPerSecond(framesPerSecond),
          _origin(plan.tempo().secondsAt(plan.start()))
    {
    }

    std::vector<TimedEvent> make(const std::vector<std::uint8_t> &channelOf)
    {
        for (const PlannedControl &control : _plan.controls())
            addControl(control);
        for (std::size_t i = 0; i < channelOf.size(); ++i)
            if (channelOf[i] < _channels.size())
                addNote(_plan.notes()[i], channelOf[i]);
        return std::move(_events);
    }

    std::int64_t frameOf(double second) const
    {
        return std::llround((second - _origin) * _framesPerSecond);
    }

private:
    void add(double second, Kind kind, std::size_t channel, int key, int value, double amount = 0)
    {
        _events.push_back({frameOf(second), kind, static_cast<std::uint8_t>(channel),
                           static_cast<std::uint8_t>(key), static_cast<std::uint8_t>(value),
                           amount});
    }

    /// A track sounds the same on all of its channels, but for percussion, which has its own
    /// programs.
    void addControl(const PlannedControl &control)
    {
        for (std::size_t channel = 0; channel < _channels.size(); ++channel) {
            if (!_channels[channel].isUsed || _channels[channel].track != control.track)
                continue;
            if (control.kind == PlannedControl::Kind::Controller)
                add(control.second, Kind::Controller, channel, control.number, control.value);
            else if (!_channels[channel].isPercussion && _channels[channel].bank.empty())
                add(control.second, Kind::Program, channel, control.value >> 7, control.number);
        }
    }

    void addNote(const PlannedNote &note, std::size_t channel)
    {
        add(note.startSecond, Kind::NoteOn, channel, note.key, note.velocity);
        add(note.endSecond, Kind::NoteOff, channel, note.key, 0);
        const auto *const motion = _plan.motionOf(note);
        double semitones = motion == nullptr ? 0 : motion->semitonesAt(note.start);
        add(note.startSecond, Kind::Bend, channel, 0, 0, semitones);
        if (motion == nullptr)
            return;
        // A step for each block, to what its middle has, when there is something to hear.
        constexpr double audible = 0.005;
        const double step = static_cast<double>(Synthesizer::blockFrames) / _framesPerSecond;
        MotionCursor cursor(*motion);
        for (double second = note.startSecond + step; second < note.endSecond; second += step) {
            const double middle = std::min(second + step / 2, note.endSecond);
            const double next = cursor.semitonesAt(_plan.tempo().quartersAt(middle));
            if (std::abs(next - semitones) < audible)
                continue;
            semitones = next;
            add(second, Kind::Bend, channel, 0, 0, semitones);
        }
    }

    const PlaybackPlan &_plan;
    const std::vector<PlanSound::Channel> &_channels;
    double _framesPerSecond;
    double _origin;
    std::vector<TimedEvent> _events;
};

} // namespace

PlanSound::PlanSound(const PlaybackPlan &plan, const BankChoice &bankOf) : _plan(plan)
{
    for (const Lane &lane : plan.lanes())
        if (_channels.size() < static_cast<std::size_t>(Synthesizer::mostChannels))
            _channels.push_back({true, lane.track, lane.role == Lane::Role::Percussion, {}});
    for (const PlannedNote &note : plan.notes())
        _channelOf.push_back(note.lane < _channels.size() ? static_cast<std::uint8_t>(note.lane)
                                                          : notPlayed);
    if (bankOf)
        findBanks(bankOf);
}

/// Gives the notes that banks play channels of their own.
void PlanSound::findBanks(const BankChoice &bankOf)
{
    const auto lanes = _channels.size();
    std::size_t firstBank = Synthesizer::mostChannels;
    std::map<std::pair<int, int>, std::string> banks; ///< by sound and percussion key
    std::map<std::pair<std::uint16_t, std::string>, std::uint8_t> channels; ///< by lane and bank
    std::map<std::uint16_t, int> soundOf;                                   ///< by track
    auto control = _plan.controls().begin();
    for (std::size_t i = 0; i < _plan.notes().size(); ++i) {
        const PlannedNote &note = _plan.notes()[i];
        for (; control != _plan.controls().end() && control->time <= note.start; ++control)
            if (control->kind == PlannedControl::Kind::Program)
                soundOf[control->track] = control->sound;
        const auto sound = soundOf.find(note.track);
        if (sound == soundOf.end() || sound->second < 0 || note.lane >= lanes)
            continue;
        const auto key = std::pair(sound->second, note.isPercussion ? note.key : -1);
        if (banks.count(key) == 0)
            banks[key] = bankOf(_plan.sounds()[static_cast<std::size_t>(key.first)],
                                note.isPercussion, note.key);
        const std::string &bank = banks[key];
        if (bank.empty())
            continue;
        const auto place = channels.emplace(std::pair(note.lane, bank), notPlayed);
        if (place.second && firstBank > lanes) {
            _channels.resize(Synthesizer::mostChannels);
            _channels[--firstBank] = {true, note.track, note.isPercussion, bank};
            place.first->second = static_cast<std::uint8_t>(firstBank);
        }
        _channelOf[i] = place.first->second;
    }
}

PlanSound::~PlanSound() = default;

std::vector<TimedEvent> PlanSound::events(int rate, double speed) const
{
    return EventMaker(_plan, _channels, rate / speed).make(_channelOf);
}

std::int64_t PlanSound::end(int rate, double speed) const
{
    return EventMaker(_plan, _channels, rate / speed).frameOf(_plan.tempo().secondsAt(_plan.end()));
}

} // namespace Halvec::audio
