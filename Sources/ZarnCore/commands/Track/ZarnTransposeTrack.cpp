// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnTransposeTrack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <cstdlib>

namespace zarn::cmd {

TransposeTrack::TransposeTrack() : TransposeNotes(QStringLiteral("TransposeTrack"), Frets::Follow)
{
}
TransposeTrack::~TransposeTrack() = default;

bool TransposeTrack::init(Score *score, unsigned track, int semitones, Refingering refingering)
{
    ZARN_ASSERT_IN("zarn::cmd::TransposeTrack::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Value"), QString::number(semitones));
    addArg(QStringLiteral("Type"),
           refingering == Refingering::KeepStrings ? QStringLiteral("KeepStrings")
                                                   : QStringLiteral("FindAnew"));
    _track = track;
    _refingering = refingering;
    setKeys(0, semitones);
    return semitones != 0 && std::abs(semitones) <= MostSemitones && prepareAll(score, track);
}

bool TransposeTrack::isPossible() const
{
    return isPitched(*model().tracks()[_track]);
}

bool TransposeTrack::finish()
{
    TransposeNotes::finish();
    if (_refingering == Refingering::KeepStrings)
        return false;
    for (const auto &staff : model().tracks()[_track]->staves())
        refinger(*staff, {});
    return true;
}

} // namespace zarn::cmd
