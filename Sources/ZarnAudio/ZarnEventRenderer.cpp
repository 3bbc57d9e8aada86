// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnEventRenderer.h>

#include <algorithm>
#include <bitset>

namespace Halvec::audio {

namespace {

using Kind = TimedEvent::Kind;

constexpr std::int64_t blockFrames = Synthesizer::blockFrames;
constexpr std::int64_t shortestLoop = 1000;
constexpr std::size_t channels = 256; ///< that an event can name
constexpr std::size_t keys = 128;

/// Controllers that a plan need not say at every place, and what they are without.
struct Resting {
    std::uint8_t controller;
    std::uint8_t value;
};
constexpr std::array<Resting, 3> restingControllers = {{{64, 0}, {11, 127}, {74, 64}}};

/// What an event sets: a controller, the program or the bend of a channel.
constexpr std::size_t programSubject = keys;
constexpr std::size_t bendSubject = keys + 1;
constexpr std::size_t subjects = keys + 2;

std::size_t subjectOf(const TimedEvent &event) noexcept
{
    switch (event.kind) {
    case Kind::Controller:
        return event.key < keys ? event.key : subjects;
    case Kind::Program:
        return programSubject;
    case Kind::Bend:
        return bendSubject;
    default:
        return subjects;
    }
}

std::size_t indexOf(const std::vector<TimedEvent> &events, std::int64_t frame) noexcept
{
    return static_cast<std::size_t>(
        std::partition_point(events.begin(), events.end(),
                             [frame](const TimedEvent &event) { return event.frame < frame; })
        - events.begin());
}

} // namespace

struct EventRenderer::State {
    using Notes = std::bitset<channels * keys>;

    Notes sounding; ///< notes that began and did not end
    Notes held;     ///< those of them that go on at another place
    std::bitset<channels * subjects> touched;
    std::array<const TimedEvent *, channels * subjects> last{}; ///< at another place

    static std::size_t noteOf(const TimedEvent &event) noexcept
    {
        return event.channel * keys + event.key % keys;
    }

