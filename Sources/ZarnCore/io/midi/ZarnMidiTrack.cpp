// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/ZarnMidiTrack.h>

#include <algorithm>

namespace zarn::io {

namespace {

std::uint8_t byteOf(std::uint64_t value, int shift = 0)
{
    return static_cast<std::uint8_t>(value >> shift);
}

/// What is no data byte is kept outside of their range, for the writer to refuse.
std::uint8_t dataByte(int value)
{
    return value < 0 || value > 0x7F ? std::uint8_t(0xFF) : static_cast<std::uint8_t>(value);
}

} // namespace

std::string_view MidiTrack::payload(const MidiEvent &event) const noexcept
{
    if (event.isChannelMessage() || event.payload >= _payloads.size())
        return {};
    return _payloads[event.payload];
}

std::uint64_t MidiTrack::endTick() const noexcept
{
    return _events.empty() ? _endTick : std::max(_endTick, _events.back().tick);
}

void MidiTrack::add(MidiEvent event, std::string_view payload)
{
    if (!event.isChannelMessage()) {
        event.payload = static_cast<std::uint32_t>(_payloads.size());
        _payloads.emplace_back(payload);
    }
    _events.push_back(event);
}

void MidiTrack::addMessage(std::uint64_t tick, MidiMessage kind, int channel, int data1, int data2)
{
    MidiEvent event;
    event.tick = tick;
    // A channel that does not exist gives a status that does not exist.
    event.status = channel < 0 || channel > 15
        ? std::uint8_t(0)
        : static_cast<std::uint8_t>(static_cast<int>(kind) | channel);
    event.data1 = dataByte(data1);
    event.data2 = dataByte(data2);
    _events.push_back(event);
}

void MidiTrack::addNoteOn(std::uint64_t tick, int channel, int key, int velocity)
{
    addMessage(tick, MidiMessage::NoteOn, channel, key, velocity);
}

void MidiTrack::addNoteOff(std::uint64_t tick, int channel, int key, int velocity)
{
    addMessage(tick, MidiMessage::NoteOff, channel, key, velocity);
}

void MidiTrack::addControl(std::uint64_t tick, int channel, MidiControl control, int value)
{
    addMessage(tick, MidiMessage::Control, channel, static_cast<int>(control), value);
}

void MidiTrack::addProgram(std::uint64_t tick, int channel, int program)
{
    addMessage(tick, MidiMessage::Program, channel, program);
}

void MidiTrack::addPitchBend(std::uint64_t tick, int channel, int bend)
{
    const int value = bend + 8192;
    const bool fits = value >= 0 && value < 16384;
    addMessage(tick, MidiMessage::PitchBend, channel, fits ? value & 0x7F : -1,
               fits ? value >> 7 : -1);
}

void MidiTrack::addMeta(std::uint64_t tick, MidiMeta kind, std::string_view payload)
{
    MidiEvent event;
    event.tick = tick;
    event.status = 0xFF;
    event.data1 = static_cast<std::uint8_t>(kind);
    add(event, payload);
}

void MidiTrack::addTempo(std::uint64_t tick, std::uint32_t microsecondsPerQuarter)
{
    const std::uint32_t tempo = microsecondsPerQuarter;
    const char bytes[] = {static_cast<char>(byteOf(tempo, 16)), static_cast<char>(byteOf(tempo, 8)),
                          static_cast<char>(byteOf(tempo))};
    // More than three bytes cannot be said; the writer refuses a payload without any.
    const bool fits = tempo > 0 && tempo <= 0xFFFFFF;
    addMeta(tick, MidiMeta::Tempo, {bytes, fits ? sizeof bytes : 0});
}

void MidiTrack::addTimeSignature(std::uint64_t tick, int numerator, int denominator,
                                 int clocksPerClick)
{
    int power = 0;
    while (power < 16 && (1 << power) < denominator)
        ++power;
    constexpr char thirtySecondsPerQuarter = 8;
    const char bytes[] = {static_cast<char>(numerator), static_cast<char>(power),
                          static_cast<char>(clocksPerClick), thirtySecondsPerQuarter};
    const bool fits = numerator > 0 && numerator < 256 && (1 << power) == denominator
        && clocksPerClick >= 0 && clocksPerClick < 256;
    addMeta(tick, MidiMeta::TimeSignature, {bytes, fits ? sizeof bytes : 0});
}

void MidiTrack::addKeySignature(std::uint64_t tick, int fifths, bool isMinor)
{
    const char bytes[] = {static_cast<char>(fifths), static_cast<char>(isMinor)};
    const bool fits = fifths >= -7 && fifths <= 7;
    addMeta(tick, MidiMeta::KeySignature, {bytes, fits ? sizeof bytes : 0});
}

void MidiTrack::addSystemEvent(std::uint64_t tick, std::uint8_t status, std::string_view payload)
{
    MidiEvent event;
    event.tick = tick;
    event.status = status;
    add(event, payload);
}

void MidiTrack::sortByTime()
{
    std::stable_sort(
        _events.begin(), _events.end(),
        [](const MidiEvent &left, const MidiEvent &right) { return left.tick < right.tick; });
}

} // namespace zarn::io
