// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/NotatedBarReader.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <tuple>

namespace zarn::io {

namespace {

/// What programs that count in other ticks round off is less.
constexpr MidiTime nearTime = midiQuarter / 32;

constexpr std::size_t voiceCount = 4;
constexpr std::size_t keyCount = 128;
constexpr std::uint32_t kitChannel = 9;

/// A note that a bar says, or that is heard.
struct Attack {
    std::uint8_t key = 0;
    MidiTime start = 0;
    MidiTime end = 0;
    std::uint32_t group = 0; ///< the bar, or the channel
    std::uint32_t index = 0; ///< of the note in it

    bool isSame(const Attack &other) const
    {
        return key == other.key && std::abs(start - other.start) <= nearTime
            && std::abs(end - other.end) <= nearTime;
    }
    MidiTime farFrom(const Attack &other) const
    {
        return std::abs(start - other.start) + std::abs(end - other.end);
    }
    bool isBefore(const Attack &other) const
    {
        return std::tie(key, start) < std::tie(other.key, other.start);
    }
    bool isLongBefore(const Attack &other) const
    {
        return key < other.key || (key == other.key && start + nearTime < other.start);
    }
};

using Attacks = std::vector<Attack>;

bool isPlayed(const NotatedNote &note)
{
    return note.kind == NotatedNote::Kind::Struck || note.kind == NotatedNote::Kind::Stroke;
}

void sort(Attacks &attacks)
{
    std::stable_sort(attacks.begin(), attacks.end(),
                     [](const Attack &left, const Attack &right) { return left.isBefore(right); });
}

class Matching {
public:
    Matching(std::vector<TimedBar> bars, std::array<PlayedNotes, 16> &notes,
             std::vector<WrittenPlace> &places)
        : _bars(std::move(bars)), _notes(notes), _places(places)
    {
        std::stable_sort(
            _bars.begin(), _bars.end(),
            [](const TimedBar &left, const TimedBar &right) { return left.time < right.time; });
        _isWrong.assign(_bars.size(), false);
        _heardAs.resize(_bars.size());
        for (std::size_t bar = 0; bar < _bars.size(); ++bar)
            _heardAs[bar].assign(_bars[bar].bar.notes.size(), nullptr);
    }

    std::size_t match()
    {
        compare();
        for (std::size_t bar = 0; bar < _bars.size(); ++bar)
            if (!_isWrong[bar])
                take(bar);
            else
                letHeldNotesEnd(_bars[bar].time);
        for (auto &[channel, note] : _added)
            _notes[channel].push_back(note);
        if (!_added.empty())
            for (PlayedNotes &notes : _notes)
                std::stable_sort(notes.begin(), notes.end(),
                                 [](const PlayedNote &left, const PlayedNote &right) {
                                     return left.playedStart < right.playedStart;
                                 });
        return static_cast<std::size_t>(std::count(_isWrong.begin(), _isWrong.end(), true));
    }

private:
    void compare();
    void missBarAt(MidiTime time);
    void take(std::size_t bar);
    void takeNote(const TimedBar &bar, const NotatedNote &note, PlayedNote *heard);
    void letHeldNotesEnd(MidiTime time);
    Attacks expected() const;
    Attacks heard() const;

    WrittenPlace *heldUntil(const NotatedNote &note, MidiTime time);

    /// The last note of a key in a voice.
    std::int32_t &lastOf(const NotatedNote &note)
    {
        return _last[(note.staff * voiceCount + note.voice) * keyCount + note.key];
    }

