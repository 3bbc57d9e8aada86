// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/ChannelPlan.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace zarn::playback {

namespace {

constexpr std::uint8_t usualRange = 12;
constexpr std::uint8_t wideRange = 24;
constexpr unsigned noNumber = 0;

bool overlap(const PlannedNote &left, const PlannedNote &right)
{
    return left.start < right.end && right.start < left.end;
}

/// The channels that are taken already.
class FreeChannels {
public:
    bool take(unsigned port, unsigned channel)
    {
        return channel != MidiConnection::PercussionChannel
            && _taken.insert({port, channel}).second;
    }

    /// Finds one, of a port if there is any; false when all are taken.
    bool takeAny(Lane &lane, unsigned first = 0)
    {
        for (unsigned i = 0; i < MidiConnection::PortCount; ++i) {
            const unsigned port = i == 0 ? first : i <= first ? i - 1 : i;
            for (unsigned channel = 0; channel < MidiConnection::ChannelCount; ++channel)
                if (take(port, channel)) {
                    lane.port = static_cast<std::uint8_t>(port);
                    lane.channel = static_cast<std::uint8_t>(channel);
                    return true;
                }
        }
        return false;
    }

private:
    std::set<std::pair<unsigned, unsigned>> _taken;
};

} // namespace

void ChannelPlan::assign(std::vector<PlannedNote> &notes, const std::vector<Kinds> &kinds,
                         const std::vector<PitchMotion> &motions)
{
    _kinds = kinds;
    for (unsigned track = 0; track < _model.trackCount(); ++track)
        laneOf(track, Lane::Role::Main, noNumber);
    std::vector<bool> isSplit(_model.trackCount());
    for (unsigned track = 0; track < _model.trackCount(); ++track)
        isSplit[track] =
            _channels == Channels::OnePerString || _model.tracks()[track]->hasOneChannelPerString();
    if (!motions.empty())
        for (const PlannedNote &note : notes)
            if (note.motion != PlannedNote::NoMotion)
                isSplit[note.track] = true;
    const bool hasPercussion = std::any_of(kinds.begin(), kinds.end(),
                                           [](const Kinds &each) { return each.hasPercussion; });
    const bool hasSplit = std::find(isSplit.begin(), isSplit.end(), true) != isSplit.end();
    std::vector<std::vector<std::uint32_t>> orders(_model.trackCount());
    for (std::uint32_t i = 0; (hasPercussion || hasSplit) && i < notes.size(); ++i) {
        PlannedNote &note = notes[i];
        if (note.isPercussion)
            note.lane = laneOf(note.track, Lane::Role::Percussion, noNumber);
        else if (isSplit[note.track])
            orders[note.track].push_back(i);
    }
    for (unsigned track = 0; track < orders.size(); ++track)
        assignTrack(track, notes, orders[track]);
    if (!motions.empty())
        findRanges(notes, motions);
    findChannels();
}

void ChannelPlan::assignTrack(unsigned track, std::vector<PlannedNote> &notes,
                              const std::vector<std::uint32_t> &order)
{
    const bool isByString =
        _channels == Channels::OnePerString || _model.tracks()[track]->hasOneChannelPerString();
    /// What sounds in the lanes for bends.
    struct Busy {
        utils::rational until;
        std::int32_t motion;
    };
    std::vector<Busy> busy;
    std::vector<std::uint32_t> sounding;
    for (std::size_t i = 0; i < order.size(); ++i) {
        PlannedNote &note = notes[order[i]];
        if (isByString && note.string >= 0) {
            note.lane = laneOf(track, Lane::Role::String, static_cast<unsigned>(note.string));
            continue;
        }
        sounding.erase(
            std::remove_if(sounding.begin(), sounding.end(),
                           [&](std::uint32_t other) { return notes[other].end <= note.start; }),
            sounding.end());
        sounding.push_back(order[i]);
        if (note.motion == PlannedNote::NoMotion)
            continue;
        const auto disturbs = [&](const PlannedNote &other) {
            return other.motion != note.motion && overlap(note, other);
        };
        bool isDisturbed = std::any_of(sounding.begin(), sounding.end(),
                                       [&](std::uint32_t other) { return disturbs(notes[other]); });
        for (std::size_t j = i + 1;
             !isDisturbed && j < order.size() && notes[order[j]].start < note.end; ++j)
            isDisturbed = disturbs(notes[order[j]]);
        if (!isDisturbed)
            continue;
        auto free = std::find_if(busy.begin(), busy.end(), [&](const Busy &each) {
            return each.until <= note.start || each.motion == note.motion;
        });
        if (free == busy.end())
            free = busy.insert(busy.end(), {note.start, note.motion});
        free->until = std::max(note.end, free->motion == note.motion ? free->until : note.end);
        free->motion = note.motion;
        note.lane = laneOf(track, Lane::Role::Bend, static_cast<unsigned>(free - busy.begin()));
    }
}

