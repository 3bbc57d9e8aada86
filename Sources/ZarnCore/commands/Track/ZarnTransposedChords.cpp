// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnTransposedChords.h>

#include <ZarnCore/chords/TransposedSymbol.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <optional>
#include <set>

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

template <class T>
void addOnce(std::vector<T> &all, T item)
{
    if (std::find(all.begin(), all.end(), item) == all.end())
        all.push_back(std::move(item));
}

} // namespace

void TransposedChords::clear()
{
    _beats.clear();
    _sets.clear();
}

void TransposedChords::transpose(Beat &beat, const BeatSpan &place, const Interval &interval,
                                 int frets, Diagrams diagrams)
{
    const ChordMark &before = beat.chord();
    ChordMark chord = before;
    chord.symbol = chord::transposedSymbol(before.symbol, interval);
    if (chord.diagram != nullptr && diagrams == Diagrams::Move) {
        const auto owner = beat.parentVoice()->parentBar()->parentStaff();
        const auto moved = movedDiagram(*chord.diagram, interval, frets, fretCountOf(*owner));
        // A chord that was its diagram alone is named when that goes.
        if (!moved && chord.symbol.empty())
            chord.symbol = chord::transposedSymbol(chord.diagram->name, interval);
        chord.diagram = moved ? std::make_shared<const ChordDiagram>(*moved) : nullptr;
    }
    if (chord == before)
        return;
    _beats.push_back({place.track, place.staff, place.bar, place.voice, beat.index(), before});
    beat.setChord(chord);
}

void TransposedChords::transposeSets(Staff &staff, unsigned track, const Interval &interval,
                                     int frets, Diagrams diagrams)
{
    std::vector<std::string> chords;
    for (const std::string &name : staff.chordWorkingSet())
        addOnce(chords, chord::transposedSymbol(name, interval));
    std::vector<ChordDiagram> moved;
    for (const ChordDiagram &diagram : staff.diagramWorkingSet()) {
        if (diagrams == Diagrams::Stay)
            moved.push_back(diagram);
        else if (auto next = movedDiagram(diagram, interval, frets, fretCountOf(staff)))
            addOnce(moved, *std::move(next));
    }
    if (chords == staff.chordWorkingSet() && moved == staff.diagramWorkingSet())
        return;
    _sets.push_back({track, staff.index(), staff.chordWorkingSet(), staff.diagramWorkingSet()});
    staff.setChordWorkingSet(std::move(chords));
    staff.setDiagramWorkingSet(std::move(moved));
}

void TransposedChords::putBack(const ScoreModel &model) const
{
    for (const BeatChord &place : _beats) {
        const auto &bar = model.tracks()[place.track]->staves()[place.staff]->bars()[place.bar];
        bar->voices()[place.voice]->beats()[place.beat]->setChord(place.before);
    }
    for (const StaffSets &sets : _sets) {
        Staff &staff = *model.tracks()[sets.track]->staves()[sets.staff];
        staff.setChordWorkingSet(sets.chords);
        staff.setDiagramWorkingSet(sets.diagrams);
    }
}

void TransposedChords::announce(ScoreBase &score, const void *sender) const
{
    std::set<std::pair<unsigned, unsigned>> staves;
    for (const BeatChord &place : _beats)
        staves.emplace(place.track, place.staff);
    for (const StaffSets &sets : _sets)
        staves.emplace(sets.track, sets.staff);
    for (const auto &staff : staves)
        score.notify(
            sender,
            evt::ChordsChanged(static_cast<int>(staff.first), static_cast<int>(staff.second)));
}

} // namespace zarn
