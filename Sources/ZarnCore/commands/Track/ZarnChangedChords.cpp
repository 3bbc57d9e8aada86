// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnChangedChords.h>

#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <set>
#include <utility>

namespace zarn {

namespace {

/// Of a set that changes, the first of all that are equal stays.
template <class T>
void keepOnce(std::vector<T> &all, const std::vector<T> &before)
{
    if (all == before)
        return;
    auto end = all.begin();
    for (auto next = all.begin(); next != all.end(); ++next) {
        if (std::find(all.begin(), end, *next) != end)
            continue;
        if (end != next)
            *end = std::move(*next);
        ++end;
    }
    all.erase(end, all.end());
}

void write(Staff &staff, ChordsOfStaff sets)
{
    staff.setChordCollection(std::move(sets.names));
    staff.setChordWorkingSet(std::move(sets.workingNames));
    staff.setDiagramCollection(std::move(sets.diagrams));
    staff.setDiagramWorkingSet(std::move(sets.workingDiagrams));
}

} // namespace

ChordsOfStaff ChordsOfStaff::of(const Staff &staff)
{
    return {staff.chordCollection(), staff.chordWorkingSet(), staff.diagramCollection(),
            staff.diagramWorkingSet()};
}

void ChangedChords::clear()
{
    _beats.clear();
    _sets.clear();
}

bool ChangedChords::set(Beat &beat, const BeatSpan &place, const ChordMark &chord)
{
    const ChordMark &before = beat.chord();
    if (chord == before)
        return false;
    _beats.push_back({place.track, place.staff, place.bar, place.voice, beat.index(), before});
    beat.setChord(chord);
    return true;
}

void ChangedChords::setSets(Staff &staff, unsigned track, ChordsOfStaff sets)
{
    ChordsOfStaff before = ChordsOfStaff::of(staff);
    if (sets == before)
        return;
    keepOnce(sets.names, before.names);
    keepOnce(sets.workingNames, before.workingNames);
    keepOnce(sets.diagrams, before.diagrams);
    keepOnce(sets.workingDiagrams, before.workingDiagrams);
    _sets.push_back({track, staff.index(), std::move(before)});
    write(staff, std::move(sets));
}

void ChangedChords::putBack(const ScoreModel &model) const
{
    for (const BeatChord &place : _beats) {
        const auto &bar = model.tracks()[place.track]->staves()[place.staff]->bars()[place.bar];
        bar->voices()[place.voice]->beats()[place.beat]->setChord(place.before);
    }
    for (const StaffSets &sets : _sets)
        write(*model.tracks()[sets.track]->staves()[sets.staff], sets.before);
}

void ChangedChords::announce(ScoreBase &score, const void *sender) const
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
