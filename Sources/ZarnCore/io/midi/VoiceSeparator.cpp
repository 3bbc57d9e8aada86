// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/VoiceSeparator.h>

#include <ZarnCore/io/midi/PartWriting.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>
#include <vector>

namespace zarn::io {

namespace {

constexpr std::size_t voiceCount = 4;

// What continuations cost.
constexpr double perSemitone = 0.1;
constexpr double perGap = 1.5; ///< a voice that paused goes on
constexpr double perQuarterOfGap = 0.4;
constexpr double perNewVoice = 10;
constexpr double perCrossing = 3;
constexpr double perVoiceNumber = 0.8; ///< lines alone are the first voice
constexpr double longestGap = 8;       ///< quarters after which a voice is forgotten

/// Semitones that a hand reaches.
constexpr int mostOfHand = 16;

/// Notes that begin and end together.
struct Chord {
    MidiTime start;
    MidiTime end;
    std::size_t first; ///< in the notes
    std::size_t last;  ///< behind them
    int lowest;        ///< key
    int highest;
    std::uint8_t voice = 0;

    /// Lines are told apart by their upper notes.
    int height() const { return 128 * highest + lowest; }
};

/// What a voice did last.
struct Line {
    bool isUsed = false;
    MidiTime end = 0;
    int lowest = 0; ///< key of its last chord
    int highest = 0;
    std::size_t chord = 0;

    int height() const { return 128 * highest + lowest; }
};

class Separation {
public:
    explicit Separation(PlayedNotes &notes) : _notes(notes) { }

    VoiceLosses separate(const MeterLine &bars, bool isForHands)
    {
        findChords();
        if (isForHands)
            divideWideChords();
        for (std::size_t first = 0; first < _chords.size();) {
            std::size_t last = first + 1;
            while (last < _chords.size() && _chords[last].start == _chords[first].start)
                ++last;
            place(first, last);
            first = last;
        }
        unifyBars(bars);
        for (const Chord &chord : _chords)
            for (std::size_t i = chord.first; i < chord.last; ++i) {
                _notes[i].voice = chord.voice;
                _notes[i].end = chord.end;
            }
        return _losses;
    }

private:
    /// Notes that begin together end at four different times at most: of more, those nearest to
    /// each other become one.
    void joinEnds(std::size_t first, std::size_t last)
    {
        if (last - first <= voiceCount)
            return;
        std::vector<MidiTime> ends;
        for (std::size_t i = first; i < last; ++i)
            if (ends.empty() || ends.back() != _notes[i].end)
                ends.push_back(_notes[i].end);
        while (ends.size() > voiceCount) {
            std::size_t nearest = 1;
            for (std::size_t i = 1; i < ends.size(); ++i)
                if (ends[i] - ends[i - 1] < ends[nearest] - ends[nearest - 1])
                    nearest = i;
            for (std::size_t i = first; i < last; ++i)
                if (_notes[i].end == ends[nearest]) {
                    _notes[i].end = ends[nearest - 1];
                    count(_notes[i].start);
                }
            ends.erase(ends.begin() + static_cast<std::ptrdiff_t>(nearest));
        }
    }

    void findChords()
    {
        sortNearlySorted(_notes, [](const PlayedNote &left, const PlayedNote &right) {
            if (left.start != right.start)
                return left.start < right.start;
            return left.end != right.end ? left.end < right.end : left.key > right.key;
        });
        for (std::size_t first = 0; first < _notes.size();) {
            std::size_t last = first + 1;
            while (last < _notes.size() && _notes[last].start == _notes[first].start)
                ++last;
            joinEnds(first, last);
            first = last;
        }
        const PartWriting parts(_notes);
        _chords.reserve(_notes.size());
        for (std::size_t first = 0; first < _notes.size();) {
            std::size_t last = first + 1;
            if (!parts.isPart(_notes[first]))
                while (last < _notes.size() && _notes[last].start == _notes[first].start
                       && _notes[last].end == _notes[first].end)
                    ++last;
            _chords.push_back({_notes[first].start, _notes[first].end, first, last,
                               _notes[last - 1].key, _notes[first].key});
            first = last;
        }
    }

    /// Divides what stands alone at its time, while two voices are free for it.
    void divideWideChords()
    {
        constexpr std::size_t leastNotes = 3;
        std::vector<Chord> divided;
        std::vector<MidiTime> held;
        divided.reserve(_chords.size());
        for (std::size_t i = 0; i < _chords.size(); ++i) {
            const Chord chord = _chords[i];
            held.erase(std::remove_if(held.begin(), held.end(),
                                      [&](MidiTime end) { return end <= chord.start; }),
                       held.end());
            const bool isAlone = (i == 0 || _chords[i - 1].start != chord.start)
                && (i + 1 == _chords.size() || _chords[i + 1].start != chord.start);
            const bool isDivided = isAlone && chord.highest - chord.lowest > mostOfHand
                && chord.last - chord.first >= leastNotes && held.size() + 2 <= voiceCount;
            divided.push_back(chord);
            held.push_back(chord.end);
            if (!isDivided)
                continue;
            const std::size_t cut = divisionOf(chord);
            divided.back().last = cut;
            divided.back().lowest = _notes[cut - 1].key;
            divided.push_back(chord);
            divided.back().first = cut;
            divided.back().highest = _notes[cut].key;
            held.push_back(chord.end);
        }
        _chords = std::move(divided);
    }

