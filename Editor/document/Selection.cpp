// SPDX-License-Identifier: MIT
#include "document/Selection.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>

namespace zarn::editor {
namespace {

SelectionMode modeOf(SelectedPart part)
{
    switch (part) {
    case SelectedPart::Beats:
        break;
    case SelectedPart::Bars:
        return SelectionMode::MultiSelection | SelectionMode::MultiVoice;
    case SelectedPart::AllTracks:
        return SelectionMode::MultiSelection | SelectionMode::MultiVoice
            | SelectionMode::MultiTrack;
    }
    return SelectionMode::MultiSelection;
}

/// A selection of beats has beats at its ends: behind the last beat of a bar that one is meant.
ScoreModelIndex onBeat(ScoreModelIndex place)
{
    place.invalidateNote();
    const auto voice = place.voice();
    if (voice != nullptr && !voice->isEmpty())
        place.setBeatIndex(std::min(place.beatIndex(), static_cast<int>(voice->beatCount()) - 1));
    return place;
}

} // namespace

void Selection::start(const ScoreModelIndex &anchor, SelectedPart part)
{
    _anchor = anchor;
    _part = part;
}

void Selection::settle(const Score &score)
{
    if (!_anchor)
        return;
    _anchor->setModel(score.scoreModel().get());
    const ScoreModelIndex &cursor = score.scoreCursor().index();
    if (!_anchor->isBarValid() || !cursor.isBarValid()
        || (_part == SelectedPart::Beats && !onBeat(*_anchor).isBeatValid()))
        clear();
}

ScoreModelRange Selection::beats(const Score &score) const
{
    const ScoreModelIndex &cursor = score.scoreCursor().index();
    if (!_anchor)
        return ScoreModelRange(cursor);
    ScoreModelIndex anchor = *_anchor;
    anchor.setModel(cursor.model());
    if (anchor.trackIndex() != cursor.trackIndex()) {
        // Places of two tracks have no order, and only whole bars lie between them.
        anchor.setTrackIndex(cursor.trackIndex());
        anchor.setStaffIndex(cursor.staffIndex());
        anchor.setVoiceIndex(cursor.voiceIndex());
        anchor.setBeatIndex(0);
        return {onBeat(anchor), onBeat(cursor), modeOf(SelectedPart::AllTracks)};
    }
    if (anchor.staffIndex() != cursor.staffIndex() || anchor.voiceIndex() != cursor.voiceIndex()) {
        anchor.setStaffIndex(cursor.staffIndex());
        anchor = anchor.mapOnVoice(cursor.voiceIndex(), true);
    }
    return {onBeat(anchor), onBeat(cursor), modeOf(_part)};
}

ScoreModelRange Selection::notes(const Score &score) const
{
    const ScoreModelIndex &cursor = score.scoreCursor().index();
    if (_anchor || cursor.isNoteValid())
        return beats(score);
    const ScoreModelIndex beat = onBeat(cursor);
    return {beat, beat, SelectionMode::MultiSelection};
}

std::pair<unsigned, unsigned> Selection::bars(const Score &score) const
{
    const int cursor = std::max(score.scoreCursor().index().barIndex(), 0);
    const int anchor = _anchor ? std::max(_anchor->barIndex(), 0) : cursor;
    return std::minmax(static_cast<unsigned>(anchor), static_cast<unsigned>(cursor));
}

} // namespace zarn::editor
