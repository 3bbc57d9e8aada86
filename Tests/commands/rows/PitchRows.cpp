// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <ZarnCore/music/ZarnPitchClass.h>

using namespace rich;

namespace {

using NoteValue = RhythmValue::NoteValue;

constexpr std::uint32_t allStrings = 63;

std::vector<CommandRow> rhythmRows()
{
    return {
        {"SetBeatTuplet",
         [](SmallScore &s) {
             return s.score.setBeatTuplet(s.from(0, 1, 1, 1), {3, 2}, {5, 4});
         },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"IncrementBeatDuration",
         [](SmallScore &s) { return s.score.incrementBeatDuration(s.everything(0, 5), -4); },
         "ModifyBarRangeAllTracks(0,5) ", nullptr},
        {"SetNoteDuration",
         [](SmallScore &s) { return s.score.setNoteDuration(s.from(0, 1, 1, 1), NoteValue::Half); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetNoteAugmentationDot",
         [](SmallScore &s) { return s.score.setNoteAugmentationDot(s.from(0, 1, 1, 1), 2); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetNoteDurationAndVelocity",
         [](SmallScore &s) {
             return s.score.setNoteDurationAndVelocity(s.onString(0, 1, 2), eighth, 99);
         },
         "ModifyBarRange(0,0,0,0) ", nullptr},
    };
}

std::vector<CommandRow> noteRows()
{
    return {
        {"SetMIDINoteSpelled",
         [](SmallScore &s) {
             return s.score.setMIDINote(s.at(2, 0, 1, 2), 61,
                                        PitchClass::fromString(QStringLiteral("Db")));
         },
         "ModifyBarRange(1,0,2,2) ", nullptr},
        {"SetNoteMidiForString",
         [](SmallScore &s) { return s.score.setNoteMidiForString(s.at(0, 3), 5, 79); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetStringedNoteFretOfATie",
         [](SmallScore &s) {
             return s.score.setStringedNoteFret(ScoreModelRange(s.onString(1, 0, 5)), 7);
         },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"ShiftOneStringDown",
         [](SmallScore &s) {
             return s.score.shiftOneString(
                 ScoreModelRange(s.at(0, 1), SelectionMode::MultiSelection), Shift::Down);
         },
         "ModifyBarRange(0,0,0,0) ", nullptr},
        {"ShiftOneStringUp",
         [](SmallScore &s) {
             return s.score.shiftOneString(
                 ScoreModelRange(s.at(3, 0, 0, 2), SelectionMode::MultiSelection), Shift::Up);
         },
         "ModifyBarRange(0,0,3,3) ", nullptr},
        {"ShiftSemitone",
         [](SmallScore &s) { return s.score.shiftSemitone(s.from(0, 1, 0, 3), 2); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"ShiftSemitoneOfAllTracks",
         [](SmallScore &s) { return s.score.shiftSemitone(s.everything(1, 3), 12); },
         "ModifyBarRangeAllTracks(1,3) ModifyBarRange(0,0,0,0) ModifyBarRange(0,0,4,4) ", nullptr},
        {"SetNoteSoundingAccidental",
         [](SmallScore &s) {
             return s.score.setNoteSoundingAccidental(s.everythingOf(1, 0, 4),
                                                      NoteAccidental::Value::DoubleFlat);
         },
         "ModifyBarRange(1,0,0,4) ", nullptr},
        {"SwitchNoteAccidental",
         [](SmallScore &s) { return s.score.switchNoteAccidental(s.everything(0, 5)); },
         "ModifyBarRangeAllTracks(0,5) ", nullptr},
        {"LetRingAssistant",
         [](SmallScore &s) { return s.score.letRingAssistant(s.from(0, 0, 2, 3), 3, true); },
         "ModifyBarRange(0,0,0,2) ", nullptr},
        {"PalmMuteAssistant",
         [](SmallScore &s) { return s.score.palmMuteAssistant(s.everything(0, 5), 3, true); },
         "ModifyBarRangeAllTracks(0,5) ", nullptr},
    };
}

std::vector<CommandRow> transposingRows()
{
    return {
        {"SetTrackTranspositionOffset",
         [](SmallScore &s) { return s.score.setTrackTranspositionOffset(0, -10); },
         "TranspositionOffsetChanged(0) ChordsChanged(0,0) ", nullptr},
        {"TransposeTrackUp", [](SmallScore &s) { return s.score.transposeTrack(0, 3); },
         "ModifyBarRange(0,0,0,5) ChordsChanged(0,0) ", nullptr},
        {"TransposeTrackBelowItsStrings",
         [](SmallScore &s) { return s.score.transposeTrack(0, -14); },
         "ModifyBarRange(0,0,0,5) ChordsChanged(0,0) ", nullptr},
        {"TransposeTrackRefingered",
         [](SmallScore &s) { return s.score.transposeTrack(0, -1, Refingering::FindAnew); },
         "ModifyBarRange(0,0,0,5) ChordsChanged(0,0) ", nullptr},
        {"TransposeAllTracks", [](SmallScore &s) { return s.score.transposeAllTracks(-2, true); },
         "ModifyBarRangeAllTracks(0,5) MasterBarKeySignature(0,5) ChordsChanged(0,0) ", nullptr},
        {"TransposeAllTracksInTheirKey",
         [](SmallScore &s) { return s.score.transposeAllTracks(24, false); },
         "ModifyBarRangeAllTracks(0,5) ChordsChanged(0,0) ", nullptr},
    };
}

} // namespace

std::vector<CommandRow> pitchRows()
{
    std::vector<CommandRow> all = rhythmRows();
    for (const auto &rows : {noteRows(), transposingRows()})
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

void expectPitchCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    const ScoreModelRange open(rich.onString(0, 0, 0));
    const ScoreModelRange rest(rich.at(0, 2), SelectionMode::MultiSelection);
    const ScoreModelRange guitar = rich.from(0, 0, 4, 3);
    const ScoreModelRange piano = rich.everythingOf(1, 0, 4);
    const auto flat = PitchClass::fromString(QStringLiteral("Db"));
    expectAllRefused(
        score,
        {
            [&] {
                return score.setBeatTuplet(guitar, {3, 1});
            },
            [&] {
                return score.setBeatTuplet(guitar, {0, 0}, {3, 2});
            },
            [&] { return score.incrementBeatDuration(guitar, 0); },
            [&] { return score.incrementBeatDuration(guitar, 11); },
            [&] { return score.incrementBeatDuration(rich.everything(5, 5), 1); },
            [&] { return score.setNoteDuration(guitar, NoteValue::Invalid); },
            [&] { return score.setNoteAugmentationDot(guitar, 4); },
            [&] { return score.setNoteDurationAndVelocity(rich.at(0, 2), eighth, 64); },
            [&] { return score.setNoteDurationAndVelocity(rich.at(0, 0), eighth, 0); },
            [&] { return score.setMIDINote(rich.at(2, 0, 1, 2), 62, flat); },
            [&] { return score.setNoteMidiForString(rich.at(0, 0), 5, 75); },
            [&] { return score.setNoteMidiForString(rich.at(0, 0, 1), 0, 60); },
            [&] { return score.createNonPitchedNote(rich.at(0, 0), 0); },
            [&] { return score.createNonPitchedNote(rich.at(0, 0), 38, 1); },
            [&] { return score.removeNonPitchedNote(rich.at(0, 0), 52, 0); },
            [&] { return score.setStringedNoteFret(guitar, 25); },
            [&] { return score.setStringedNoteFret(piano, 3); },
            [&] { return score.setStringedNoteFret(rest, 3); },
            [&] { return score.shiftOneString(open, Shift::Down); },
            [&] { return score.shiftOneString(open, Shift::Up); },
            // The other note of the chord stays where this one would go.
            [&] {
                return score.shiftOneString(ScoreModelRange(rich.onString(0, 1, 2)), Shift::Down);
            },
            [&] { return score.shiftOneElement(guitar, Shift::Up); },
            [&] { return score.shiftSemitone(guitar, 0); },
            [&] { return score.shiftSemitone(piano, 13); },
            [&] { return score.shiftSemitone(open, -1); },
            [&] { return score.setNoteSoundingAccidental(rest, NoteAccidental::Value::Flat); },
            [&] {
                return score.setNoteSoundingAccidental(piano,
                                                       static_cast<NoteAccidental::Value>(7));
            },
            [&] { return score.switchNoteAccidental(rest); },
            [&] { return score.letRingAssistant(guitar, 0, true); },
            [&] { return score.letRingAssistant(guitar, 1U << 7U, true); },
            [&] { return score.palmMuteAssistant(piano, allStrings, true); },
            [&] { return score.setTrackTranspositionOffset(0, 37); },
            [&] { return score.setTrackTranspositionOffset(2, 0); },
            [&] { return score.transposeTrack(0, 0); },
            [&] { return score.transposeTrack(0, 25); },
            [&] { return score.transposeTrack(2, 1); },
            [&] { return score.transposeTrack(static_cast<unsigned>(-2), 1); },
            [&] { return score.transposeAllTracks(-25, true); },
        });
}
