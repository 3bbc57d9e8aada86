// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnTransposedChords.h>

#include <ZarnCore/chords/TransposedSymbol.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace zarn {

namespace {

/// A diagram along the neck; nothing when one of its strings cannot go along.
std::optional<ChordDiagram> movedDiagram(const ChordDiagram &diagram, const Interval &interval,
                                         int frets, unsigned fretCount)
{
    ChordDiagram moved = diagram;
    moved.name = chord::transposedSymbol(diagram.name, interval);
    for (std::int8_t &fret : moved.frets) {
        if (fret < 0)
            continue;
        const int next = fret + frets;
        if (fret == 0 || next < 1 || next > static_cast<int>(fretCount))
            return std::nullopt;
        fret = static_cast<std::int8_t>(next);
    }
    setFirstFret(moved);
    return moved;
}

unsigned fretCountOf(const Staff &staff)
{
    constexpr unsigned mostFrets = 127;
    return std::min(staff.fretCount(), mostFrets);
}

} // namespace

void TransposedChords::transpose(Beat &beat, const BeatSpan &place, const Interval &interval,
                                 int frets, Diagrams diagrams)
{
    ChordMark chord = beat.chord();
    chord.symbol = chord::transposedSymbol(chord.symbol, interval);
    if (chord.diagram != nullptr && diagrams == Diagrams::Move) {
        const auto owner = beat.parentVoice()->parentBar()->parentStaff();
        const auto moved = movedDiagram(*chord.diagram, interval, frets, fretCountOf(*owner));
        // A chord that was its diagram alone is named when that goes.
        if (!moved && chord.symbol.empty())
            chord.symbol = chord::transposedSymbol(chord.diagram->name, interval);
        chord.diagram = moved ? std::make_shared<const ChordDiagram>(*moved) : nullptr;
    }
    set(beat, place, chord);
}

void TransposedChords::transposeSets(Staff &staff, unsigned track, const Interval &interval,
                                     int frets, Diagrams diagrams)
{
    ChordsOfStaff sets = ChordsOfStaff::of(staff);
    for (std::string &name : sets.workingNames)
        name = chord::transposedSymbol(name, interval);
    if (diagrams == Diagrams::Move) {
        std::vector<ChordDiagram> moved;
        for (const ChordDiagram &diagram : sets.workingDiagrams)
            if (auto next = movedDiagram(diagram, interval, frets, fretCountOf(staff)))
                moved.push_back(*std::move(next));
        sets.workingDiagrams = std::move(moved);
    }
    setSets(staff, track, std::move(sets));
}

} // namespace zarn
