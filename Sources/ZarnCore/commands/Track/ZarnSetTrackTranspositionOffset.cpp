// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetTrackTranspositionOffset.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <cstdlib>

namespace zarn::cmd {

SetTrackTranspositionOffset::SetTrackTranspositionOffset()
    : TransposeNotes(QStringLiteral("SetTrackTranspositionOffset"), Frets::Stay)
{
}
SetTrackTranspositionOffset::~SetTrackTranspositionOffset() = default;

bool SetTrackTranspositionOffset::init(Score *score, unsigned track, int semitones)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackTranspositionOffset::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Value"), QString::number(semitones));
    _track = track;
    _offset = semitones;
    return std::abs(semitones) <= MostSemitones && prepareAll(score, track);
}

void SetTrackTranspositionOffset::begin()
{
    setKeys(-model().tracks()[_track]->transpositionOffset(), -_offset);
}

void SetTrackTranspositionOffset::changeSettings()
{
    Track &track = *model().tracks()[_track];
    _offsetBefore = track.transpositionOffset();
    track.setTranspositionOffset(_offset);
}

void SetTrackTranspositionOffset::restoreOthers()
{
    TransposeNotes::restoreOthers();
    model().tracks()[_track]->setTranspositionOffset(_offsetBefore);
}

void SetTrackTranspositionOffset::announce()
{
    score().notify(this, evt::TranspositionOffsetChanged(static_cast<int>(_track)));
    announceChords();
}

} // namespace zarn::cmd
