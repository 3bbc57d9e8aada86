// SPDX-License-Identifier: MIT
// Edits a score with nothing but the installed library, as the README shows it.
#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <iostream>

int main()
{
    zarn::Score score;
    int barsShown = 0;
    score.connect<zarn::evt::AddBars>(
        &barsShown, [&](const zarn::evt::AddBars &event) { barsShown += event.count(); });

    const bool isDone =
        score.createTrack(0, zarn::InstrumentSet::Type::steelGuitar) && score.createBars(0, 4);
    const zarn::ScoreModelIndex place(score.scoreModel().get(), 0, 0, 0, 0, 0);
    const bool isWritten =
        score.createBeat(place, zarn::RhythmValue(zarn::RhythmValue::NoteValue::Quarter, 0))
        && score.setStringedNote(place, 5, 3);
    const auto beat = place.beat();
    const auto notes = beat != nullptr ? beat->noteCount() : 0;
    score.commandStack().undo();
    const auto notesLeft = beat != nullptr ? beat->noteCount() : 0;

    std::cout << barsShown << " bars, " << notes << " note, " << notesLeft << " after undo\n";
    const bool isRight = isDone && isWritten && barsShown == 4 && notes == 1 && notesLeft == 0
        && score.masterTrack()->masterBarCount() == 4;
    return isRight ? 0 : 1;
}
