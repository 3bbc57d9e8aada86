// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/PartWriting.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace zarn::io {

namespace {

constexpr std::size_t mostParts = 4;

/// More notes at once are a cluster, whatever it does.
constexpr std::size_t mostHeard = 16;

/// How the sound of a staff changes, each change of a pair of neighbouring lines counted.
struct Motion {
    std::size_t breaks = 0; ///< changes between different numbers of notes
    std::size_t alike = 0;  ///< both up or both down
    std::size_t oblique = 0;
    std::size_t contrary = 0;

    std::size_t moves() const { return alike + oblique + contrary; }
};

/// Keys that sound, the lowest first.
class Sound {
public:
    std::size_t size() const noexcept { return _size; }
    int operator[](std::size_t place) const noexcept { return _keys[place]; }

    void add(std::uint8_t key)
    {
        std::size_t place = _size++;
        for (; place > 0 && _keys[place - 1] > key; --place)
            _keys[place] = _keys[place - 1];
        _keys[place] = key;
    }

    friend bool operator==(const Sound &left, const Sound &right)
    {
        return std::equal(left._keys.begin(), left._keys.begin() + left._size, right._keys.begin(),
                          right._keys.begin() + right._size);
    }

private:
    std::array<std::uint8_t, mostHeard> _keys = {};
    std::size_t _size = 0;
};

void countMotion(const Sound &before, const Sound &after, Motion &motion)
{
    if ((before.size() < 2 && after.size() < 2) || before == after)
        return;
    if (before.size() != after.size() || before.size() > mostParts) {
        ++motion.breaks;
        return;
    }
    for (std::size_t i = 0; i + 1 < before.size(); ++i) {
        const int lower = after[i] - before[i];
        const int upper = after[i + 1] - before[i + 1];
        if (lower == 0 && upper == 0)
            continue;
        if (lower == 0 || upper == 0)
            ++motion.oblique;
        else if ((lower < 0) != (upper < 0))
            ++motion.contrary;
        else
            ++motion.alike;
    }
}

Motion motionOf(const PlayedNotes &notes)
{
    struct Heard {
        MidiTime end;
        std::uint8_t key;
    };
    constexpr MidiTime never = std::numeric_limits<MidiTime>::max();
    Motion motion;
    std::array<Heard, mostHeard> heard;
    std::size_t count = 0;
    MidiTime firstEnd = never;
    Sound before;
    for (std::size_t next = 0; next < notes.size() || count > 0;) {
        // The next moment at which something begins or ends.
        const MidiTime time =
            next < notes.size() ? std::min(notes[next].start, firstEnd) : firstEnd;
        std::size_t left = 0;
        for (std::size_t i = 0; i < count; ++i)
            if (heard[i].end > time)
                heard[left++] = heard[i];
        count = left;
        for (; next < notes.size() && notes[next].start <= time; ++next)
            if (count < mostHeard && notes[next].end > time)
                heard[count++] = {notes[next].end, notes[next].key};
        Sound now;
        firstEnd = never;
        for (std::size_t i = 0; i < count; ++i) {
            now.add(heard[i].key);
            firstEnd = std::min(firstEnd, heard[i].end);
        }
        countMotion(before, now, motion);
        before = now;
    }
    return motion;
}

bool movesInParts(const Motion &motion)
{
    constexpr std::size_t leastMoves = 24;
    const std::size_t moves = motion.moves();
    const bool isSteady = moves >= leastMoves && moves >= motion.breaks;
    const bool isIndependent = 2 * (motion.oblique + motion.contrary) >= moves;
    return isSteady && isIndependent && 20 * motion.contrary >= moves;
}

} // namespace

PartWriting::PartWriting(const PlayedNotes &notes) : _isInParts(movesInParts(motionOf(notes)))
{
    if (!_isInParts)
        return;
    std::vector<MidiTime> ends;
    ends.reserve(notes.size());
    for (const PlayedNote &note : notes)
        ends.push_back(note.end);
    std::sort(ends.begin(), ends.end());
    std::size_t ended = 0;
    for (std::size_t begun = 0; begun < notes.size();) {
        const MidiTime time = notes[begun].start;
        while (begun < notes.size() && notes[begun].start == time)
            ++begun;
        while (ended < begun && ends[ended] <= time)
            ++ended;
        // Up to the end that leaves no more than there are parts.
        if (begun - ended > mostParts)
            _crowds.push_back({time, ends[begun - mostParts - 1]});
    }
}

bool PartWriting::isPart(const PlayedNote &note) const
{
    if (!_isInParts)
        return false;
    const auto next =
        std::lower_bound(_crowds.begin(), _crowds.end(), note.end,
                         [](const Crowd &crowd, MidiTime time) { return crowd.start < time; });
    // Ends of crowds grow with their starts.
    return next == _crowds.begin() || next[-1].end <= note.start;
}

} // namespace zarn::io
