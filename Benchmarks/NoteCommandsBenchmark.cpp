// SPDX-License-Identifier: MIT
// Commands over all of a big score against bare loops: 512,000 notes transposed, and one attribute
// of them or of their 256,000 beats set and taken back.
#include "BigScore.h"
#include "RatioReport.h"

#include <ZarnCore/commands/ZarnCommandStack.h>
#include <ZarnCore/model/ZarnBeatMarks.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/score/ZarnScore.h>

#include <malloc.h>

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace zarn;

constexpr int semitones = 2;

struct BigScore {
    BigScore()
    {
        bench::bigscore::build(*score.scoreModel());
        forEachNote(
            [](Note &note) { note.setSpelling(PitchClass::fromPitch(note.midi(), false)); });
        const SelectionMode all =
            SelectionMode::MultiSelection | SelectionMode::MultiVoice | SelectionMode::MultiTrack;
        ScoreModel *const model = score.scoreModel().get();
        everything = ScoreModelRange({model, 0, 0, -1, 0, 0},
                                     {model, 0, int(bench::bigscore::barCount) - 1, -1, 0, 0}, all);
    }

    template <class Visit>
    void forEachBeat(Visit visit) const
    {
        for (const auto &track : score.scoreModel()->tracks())
            for (const auto &staff : track->staves())
                for (const auto &bar : staff->bars())
                    for (const auto &voice : bar->voices())
                        if (voice != nullptr)
                            for (const auto &beat : voice->beats())
                                visit(*beat);
    }

    template <class Visit>
    void forEachNote(Visit visit) const
    {
        forEachBeat([&visit](Beat &beat) {
            for (const auto &note : beat.notes())
                visit(*note);
        });
    }

    Score score;
    ScoreModelRange everything;
};

BigScore &bigScore()
{
    static BigScore score;
    return score;
}

/// Where an interval leads from each spelling, by letter and accidental.
using Spellings = std::array<std::array<PitchClass, 5>, 7>;

Spellings spellingsAfter(const Interval &interval)
{
    Spellings table;
    for (unsigned letter = 0; letter < table.size(); ++letter)
        for (unsigned sign = 0; sign < table[letter].size(); ++sign)
            table[letter][sign] = PitchClass(static_cast<NoteName::Value>(letter),
                                             static_cast<NoteAccidental::Value>(sign))
                                      .transposed(interval);
    return table;
}

void moveByLoop(const BigScore &big, int by, const Spellings &table)
{
    big.forEachNote([&](Note &note) {
        note.setMidi(note.midi() + by);
        if (const auto spelling = note.spelling())
            note.setSpelling(table[static_cast<unsigned>(spelling->note().value())]
                                  [static_cast<unsigned>(spelling->accidental().value())]);
    });
}

void transposeByLoop(benchmark::State &state)
{
    const BigScore &big = bigScore();
    const Spellings up = spellingsAfter(Interval(Interval::Value::Second));
    const Spellings down =
        spellingsAfter(Interval(Interval::Value::Seventh, Interval::Alteration::Minor));
    for (auto _ : state) {
        {
            const bench::IterationTimer timer(state);
            moveByLoop(big, semitones, up);
        }
        moveByLoop(big, -semitones, down);
    }
}

void transposeByCommand(benchmark::State &state)
{
    BigScore &big = bigScore();
    for (auto _ : state) {
        {
            const bench::IterationTimer timer(state);
            if (!big.score.transposeAllTracks(semitones, false))
                state.SkipWithError("not transposed");
        }
        big.score.commandStack().undo();
    }
}

template <class Act>
auto byCommand(Act act)
{
    return [act](benchmark::State &state) {
        BigScore &big = bigScore();
        for (auto _ : state) {
            if (!act(big))
                state.SkipWithError("not set");
            big.score.commandStack().undo();
        }
    };
}

bool setVelocity(BigScore &big)
{
    return big.score.setNoteVelocity(big.everything, 99);
}

bool setOttava(BigScore &big)
{
    return big.score.setBeatOttavia(big.everything, Ottavia::_8va);
}

/// Writes an attribute, keeping what the notes had, and gives that back.
void setVelocityByLoop(benchmark::State &state)
{
    const BigScore &big = bigScore();
    for (auto _ : state) {
        std::vector<NoteMarks> kept;
        big.forEachNote([&kept](Note &note) {
            kept.push_back(note.marks());
            note.setVelocity(99);
        });
        std::size_t number = 0;
        big.forEachNote([&](Note &note) { note.setMarks(kept[number++]); });
    }
}

void setOttavaByLoop(benchmark::State &state)
{
    const BigScore &big = bigScore();
    for (auto _ : state) {
        std::vector<BeatMarks> kept;
        big.forEachBeat([&kept](Beat &beat) {
            kept.push_back(beat.marks());
            beat.setOttavia(Ottavia::_8va);
        });
        std::size_t number = 0;
        big.forEachBeat([&](Beat &beat) { beat.setMarks(kept[number++]); });
    }
}

/// What a command keeps a note, in bytes; the reference is one.
template <class Act>
std::pair<double, double> bytesKept(Act act)
{
    BigScore &big = bigScore();
    big.score.setConcertTone(440); // what could be redone goes
    const auto before = mallinfo2();
    act(big);
    const auto after = mallinfo2();
    big.score.commandStack().undo();
    const auto held = [](const auto &info) {
        return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
    };
    return {1, (held(after) - held(before)) / bench::bigscore::noteCount};
}

/// The same for notes of which none is marked as its neighbours are.
std::pair<double, double> bytesKeptOfDifferent()
{
    BigScore &big = bigScore();
    unsigned number = 0;
    big.forEachNote([&number](Note &note) { note.setVelocity(1 + number++ % 50); });
    const auto bytes = bytesKept([](BigScore &changed) { setVelocity(changed); });
    big.forEachNote([](Note &note) { note.setMarks({}); });
    return bytes;
}

} // namespace

int main(int argc, char **argv)
{
    bench::RatioReport report;
    report.compare("transpose 512,000 notes", 3, transposeByLoop, transposeByCommand,
                   bench::Timing::Manual);
    report.compare("set the velocity of 512,000 notes, undo", 3, setVelocityByLoop,
                   byCommand(setVelocity));
    report.compare("set the ottava of 256,000 beats, undo", 3, setOttavaByLoop,
                   byCommand(setOttava));
    report.compareValues("bytes kept a note: transposing", 5, [] {
        return bytesKept([](BigScore &big) { big.score.transposeAllTracks(semitones, false); });
    });
    report.compareValues("bytes kept a note: marks", 8,
                         [] { return bytesKept([](BigScore &big) { setVelocity(big); }); });
    // Eight for each note; the command itself is a hundredth of a byte.
    report.compareValues("bytes kept a note: marks that all differ", 8.01, bytesKeptOfDifferent);
    return report.run(argc, argv);
}
