// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiTrackBuilder.h>

#include <algorithm>

namespace zarn::io {

namespace {

constexpr unsigned rankBits = 3;
constexpr int middleOfWheel = 8192;

} // namespace

void MidiTrackBuilder::add(std::uint64_t tick, Rank rank, MidiMessage kind, int channel, int data1,
                           int data2)
{
    _events.push_back({(tick << rankBits) | static_cast<std::uint64_t>(rank),
                       static_cast<std::uint8_t>(static_cast<int>(kind) | channel),
                       static_cast<std::uint8_t>(data1), static_cast<std::uint8_t>(data2)});
}

void MidiTrackBuilder::addNote(std::uint64_t start, std::uint64_t end, int channel, int key,
                               int velocity)
{
    constexpr int offVelocity = 64;
    add(start, Rank::NoteOn, MidiMessage::NoteOn, channel, key, velocity);
    add(std::max(end, start + 1), Rank::NoteOff, MidiMessage::NoteOff, channel, key, offVelocity);
}

void MidiTrackBuilder::addPitchBend(std::uint64_t tick, Rank rank, int channel, int bend)
{
    const int wheel = bend + middleOfWheel;
    add(tick, rank, MidiMessage::PitchBend, channel, wheel & 0x7F, wheel >> 7);
}

MidiTrack MidiTrackBuilder::finish(std::uint64_t endTick)
{
    std::stable_sort(_events.begin(), _events.end(), [](const Event &left, const Event &right) {
        return left.order < right.order;
    });
    _meta.sortByTime();
    MidiTrack track;
    track.reserve(_events.size() + _meta.events().size());
    auto meta = _meta.events().begin();
    const auto addMetaUpTo = [&](std::uint64_t tick) {
        for (; meta != _meta.events().end() && meta->tick <= tick; ++meta)
            track.add(*meta, _meta.payload(*meta));
    };
    for (const Event &event : _events) {
        MidiEvent added;
        added.tick = event.order >> rankBits;
        added.status = event.status;
        added.data1 = event.data1;
        added.data2 = event.data2;
        addMetaUpTo(added.tick);
        track.add(added);
    }
    addMetaUpTo(~std::uint64_t(0));
    track.setEndTick(std::max(endTick, track.endTick()));
    return track;
}

} // namespace zarn::io