    void read(const std::vector<TimedEvent> &events, std::size_t end) noexcept
    {
        for (std::size_t i = 0; i < end; ++i) {
            const TimedEvent &event = events[i];
            const auto subject = subjectOf(event);
            if (event.kind == Kind::NoteOn || event.kind == Kind::NoteOff)
                held[noteOf(event)] = event.kind == Kind::NoteOn;
            else if (subject < subjects)
                last[event.channel * subjects + subject] = &event;
        }
    }
};

EventRenderer::EventRenderer(Synthesizer &synthesizer, std::vector<TimedEvent> events)
    : _synthesizer(synthesizer), _own(std::move(events), synthesizer), _sequence(&_own),
      _state(std::make_unique<State>())
{
    begin(0);
}

EventRenderer::EventRenderer(Synthesizer &synthesizer)
    : EventRenderer(synthesizer, std::vector<TimedEvent>())
{
}

EventRenderer::~EventRenderer() = default;

void EventRenderer::apply(const TimedEvent &event, int phase) noexcept
{
    if (event.kind == Kind::NoteOn || event.kind == Kind::NoteOff)
        _state->sounding[State::noteOf(event)] = event.kind == Kind::NoteOn;
    const auto subject = subjectOf(event);
    if (subject < subjects)
        _state->touched.set(event.channel * subjects + subject);
    _synthesizer.apply(event, phase);
}

/// All events in front of a frame, as they are rendered.
void EventRenderer::apply(const Events &events, std::size_t &next, std::int64_t end) noexcept
{
    const auto blockStart = _block * blockFrames;
    for (; next < events.size() && events[next].frame + _shift < end; ++next) {
        const auto inBlock = events[next].frame + _shift - blockStart;
        apply(events[next],
              static_cast<int>(std::clamp<std::int64_t>(inBlock, 0, blockFrames - 1)));
    }
}

/// Has the channels as they are at a frame of the sequence.
void EventRenderer::restore(std::int64_t frame, Ringing ringing) noexcept
{
    State &state = *_state;
    _nextOfFonts = indexOf(_sequence->ofFonts(), frame);
    _nextOfBanks = indexOf(_sequence->ofBanks(), frame);
    state.held.reset();
    state.last.fill(nullptr);
    state.read(_sequence->ofFonts(), _nextOfFonts);
    state.read(_sequence->ofBanks(), _nextOfBanks);
    if (ringing == Ringing::End)
        state.held.reset();
    if (state.sounding.any())
        for (std::size_t note = 0; note < state.sounding.size(); ++note)
            if (state.sounding[note] && !state.held[note])
                apply({0, Kind::NoteOff, static_cast<std::uint8_t>(note / keys),
                       static_cast<std::uint8_t>(note % keys), 0, 0},
                      0);
    for (std::size_t channel = 0; channel < channels; ++channel) {
        const auto *const last = &state.last[channel * subjects];
        const auto rests = [&](std::size_t subject) {
            return last[subject] == nullptr && state.touched[channel * subjects + subject];
        };
        const auto number = static_cast<std::uint8_t>(channel);
        for (const Resting &resting : restingControllers)
            if (rests(resting.controller))
                apply({0, Kind::Controller, number, resting.controller, resting.value, 0}, 0);
        if (rests(bendSubject))
            apply({0, Kind::Bend, number, 0, 0, 0}, 0);
        for (std::size_t subject = 0; subject < subjects; ++subject)
            if (last[subject] != nullptr)
                apply(*last[subject], 0);
    }
}

void EventRenderer::start(const EventSequence &sequence, std::int64_t frame) noexcept
{
    _sequence = &sequence;
    begin(frame);
}

void EventRenderer::begin(std::int64_t frame) noexcept
{
    frame = std::max<std::int64_t>(frame, 0);
    _synthesizer.silence();
    _state->sounding.reset();
    restore(frame, Ringing::End);
    _shift = 0;
    _turn = 0;
    _block = frame / blockFrames;
    // The first block is the silence in which notes of banks may begin.
    renderBlock();
    renderBlock();
    _rendering = frame;
    _taken = static_cast<std::size_t>(frame % blockFrames);
}

/// From `at` on, counted as it is rendered, goes on with a frame of the sequence.
void EventRenderer::goOn(std::int64_t frame, std::int64_t at, Ringing ringing) noexcept
{
    // A second turn before the first one is heard replaces it.
    if (_rendering >= _turn)
        _shiftBefore = _shift;
    _turn = at;
    _shift = at - frame;
    restore(frame, ringing);
}

void EventRenderer::jump(const EventSequence &sequence, std::int64_t frame,
                         Ringing ringing) noexcept
{
    _sequence = &sequence;
    goOn(std::max<std::int64_t>(frame, 0), _block * blockFrames, ringing);
}

void EventRenderer::setLoop(std::int64_t begin, std::int64_t end) noexcept
{
    const bool isLoop = begin >= 0 && end - begin >= shortestLoop;
    _loopBegin = isLoop ? begin : 0;
    _loopEnd = isLoop ? end : 0;
}

void EventRenderer::renderBlock() noexcept
{
    const auto blockStart = _block * blockFrames;
    const auto blockEnd = blockStart + blockFrames;
    if (_loopEnd > 0 && _loopEnd + _shift >= blockStart && _loopEnd + _shift < blockEnd) {
        const auto turn = _loopEnd + _shift;
        apply(_sequence->ofBanks(), _nextOfBanks, turn);
        goOn(_loopBegin, turn, Ringing::End);
    }
    // Notes of banks begin a block late, so fonts do too.
    apply(_sequence->ofFonts(), _nextOfFonts, blockStart - blockFrames / 2);
    apply(_sequence->ofBanks(), _nextOfBanks, blockEnd);
    _synthesizer.render(_rendered.data());
    ++_block;
    _taken = 0;
}

void EventRenderer::render(float *frames, std::int64_t count) noexcept
{
    while (count > 0) {
        if (_taken == static_cast<std::size_t>(blockFrames))
            renderBlock();
        const auto part = std::min<std::int64_t>(count, blockFrames - std::int64_t(_taken));
        frames = std::copy_n(_rendered.data() + 2 * _taken, 2 * part, frames);
        _taken += static_cast<std::size_t>(part);
        _rendering += part;
        count -= part;
    }
}

std::int64_t EventRenderer::position() const noexcept
{
    return _rendering - (_rendering >= _turn ? _shift : _shiftBefore);
}

std::int64_t EventRenderer::straight(std::int64_t count) const noexcept
{
    if (_rendering < _turn)
        return std::min(count, _turn - _rendering);
    // The end of the loop, unless it has been passed.
    const auto end = _loopEnd + _shift;
    return _loopEnd > 0 && end > _rendering ? std::min(count, end - _rendering) : count;
}

bool EventRenderer::isDone() const noexcept
{
    return _nextOfFonts == _sequence->ofFonts().size()
        && _nextOfBanks == _sequence->ofBanks().size() && _synthesizer.voiceCount() == 0;
}

} // namespace Halvec::audio