std::uint16_t ChannelPlan::laneOf(unsigned track, Lane::Role role, unsigned number)
{
    const auto isIt = [&](const Lane &lane) {
        return lane.track == track && lane.role == role && lane.number == number;
    };
    auto found = std::find_if(_lanes.begin(), _lanes.end(), isIt);
    if (found == _lanes.end()) {
        Lane lane;
        lane.track = static_cast<std::uint16_t>(track);
        lane.role = role;
        lane.number = static_cast<std::uint8_t>(number);
        found = _lanes.insert(_lanes.end(), lane);
    }
    return static_cast<std::uint16_t>(found - _lanes.begin());
}

void ChannelPlan::findRanges(const std::vector<PlannedNote> &notes,
                             const std::vector<PitchMotion> &motions)
{
    for (const PlannedNote &note : notes) {
        if (note.motion == PlannedNote::NoMotion)
            continue;
        const bool isWide = motions[static_cast<std::size_t>(note.motion)].reach() > usualRange;
        Lane &lane = _lanes[note.lane];
        lane.bendRange = std::max(lane.bendRange, isWide ? wideRange : usualRange);
    }
}

/// Those that tracks chose come first, then the main channels of the others, then all else.
void ChannelPlan::findChannels()
{
    FreeChannels free;
    std::vector<bool> isFound(_lanes.size());
    const auto each = [&](Lane::Role role, const auto &find) {
        for (std::size_t i = 0; i < _lanes.size(); ++i)
            if (!isFound[i] && _lanes[i].role == role)
                isFound[i] = find(_lanes[i], *_model.tracks()[_lanes[i].track]);
    };
    each(Lane::Role::Percussion, [](Lane &lane, const Track &track) {
        lane.port = track.midiConnection().port;
        lane.channel = MidiConnection::PercussionChannel;
        return true;
    });
    // The main channel of drums is that of their notes; it needs none besides.
    each(Lane::Role::Main, [&](Lane &lane, const Track &track) {
        lane.port = track.midiConnection().port;
        lane.channel = MidiConnection::PercussionChannel;
        return InstrumentSet::isUnpitched(track.type()) && !_kinds[lane.track].hasPitches;
    });
    const auto take = [&free](Lane &lane, unsigned port, unsigned channel) {
        lane.port = static_cast<std::uint8_t>(port);
        lane.channel = static_cast<std::uint8_t>(channel);
        return free.take(port, channel);
    };
    each(Lane::Role::Main, [&](Lane &lane, const Track &track) {
        const auto &wish = track.chosenMidiConnection();
        return wish && take(lane, wish->port, wish->channel);
    });
    each(Lane::Role::Main, [&](Lane &lane, const Track &) { return free.takeAny(lane); });
    each(Lane::Role::Bend, [&](Lane &lane, const Track &track) {
        const auto &wish = track.chosenMidiConnection();
        return wish && lane.number == 0 && take(lane, wish->port, wish->bendChannel);
    });
    for (const Lane::Role role : {Lane::Role::Bend, Lane::Role::String, Lane::Role::Main})
        each(role, [&](Lane &lane, const Track &) {
            const Lane &main = _lanes[lane.track];
            if (!free.takeAny(lane, main.port)) {
                lane.port = main.port;
                lane.channel = main.channel;
            }
            return true;
        });
    // Knocks on a guitar are where its notes are.
    for (Lane &lane : _lanes)
        if (lane.role == Lane::Role::Percussion && _kinds[lane.track].hasPitches)
            lane.port = _lanes[lane.track].port;
}

} // namespace zarn::playback
