// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/TrackControls.h>

#include <ZarnCore/instruments/automations/ZarnChannelStrip.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/playback/PlayingTime.h>
#include <ZarnCore/playback/WrittenPosition.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace zarn::playback {

namespace {

using utils::rational;
using Kind = PlannedControl::Kind;

constexpr int fullValue = 127;
constexpr int middlePan = 64;
constexpr int closedWah = 20;
constexpr int openWah = 110;
const rational pedalGap(1, 16);
const rational slideStep(1, 4); ///< between the values of an automation that slides

int sevenBits(int value)
{
    return std::clamp(value, 0, fullValue);
}

/// A change as it is written.
struct WrittenControl {
    unsigned bar = 0;
    rational offset;
    Kind kind = Kind::Controller;
    std::uint8_t number = 0; ///< of a controller
    std::uint8_t program = 0;
    std::uint16_t value = 0;
    std::int16_t sound = -1;

    /// What it replaces: the program, or a controller.
    std::pair<Kind, int> subject() const { return {kind, number}; }
};

class ControlReader {
public:
    ControlReader(const Track &track, const PlayedBars &bars, std::vector<Sound> &sounds)
        : _track(track), _bars(bars), _sounds(sounds)
    {
    }

    std::vector<PlannedControl> read(bool hasMarkedBeats)
    {
        addSounds();
        addStrip(ChannelStripParameter::Volume);
        addStrip(ChannelStripParameter::Pan);
        if (hasMarkedBeats)
            addPedals();
        std::stable_sort(_written.begin(), _written.end(),
                         [](const WrittenControl &left, const WrittenControl &right) {
                             return std::tie(left.bar, left.offset)
                                 < std::tie(right.bar, right.offset);
                         });
        play();
        return std::move(_played);
    }

private:
    void add(unsigned bar, const rational &offset, Controller controller, int value)
    {
        WrittenControl written;
        written.bar = bar;
        written.offset = offset;
        written.number = controller;
        written.value = static_cast<std::uint16_t>(sevenBits(value));
        _written.push_back(written);
    }

    void addSound(unsigned bar, const rational &offset, const Sound &sound)
    {
        const MIDISound &midi = sound.midiSound();
        WrittenControl written;
        written.bar = bar;
        written.offset = offset;
        written.kind = Kind::Program;
        written.program = static_cast<std::uint8_t>(sevenBits(midi.program()));
        written.value =
            static_cast<std::uint16_t>(sevenBits(midi.msbBank()) * 128 + sevenBits(midi.lsbBank()));
        const auto known = std::find(_sounds.begin(), _sounds.end(), sound);
        written.sound = static_cast<std::int16_t>(known - _sounds.begin());
        if (known == _sounds.end())
            _sounds.push_back(sound);
        _written.push_back(written);
    }

    void addSounds()
    {
        const auto &sounds = _track.sounds();
        const auto forced = static_cast<std::size_t>(_track.forcedSoundIndex());
        const bool isForced = _track.forcedSoundIndex() >= 0 && forced < sounds.size();
        if (isForced)
            addSound(0, 0, *sounds[forced]);
        else
            addSound(0, 0, sounds.empty() ? Sound() : *sounds.front());
        if (isForced || _track.automations().isTypeBypassed(Automation::Sound))
            return;
        for (const Automation *const each : _track.automations().automations(Automation::Sound)) {
            const auto *const change = dynamic_cast<const SoundAutomation *>(each);
            if (change && change->sound())
                addSound(change->index(), positionOf(change->position()), *change->sound());
        }
    }

    void addStrip(ChannelStripParameter parameter)
    {
        const bool isVolume = parameter == ChannelStripParameter::Volume;
        const Controller controller = isVolume ? VolumeController : PanController;
        const auto valueOf = [isVolume](double value) {
            const auto strip = static_cast<float>(value);
            return isVolume ? controllerOfVolume(strip) : controllerOfPan(strip);
        };
        const ZarnVolumePan &start = _track.volumePan();
        add(0, 0, controller, valueOf(isVolume ? start.volume() : start.pan()));
        const auto type = channelStripType(parameter);
        if (_track.automations().isTypeBypassed(type))
            return;
        const auto automations = _track.automations().automations(type);
        for (std::size_t i = 0; i < automations.size(); ++i) {
            const Automation &each = *automations[i];
            add(each.index(), positionOf(each.position()), controller, valueOf(each.value()));
            if (each.isLinear() && i + 1 < automations.size())
                addSlide(each, *automations[i + 1], controller, valueOf);
        }
    }

