// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnTransposeAllTracks.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/music/ZarnMusic.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::cmd {

TransposeAllTracks::TransposeAllTracks()
    : TransposeNotes(QStringLiteral("TransposeAllTracks"), Frets::Follow)
{
}
TransposeAllTracks::~TransposeAllTracks() = default;

bool TransposeAllTracks::init(Score *score, int semitones, bool areKeysMoved)
{
    ZARN_ASSERT_IN("zarn::cmd::TransposeAllTracks::init", score != NULL);
    addArg(QStringLiteral("Value"), QString::number(semitones));
    addArg(QStringLiteral("Checked"),
           areKeysMoved ? QStringLiteral("true") : QStringLiteral("false"));
    _areKeysMoved = areKeysMoved;
    setKeys(0, semitones);
    return semitones != 0 && std::abs(semitones) <= MostSemitones && prepareAll(score);
}

bool TransposeAllTracks::isPossible() const
{
    const auto &tracks = model().tracks();
    return std::any_of(tracks.begin(), tracks.end(),
                       [](const auto &track) { return isPitched(*track); });
}

/// Behind the notes, which go by the keys that are left.
bool TransposeAllTracks::finish()
{
    TransposeNotes::finish();
    _keysBefore.clear();
    if (!_areKeysMoved)
        return false;
    for (const auto &bar : model().masterTrack()->masterBars()) {
        _keysBefore.push_back(bar->concertKeySignature());
        bar->setConcertKeySignature(
            Music::transposedKeySignature(bar->concertKeySignature(), semitones()));
    }
    return false;
}

void TransposeAllTracks::restoreOthers()
{
    const auto &bars = model().masterTrack()->masterBars();
    for (std::size_t i = 0; i < _keysBefore.size(); ++i)
        bars[i]->setConcertKeySignature(_keysBefore[i]);
    _keysBefore.clear();
    TransposeNotes::restoreOthers();
}

void TransposeAllTracks::announce()
{
    MoveNotes::announce();
    const unsigned barCount = model().masterTrack()->masterBarCount();
    if (_areKeysMoved && barCount != 0)
        score().notify(this, evt::MasterBarKeySignature(0, static_cast<int>(barCount) - 1));
    announceChords();
}

} // namespace zarn::cmd
