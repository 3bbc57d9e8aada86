// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/StaffTranspositions.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/PartFacts.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::io {

namespace {

constexpr int stepsOfOctave = 7;
constexpr int semitonesOfOctave = 12;
constexpr int semitoneOfStep[] = {0, 2, 4, 5, 7, 9, 11};

int floorOf(int value, int unit)
{
    return (value >= 0 ? value : value - unit + 1) / unit;
}

/// Steps that an interval has when nothing says them: as few signs as can be.
int usualSteps(int semitones)
{
    constexpr int steps[] = {0, 1, 1, 2, 2, 3, 3, 4, 5, 5, 6, 6};
    const int octaves = floorOf(semitones, semitonesOfOctave);
    return stepsOfOctave * octaves + steps[semitones - semitonesOfOctave * octaves];
}

} // namespace

void StaffTranspositions::startPart(PartFacts &facts)
{
    _facts = &facts;
    _common = {};
    _own.clear();
    _ofTrack.reset();
    _runs.clear();
}

void StaffTranspositions::set(int staff, int chromatic, int diatonic)
{
    const Shift shift = {chromatic, diatonic};
    if (staff < 0) {
        _common = shift;
        _own.clear();
    } else {
        const auto index = static_cast<std::size_t>(staff);
        if (_own.size() <= index)
            _own.resize(index + 1);
        _own[index] = shift;
    }
    if (staff <= 0)
        _facts->transpositions.push_back({_context.bar(), chromatic, diatonic});
    if (!_ofTrack)
        _facts->chromatic = shiftOf(0).chromatic;
}

StaffTranspositions::Shift StaffTranspositions::shiftOf(int staff) const
{
    const auto index = static_cast<std::size_t>(staff);
    return index < _own.size() ? _own[index].value_or(_common) : _common;
}

void StaffTranspositions::adjust(WrittenNote &note)
{
    if (!_ofTrack)
        _ofTrack = shiftOf(0);
    const auto shift = shiftOf(note.staff);
    // Other steps alone are another key to read from, in which the notes are written already.
    if (shift.chromatic == _ofTrack->chromatic)
        return;
    addToRun(shift, note);
    const int chromatic = shift.chromatic - _ofTrack->chromatic;
    int diatonic = shift.diatonic - _ofTrack->diatonic;
    if (const int usual = usualSteps(chromatic); std::abs(diatonic - usual) > 1)
        diatonic = usual;
    const int steps = stepsOfOctave * note.octave + note.step + diatonic;
    const int midi = note.midi + chromatic;
    note.octave = floorOf(steps, stepsOfOctave);
    note.step = steps - stepsOfOctave * note.octave;
    note.alter = midi - semitonesOfOctave * (note.octave + 1) - semitoneOfStep[note.step];
    note.midi = std::clamp(midi, 0, 127);
    if (note.midi != midi)
        _context.addProblem(note.node,
                            "a pitch outside of the MIDI keys was moved to the nearest key");
}

void StaffTranspositions::addToRun(const Shift &shift, const WrittenNote &note)
{
    const auto index = static_cast<std::size_t>(note.staff);
    if (_runs.size() <= index)
        _runs.resize(index + 1);
    auto &run = _runs[index];
    if (run && !(run->shift == shift)) {
        tell(note.staff, *run);
        run.reset();
    }
    if (!run)
        run = Run{shift, _context.bar(), _context.bar(), note.node};
    run->last = _context.bar();
}

void StaffTranspositions::tell(int staff, const Run &run)
{
    const bool isOneBar = run.first == run.last;
    const auto numberOf = [](int bar) { return std::to_string(bar + 1); };
    const auto soundOf = [](int semitones) {
        const int count = std::abs(semitones);
        return count == 0 ? std::string("as written")
                          : std::to_string(count) + (count == 1 ? " semitone " : " semitones ")
                + (semitones < 0 ? "lower" : "higher") + " than written";
    };
    _context.addProblemInBar(
        run.first, run.node,
        "staff " + numberOf(staff) + " sounds " + soundOf(run.shift.chromatic)
            + (isOneBar ? " in bar " + numberOf(run.first)
                        : " from bar " + numberOf(run.first) + " to " + numberOf(run.last))
            + ", the part " + soundOf(_ofTrack->chromatic)
            + "; these notes are written as the part is and sound the same");
}

void StaffTranspositions::finishPart()
{
    for (std::size_t staff = 0; staff < _runs.size(); ++staff)
        if (_runs[staff])
            tell(static_cast<int>(staff), *_runs[staff]);
    _runs.clear();
}

} // namespace zarn::io