    template <class ValueOf>
    void addSlide(const Automation &from, const Automation &to, Controller controller,
                  const ValueOf &valueOf)
    {
        const rational start = timeOf(from);
        const rational length = timeOf(to) - start;
        int last = valueOf(from.value());
        unsigned bar = from.index();
        for (rational inside = slideStep; inside < length; inside += slideStep) {
            const double share = (inside / length).toDouble();
            const int value = valueOf(from.value() + (to.value() - from.value()) * share);
            if (value == last)
                continue;
            last = value;
            const rational time = start + inside;
            while (bar < to.index() && _bars.writtenStart(bar + 1) <= time)
                ++bar;
            add(bar, time - _bars.writtenStart(bar), controller, value);
        }
    }

    rational timeOf(const Automation &automation) const
    {
        return _bars.writtenStart(std::min<unsigned>(automation.index(), _track.barCount()))
            + positionOf(automation.position());
    }

    void addPedals()
    {
        for (const auto &staff : _track.staves())
            for (const auto &bar : staff->bars())
                for (const auto &voice : bar->voices())
                    if (voice)
                        addPedals(*voice, bar->index());
    }

    void addPedals(const Voice &voice, unsigned bar)
    {
        rational offset;
        for (const auto &beat : voice.beats()) {
            if (!beat->isCommon())
                addPedals(*beat, bar, offset);
            advance(offset, beat->length());
        }
    }

    void addPedals(const Beat &beat, unsigned bar, const rational &offset)
    {
        const PedalChange pedal = beat.pedal();
        if (pedal == PedalChange::Stop || pedal == PedalChange::Change)
            add(bar, offset, SustainController, 0);
        if (pedal == PedalChange::Change)
            add(bar, offset + pedalGap, SustainController, fullValue);
        if (pedal == PedalChange::Start)
            add(bar, offset, SustainController, fullValue);
        if (beat.wah() != WahWah::None)
            add(bar, offset, BrightnessController,
                beat.wah() == WahWah::Open ? openWah : closedWah);
    }

    void play()
    {
        bool isFirst = true;
        for (const PlayedBar &played : _bars.bars()) {
            const auto begin = std::lower_bound(
                _written.begin(), _written.end(), played.bar,
                [](const WrittenControl &written, unsigned bar) { return written.bar < bar; });
            if (isFirst || played.isJump)
                sendState(begin, played);
            isFirst = false;
            for (auto written = begin; written != _written.end() && written->bar == played.bar;
                 ++written)
                send(*written, played.start + std::min(written->offset, played.length));
        }
        if (_isPedalDown)
            sendPedalUp();
    }

    /// All that holds at the start of a bar; a pedal that is down is lifted for it first.
    void sendState(std::vector<WrittenControl>::const_iterator end, const PlayedBar &played)
    {
        std::map<std::pair<Kind, int>, const WrittenControl *> state;
        for (auto written = _written.cbegin(); written != end; ++written)
            state[written->subject()] = &*written;
        const bool pedalHolds = state.count({Kind::Controller, SustainController}) != 0
            && state[{Kind::Controller, SustainController}]->value != 0;
        if (_isPedalDown && !pedalHolds) {
            WrittenControl up;
            up.number = SustainController;
            send(up, played.start);
            state.erase({Kind::Controller, SustainController});
        }
        // What changes at once is sent as it will be.
        for (auto written = end;
             written != _written.cend() && written->bar == played.bar && written->offset.isZero();
             ++written)
            if (written->kind == Kind::Program || written->number != SustainController)
                state.erase(written->subject());
        for (const auto &[subject, written] : state)
            send(*written, played.start);
    }

    void sendPedalUp()
    {
        WrittenControl up;
        up.number = SustainController;
        send(up, _bars.length());
    }

    void send(const WrittenControl &written, const rational &time)
    {
        PlannedControl control;
        control.time = time;
        control.track = static_cast<std::uint16_t>(_track.index());
        control.kind = written.kind;
        control.number = written.kind == Kind::Program ? written.program : written.number;
        control.value = written.value;
        control.sound = written.sound;
        if (written.kind == Kind::Controller && written.number == SustainController)
            _isPedalDown = written.value != 0;
        _played.push_back(control);
    }

    const Track &_track;
    const PlayedBars &_bars;
    std::vector<Sound> &_sounds;
    std::vector<WrittenControl> _written;
    std::vector<PlannedControl> _played;
    bool _isPedalDown = false;
};

} // namespace

int controllerOfVolume(float volume)
{
    return sevenBits(static_cast<int>(
        std::lround(fullValue * std::sqrt(static_cast<double>(std::max(volume, 0.0F))))));
}

int controllerOfPan(float pan)
{
    return sevenBits(
        static_cast<int>(std::lround(middlePan + middlePan * static_cast<double>(pan))));
}

std::vector<PlannedControl> controlsOf(const Track &track, const PlayedBars &bars,
                                       bool hasMarkedBeats, std::vector<Sound> &sounds)
{
    return ControlReader(track, bars, sounds).read(hasMarkedBeats);
}

} // namespace zarn::playback
