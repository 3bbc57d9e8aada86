// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/OrnamentFinder.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zarn::io {

namespace {

// The longest time, in seconds and in quarters, from one note of a rolled chord to the next, and of
// a grace note.
constexpr double longestStep = 0.16;
constexpr MidiTime longestStepOfBeat = midiQuarter / 5;
constexpr double longestGrace = 0.075;
constexpr int widestGrace = 5;

/// A grace note is so much shorter than its main note.
constexpr MidiTime graceOfMain = 2;

/// Notes behind another that are looked at.
constexpr std::size_t nearby = 32;

/// What stands on the beat or on half of it.
bool isPlain(MidiTime time, MidiTime part, double tolerance)
{
    const MidiTime rest = time % part;
    return static_cast<double>(std::min(rest, part - rest)) <= tolerance;
}

class Finder {
public:
    Finder(PlayedNotes &notes, const std::vector<TempoChange> &tempos, double tick)
        : _notes(notes), _tempos(tempos), _tolerance(1.5 * tick)
    {
    }

    void find()
    {
        TempoLine tempo(_tempos);
        for (std::size_t i = 0; i < _notes.size(); ++i) {
            const PlayedNote &note = _notes[i];
            const double quarterSeconds = tempo.quarterSecondsAt(note.playedStart);
            const bool mayRoll = i + 1 < _notes.size()
                && _notes[i + 1].playedStart - note.playedStart <= longestStepOfBeat;
            const bool mayBeGrace =
                seconds(note.playedEnd - note.playedStart, quarterSeconds) <= longestGrace;
            if ((!mayRoll && !mayBeGrace) || !isPlain(note.playedStart, midiQuarter / 2, _tolerance)
                || note.roll != Roll::None)
                continue;
            if (mayRoll)
                findRoll(i, quarterSeconds);
            findGrace(i, quarterSeconds);
        }
        sortNearlySorted(_notes, [](const PlayedNote &left, const PlayedNote &right) {
            return left.playedStart < right.playedStart;
        });
    }

private:
    /// A chord whose first note is at a plain place and whose others are not.
    void findRoll(std::size_t first, double quarterSeconds)
    {
        for (const int direction : {1, -1}) {
            _roll = {first};
            for (std::size_t i = first + 1; i < std::min(_notes.size(), first + nearby); ++i) {
                const PlayedNote &last = _notes[_roll.back()];
                const PlayedNote &note = _notes[i];
                const MidiTime step = note.playedStart - last.playedStart;
                if (step > longestStepOfBeat || seconds(step, quarterSeconds) > longestStep)
                    break;
                const bool endsTogether =
                    std::abs(static_cast<double>(note.playedEnd - last.playedEnd)) <= _tolerance;
                if (static_cast<double>(step) > _tolerance && endsTogether
                    && (note.key - last.key) * direction > 0
                    && note.playedEnd - note.playedStart > step
                    && !isPlain(note.playedStart, midiQuarter / 4, _tolerance)
                    && !isPlain(note.playedStart, midiQuarter / 3, _tolerance))
                    _roll.push_back(i);
            }
            if (_roll.size() < 2)
                continue;
            const MidiTime start = _notes[first].playedStart;
            for (const std::size_t i : _roll) {
                _notes[i].playedStart = start;
                _notes[i].roll = direction > 0 ? Roll::Up : Roll::Down;
            }
            return;
        }
    }

    void findGrace(std::size_t grace, double quarterSeconds)
    {
        PlayedNote &note = _notes[grace];
        const MidiTime length = note.playedEnd - note.playedStart;
        if (length <= 0 || seconds(length, quarterSeconds) > longestGrace)
            return;
        for (std::size_t i = grace + 1; i < std::min(_notes.size(), grace + nearby); ++i) {
            PlayedNote &main = _notes[i];
            const auto gap = static_cast<double>(main.playedStart - note.playedEnd);
            if (gap > 2 * _tolerance)
                return;
            const int step = std::abs(main.key - note.key);
            if (gap < -_tolerance || step == 0 || step > widestGrace
                || main.playedEnd - main.playedStart < graceOfMain * length
                || isPlain(main.playedStart, midiQuarter / 4, _tolerance)
                || !isPlain(main.playedEnd, midiQuarter / 4, 2 * _tolerance))
                continue;
            main.playedStart = note.playedStart;
            note.playedEnd = note.playedStart;
            note.isGrace = true;
            return;
        }
    }

    static double seconds(MidiTime time, double quarterSeconds)
    {
        return static_cast<double>(time) / midiQuarter * quarterSeconds;
    }

    PlayedNotes &_notes;
    const std::vector<TempoChange> &_tempos;
    double _tolerance;
    std::vector<std::size_t> _roll;
};

} // namespace

void findOrnaments(PlayedNotes &notes, const std::vector<TempoChange> &tempos, double tick)
{
    Finder(notes, tempos, tick).find();
}

} // namespace zarn::io