    /// Where the lower one of two chords begins: behind a melody in octaves, or in the widest gap.
    std::size_t divisionOf(const Chord &chord) const
    {
        constexpr int octave = 12;
        std::size_t widest = chord.first + 1;
        for (std::size_t i = chord.first + 1; i < chord.last; ++i) {
            if (i + 1 < chord.last && _notes[i].key == chord.highest - octave)
                return i + 1;
            if (_notes[i - 1].key - _notes[i].key > _notes[widest - 1].key - _notes[widest].key)
                widest = i;
        }
        return widest;
    }

    /// Chords that begin together, at most as many as there are voices.
    void place(std::size_t first, std::size_t last)
    {
        if (last - first == 1 && goesOnAlone(_chords[first])) {
            takeChord(first, 0);
            return;
        }
        if (last - first > 1)
            std::sort(_chords.begin() + static_cast<std::ptrdiff_t>(first),
                      _chords.begin() + static_cast<std::ptrdiff_t>(last),
                      [](const Chord &left, const Chord &right) {
                          return left.height() > right.height();
                      });
        makeRoom(_chords[first].start, last - first);

        _best = 1e18;
        _order.fill(0);
        choose(first, last, first, 0, 0);
        for (std::size_t i = first; i < last; ++i)
            takeChord(i, _bestOrder[i - first]);
    }

    void takeChord(std::size_t place, std::size_t voice)
    {
        Chord &chord = _chords[place];
        chord.voice = static_cast<std::uint8_t>(voice);
        _lines[voice] = {true, chord.end, chord.lowest, chord.highest, place};
        _soundsUntil = std::max(_soundsUntil, chord.end);
    }

    /// Whether nothing else sounds and the first voice leads here so closely that no other one is
    /// nearer.
    bool goesOnAlone(const Chord &chord) const
    {
        return _soundsUntil <= chord.start && costOf(chord, 0) <= perVoiceNumber;
    }

    void count(MidiTime time)
    {
        if (_losses.shortened++ == 0)
            _losses.first = time;
    }

    /// Ends as many lines as are needed for new ones, those that would end first.
    void makeRoom(MidiTime time, std::size_t needed)
    {
        for (;;) {
            std::size_t free = 0;
            Line *soonest = nullptr;
            for (Line &line : _lines) {
                if (!line.isUsed || line.end <= time)
                    ++free;
                else if (soonest == nullptr || line.end < soonest->end)
                    soonest = &line;
            }
            if (free >= needed)
                return;
            count(time);
            soonest->end = time;
            _chords[soonest->chord].end = time;
        }
    }

    double costOf(const Chord &chord, std::size_t voice) const
    {
        const Line &line = _lines[voice];
        const double gap = static_cast<double>(chord.start - line.end) / midiQuarter;
        double cost = perVoiceNumber * static_cast<double>(voice);
        if (!line.isUsed || gap > longestGap)
            return cost + (voice == 0 ? 0 : perNewVoice);
        if (gap > 0)
            cost += perGap + perQuarterOfGap * gap;
        return cost
            + perSemitone
            * (std::abs(chord.lowest - line.lowest) + std::abs(chord.highest - line.highest)) / 2;
    }

    /// Lines that sound on lie above or below.
    double crossingsOf(const Chord &chord, std::size_t voice) const
    {
        double cost = 0;
        for (std::size_t other = 0; other < voiceCount; ++other) {
            const Line &line = _lines[other];
            if (!line.isUsed || line.end <= chord.start || other == voice)
                continue;
            if ((other < voice) != (line.height() >= chord.height()))
                cost += perCrossing;
        }
        return cost;
    }

    /// All ways to give the chords from `chord` on to free voices, in the order of their pitch.
    void choose(std::size_t first, std::size_t last, std::size_t chord, std::size_t from,
                double cost)
    {
        if (cost >= _best)
            return;
        if (chord == last) {
            _best = cost;
            _bestOrder = _order;
            return;
        }
        const Chord &next = _chords[chord];
        for (std::size_t voice = from; voice < voiceCount; ++voice) {
            const double ofVoice = perVoiceNumber * static_cast<double>(voice);
            if (cost + ofVoice >= _best)
                return;
            const Line &line = _lines[voice];
            const bool isTooDear =
                !line.isUsed && voice != 0 && cost + (ofVoice + perNewVoice) >= _best;
            if (isTooDear || (line.isUsed && line.end > next.start))
                continue;
            _order[chord - first] = voice;
            choose(first, last, chord + 1, voice + 1,
                   cost + costOf(next, voice) + crossingsOf(next, voice));
        }
    }

    /// Bars in which nothing sounds at once are one voice.
    void unifyBars(const MeterLine &bars)
    {
        std::size_t first = 0;
        MidiTime heldUntil = 0;
        for (const MeterBar &bar : bars.bars()) {
            std::size_t last = first;
            MidiTime end = heldUntil;
            bool isOneLine = heldUntil <= bar.start;
            for (; last < _chords.size() && _chords[last].start < bar.end(); ++last) {
                isOneLine =
                    isOneLine && _chords[last].start >= end && _chords[last].end <= bar.end();
                end = std::max(end, _chords[last].end);
            }
            if (isOneLine)
                for (std::size_t i = first; i < last; ++i)
                    _chords[i].voice = 0;
            first = last;
            heldUntil = end;
        }
    }

    PlayedNotes &_notes;
    std::vector<Chord> _chords;
    std::array<Line, voiceCount> _lines;
    std::array<std::size_t, voiceCount> _order = {};
    std::array<std::size_t, voiceCount> _bestOrder = {};
    double _best = 0;
    MidiTime _soundsUntil = 0; ///< the latest end of all chords so far
    VoiceLosses _losses;
};

} // namespace

VoiceLosses separateVoices(PlayedNotes &notes, const MeterLine &bars, bool isForHands)
{
    return Separation(notes).separate(bars, isForHands);
}

} // namespace zarn::io
