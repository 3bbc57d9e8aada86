// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/StringFolder.h>

#include <algorithm>
#include <array>
#include <optional>

namespace zarn::io {

namespace {

constexpr std::size_t channelCount = 16;

/// Frets that a string has, and how far up its notes lie on the whole.
constexpr int mostFrets = 24;
constexpr int usualFrets = 12;

/// A string may be tuned so much lower.
constexpr int mostSlack = 2;

struct Channel {
    std::size_t number = 0;
    int lowest = 127;
    int highest = 0;
    std::size_t count = 0;
    long sum = 0;
    MidiTime soundsUntil = 0;
    std::size_t overlaps = 0;
};

/// The usual strings, the lowest first.
std::vector<std::vector<int>> usualStrings(InstrumentSet::Type type)
{
    if (InstrumentSet::isBass(type))
        return {{28, 33, 38, 43}, {23, 28, 33, 38, 43}};
    return {{40, 45, 50, 55, 59, 64}, {35, 40, 45, 50, 55, 59, 64}};
}

/// Whether the channels are the strings, a channel to a string.
bool areOn(const std::vector<Channel> &channels, const std::vector<int> &strings)
{
    if (channels.size() > strings.size())
        return false;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const Channel &channel = channels[i];
        const int open = strings[i];
        if (channel.lowest < open - mostSlack || channel.highest > open + mostFrets
            || channel.sum > static_cast<long>(channel.count) * (open + usualFrets))
            return false;
    }
    return true;
}

} // namespace

std::vector<unsigned> foldStrings(PlayedNotes &notes, InstrumentSet::Type type)
{
    constexpr std::size_t leastChannels = 4;
    if (!InstrumentSet::isGuitar(type) && !InstrumentSet::isBass(type))
        return {};
    std::array<Channel, channelCount> all;
    for (const PlayedNote &note : notes) {
        Channel &channel = all[note.channel];
        channel.number = note.channel;
        channel.lowest = std::min<int>(channel.lowest, note.key);
        channel.highest = std::max<int>(channel.highest, note.key);
        channel.sum += note.key;
        ++channel.count;
        channel.overlaps += note.playedStart + midiQuarter / 16 < channel.soundsUntil;
        channel.soundsUntil = std::max(channel.soundsUntil, note.playedEnd);
    }
    // From the lowest string up: channels usually count from the highest one.
    std::vector<Channel> channels;
    for (auto channel = all.rbegin(); channel != all.rend(); ++channel)
        if (channel->count > 0)
            channels.push_back(*channel);
    if (channels.size() < leastChannels)
        return {};
    for (const Channel &channel : channels)
        if (channel.overlaps * 50 > channel.count)
            return {};
    for (int direction = 0; direction < 2; ++direction) {
        for (const auto &strings : usualStrings(type)) {
            if (!areOn(channels, strings) || channels.size() != strings.size())
                continue;
            std::array<std::int8_t, channelCount> stringOf = {};
            std::vector<unsigned> tuning;
            for (std::size_t i = 0; i < channels.size(); ++i) {
                stringOf[channels[i].number] = static_cast<std::int8_t>(i);
                tuning.push_back(static_cast<unsigned>(std::min(strings[i], channels[i].lowest)));
            }
            for (PlayedNote &note : notes)
                note.string = stringOf[note.channel];
            return tuning;
        }
        std::reverse(channels.begin(), channels.end());
    }
    return {};
}

} // namespace zarn::io