    std::vector<TimedBar> _bars;
    std::array<PlayedNotes, 16> &_notes;
    std::vector<WrittenPlace> &_places;
    std::vector<bool> _isWrong;
    std::vector<std::vector<PlayedNote *>> _heardAs; ///< by bar and note
    std::vector<std::pair<std::size_t, PlayedNote>> _added;
    std::vector<std::int32_t> _last =
        std::vector<std::int32_t>(NotatedBar::mostStaves * voiceCount * keyCount, -1);
    std::uint8_t _channel = 0; ///< of the note taken last; so is the velocity
    std::uint8_t _velocity = 64;
};

Attacks Matching::expected() const
{
    Attacks all;
    for (std::uint32_t bar = 0; bar < _bars.size(); ++bar) {
        const auto &notes = _bars[bar].bar.notes;
        for (std::uint32_t i = 0; i < notes.size(); ++i) {
            const MidiTime at = _bars[bar].time + notes[i].onset;
            if (isPlayed(notes[i]))
                all.push_back({notes[i].key, at + notes[i].startLate,
                               at + notes[i].length + notes[i].endLate, bar, i});
        }
    }
    sort(all);
    return all;
}

Attacks Matching::heard() const
{
    Attacks all;
    for (std::uint32_t channel = 0; channel < _notes.size(); ++channel)
        for (std::uint32_t i = 0; i < _notes[channel].size(); ++i) {
            const PlayedNote &note = _notes[channel][i];
            all.push_back({note.key, note.playedStart, note.playedEnd, channel, i});
        }
    sort(all);
    return all;
}

/// Finds for each note that is told the one that is played so, whichever of several comes nearest.
void Matching::compare()
{
    constexpr std::size_t mostLookedAt = 64;
    const Attacks all = heard();
    std::vector<bool> isTold(all.size());
    std::size_t first = 0;
    for (const Attack &told : expected()) {
        Attack earliest = told;
        earliest.start -= nearTime;
        while (first < all.size() && (isTold[first] || all[first].isBefore(earliest)))
            ++first;
        std::size_t best = all.size();
        const std::size_t last = std::min(all.size(), first + mostLookedAt);
        for (std::size_t i = first; i < last && !told.isLongBefore(all[i]); ++i)
            if (!isTold[i] && told.isSame(all[i])
                && (best == all.size() || told.farFrom(all[i]) < told.farFrom(all[best])))
                best = i;
        if (best == all.size()) {
            _isWrong[told.group] = true;
            continue;
        }
        isTold[best] = true;
        _heardAs[told.group][told.index] = &_notes[all[best].group][all[best].index];
    }
    // Knocks on an instrument that is no drum are a part of their own.
    bool tellsDrums = false;
    for (std::size_t i = 0; i < all.size(); ++i)
        tellsDrums = tellsDrums || (isTold[i] && all[i].group == kitChannel);
    for (std::size_t i = 0; i < all.size(); ++i)
        if (!isTold[i] && (tellsDrums || all[i].group != kitChannel))
            missBarAt(all[i].start);
}

/// A note that no bar tells makes the one wrong that it stands in.
void Matching::missBarAt(MidiTime time)
{
    const auto next =
        std::upper_bound(_bars.begin(), _bars.end(), time,
                         [](MidiTime at, const TimedBar &bar) { return at < bar.time; });
    if (next == _bars.begin())
        return;
    const auto bar = static_cast<std::size_t>(next - _bars.begin()) - 1;
    if (time < _bars[bar].time + _bars[bar].bar.length)
        _isWrong[bar] = true;
}

void Matching::take(std::size_t number)
{
    const TimedBar &bar = _bars[number];
    const auto &notes = bar.bar.notes;
    // In the order of time; what is held goes on before its key is struck again.
    std::vector<std::size_t> order(notes.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        const auto rank = [&](std::size_t note) {
            return std::make_pair(notes[note].onset, notes[note].kind != NotatedNote::Kind::Held);
        };
        return rank(left) < rank(right);
    });
    for (const std::size_t note : order)
        takeNote(bar, notes[note], _heardAs[number][note]);
}

void Matching::takeNote(const TimedBar &bar, const NotatedNote &note, PlayedNote *heard)
{
    WrittenPlace place;
    place.bar = bar.time;
    place.onset = note.onset;
    place.length = note.length;
    place.staff = note.staff;
    place.voice = note.voice;
    place.fifth = note.fifth;
    place.isGrace = note.isGrace;
    place.hasTimes = place.hasEnd = note.kind != NotatedNote::Kind::Stroke;
    const MidiTime start = bar.time + note.onset;
    if (note.kind == NotatedNote::Kind::Held) {
        WrittenPlace *const before = heldUntil(note, start);
        if (before == nullptr)
            return;
        before->isHeldOn = true;
        place.isTied = true;
    }
    std::int32_t &last = lastOf(note);
    last = static_cast<std::int32_t>(_places.size());
    if (isPlayed(note)) {
        heard->written = last;
        _channel = heard->channel;
        _velocity = heard->velocity;
    } else {
        PlayedNote added;
        added.playedStart = start;
        added.playedEnd = start + note.length;
        added.key = note.key;
        added.channel = _channel;
        added.velocity = _velocity;
        added.written = last;
        _added.emplace_back(_channel, added);
    }
    _places.push_back(place);
}

/// The note of its key that ends when it begins: of its voice, or of another one.
WrittenPlace *Matching::heldUntil(const NotatedNote &note, MidiTime time)
{
    WrittenPlace *ofOther = nullptr;
    for (std::size_t line = 0; line < NotatedBar::mostStaves * voiceCount; ++line) {
        const std::int32_t number = _last[line * keyCount + note.key];
        if (number < 0)
            continue;
        WrittenPlace &place = _places[static_cast<std::size_t>(number)];
        const bool isJoined = place.hasTimes && !place.isHeldOn
            && std::abs(place.bar + place.onset + place.length - time) <= nearTime;
        if (!isJoined)
            continue;
        if (place.staff == note.staff && place.voice == note.voice)
            return &place;
        ofOther = &place;
    }
    return ofOther;
}

/// What is held into a bar that was changed lasts as long as it is played.
void Matching::letHeldNotesEnd(MidiTime time)
{
    for (std::int32_t &last : _last) {
        if (last < 0)
            continue;
        WrittenPlace &place = _places[static_cast<std::size_t>(last)];
        if (std::abs(place.bar + place.onset + place.length - time) <= nearTime)
            place.hasEnd = false;
        last = -1;
    }
}

} // namespace

std::size_t matchNotatedBars(std::vector<TimedBar> bars, std::array<PlayedNotes, 16> &notes,
                             std::vector<WrittenPlace> &places)
{
    return Matching(std::move(bars), notes, places).match();
}

} // namespace zarn::io
