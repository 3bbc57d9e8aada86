// SPDX-License-Identifier: MIT
// Bar columns go in and out of all staves at once.
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn {
namespace {

/// Marks of the bars beside a joint that a change may take away: a double simile reaches two bars
/// to either side. Bars without a mark are noted too: columns that are put back may find one there.
void collectSimileMarks(const ScoreModel &model, unsigned from, unsigned to,
                        std::vector<SimileMarkPlace> &marks)
{
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (unsigned i = from; i < std::min(to, staff->barCount()); ++i)
                marks.push_back(
                    {track->index(), staff->index(), i, staff->bars()[i]->simileMark()});
}

enum class TiesToNote { Tied, All };

void collectTies(const Bar &bar, const Staff &staff, unsigned track, bool atEnd, TiesToNote which,
                 std::vector<TiePlace> &ties)
{
    for (const auto &voice : bar.voices()) {
        if (!voice || voice->isEmpty())
            continue;
        const Beat &beat = atEnd ? *voice->beats().back() : *voice->beats().front();
        for (unsigned i = 0; i < beat.noteCount(); ++i) {
            const Note &note = *beat.notes()[i];
            if (which == TiesToNote::All || note.isTied() || note.isTieOrigin())
                ties.push_back({track, staff.index(), bar.index(), voice->index(), beat.index(), i,
                                note.isTied(), note.isTieOrigin()});
        }
    }
}

/// Ties of the beats that face a joint: those that end the columns up to `end`, not included, and
/// those that begin the columns from `begin` on. Between bars untied notes are noted too, as are
/// simile marks; at an end of the score no tie comes back with columns that are put back.
void collectTies(const ScoreModel &model, unsigned end, unsigned begin, std::vector<TiePlace> &ties)
{
    const bool isBetween = end > 0 && begin < model.masterTrack()->masterBarCount();
    const auto which = isBetween ? TiesToNote::All : TiesToNote::Tied;
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves()) {
            if (end > 0 && end <= staff->barCount())
                collectTies(*staff->bars()[end - 1], *staff, track->index(), true, which, ties);
            if (begin < staff->barCount())
                collectTies(*staff->bars()[begin], *staff, track->index(), false, which, ties);
        }
}

// Most tracks have no automations: their many slots need not be looked at.
AutomationContainer::ErasedBlocks eraseAutomations(AutomationContainer &container, unsigned first,
                                                   unsigned last)
{
    return container.hasAutomations() ? container.eraseBlocks(first, last)
                                      : AutomationContainer::ErasedBlocks{first, last, {}, {}};
}

void restoreAutomations(AutomationContainer &container, AutomationContainer::ErasedBlocks erased)
{
    if (container.hasAutomations() || !erased.removed.empty())
        container.restoreBlocks(std::move(erased));
}

} // namespace

BarColumnSurroundings ScoreModel::insertEmptyBarColumns(unsigned index, unsigned count)
{
    index = std::min(index, _masterTrack->masterBarCount());
    BarColumnSurroundings before;
    before.directions = _masterTrack->directionSlots();
    collectSimileMarks(*this, index < 2 ? 0 : index - 2, index + 2, before.simileMarks);
    collectTies(*this, index, index, before.ties);

    _masterTrack->insertEmptyMasterBars(index, count);
    for (const auto &track : tracks())
        track->insertEmptyBars(index, count, LinkMode::Mend);
    return before;
}

BarColumns ScoreModel::takeBarColumns(unsigned first, unsigned last)
{
    BarColumns taken;
    taken.first = first;
    if (first > last || first >= _masterTrack->masterBarCount())
        return taken;
    last = std::min(last, _masterTrack->masterBarCount() - 1);

    taken.surroundings.directions = _masterTrack->directionSlots();
    collectSimileMarks(*this, first < 2 ? 0 : first - 2, first, taken.surroundings.simileMarks);
    collectSimileMarks(*this, last + 1, last + 3, taken.surroundings.simileMarks);
    collectTies(*this, first, last + 1, taken.surroundings.ties);

    taken.automations.reserve(1 + trackCount());
    taken.automations.push_back(_masterTrack->eraseBlocks(first, last));
    _masterTrack->removeDirections(first, last);
    if (_masterTrack->handOnMovementStart(first, last))
        taken.surroundings.newMovementStart = static_cast<int>(last) + 1;
    taken.masterBars = _masterTrack->takeMasterBarBlock(first, last);
    taken.bars.reserve(trackCount());
    for (const auto &track : tracks()) {
        taken.automations.push_back(eraseAutomations(track->mutableAutomations(), first, last));
        Track::BarBlocks blocks;
        for (const auto &staff : track->staves())
            blocks.push_back(staff->takeBars(first, last, LinkMode::Mend));
        taken.bars.push_back(std::move(blocks));
    }
    return taken;
}

void ScoreModel::putBackBarColumns(BarColumns columns)
{
    if (columns.masterBars.empty())
        return;
    ZARN_ASSERT_IN("zarn::ScoreModel::putBackBarColumns",
                   columns.bars.size() == trackCount()
                       && columns.automations.size() == trackCount() + 1u
                       && columns.first <= _masterTrack->masterBarCount());
    for (unsigned i = 0; i < trackCount(); ++i)
        ZARN_ASSERT_IN("zarn::ScoreModel::putBackBarColumns",
                       columns.bars[i].size() == tracks()[i]->staffCount());

    _masterTrack->insertMasterBarBlock(columns.first, std::move(columns.masterBars));
    _masterTrack->restoreBlocks(std::move(columns.automations[0]));
    for (unsigned i = 0; i < trackCount(); ++i) {
        const auto &track = tracks()[i];
        restoreAutomations(track->mutableAutomations(), std::move(columns.automations[i + 1]));
        for (unsigned staff = 0; staff < track->staffCount(); ++staff)
            track->staves()[staff]->insertBars(columns.first, std::move(columns.bars[i][staff]));
    }
    restoreSurroundings(columns.surroundings);
}

void ScoreModel::restoreSurroundings(const BarColumnSurroundings &surroundings)
{
    _masterTrack->setDirectionSlots(surroundings.directions);
    if (surroundings.newMovementStart >= 0)
        _masterTrack->masterBars()[static_cast<unsigned>(surroundings.newMovementStart)]
            ->setMovementStart(false);
    for (const SimileMarkPlace &place : surroundings.simileMarks)
        if (const auto track = _tracks.at(place.track))
            if (const auto bar = track->bar(place.bar, place.staff))
                bar->setSimileMark(place.mark);
    for (const TiePlace &place : surroundings.ties) {
        const auto track = _tracks.at(place.track);
        const auto bar = track ? track->bar(place.bar, place.staff) : nullptr;
        const auto voice = bar ? bar->voice(place.voice) : nullptr;
        const auto beat = voice ? voice->beat(place.beat) : nullptr;
        if (!beat || place.note >= beat->noteCount())
            continue;
        beat->notes()[place.note]->setTied(place.isTied);
        beat->notes()[place.note]->setTieOrigin(place.isTieOrigin);
    }
}

} // namespace zarn
