// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <ZarnCore/fingering/ZarnFingeringReport.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>

using namespace rich;

std::vector<CommandRow> beatRows()
{
    return {
        {"CreateBeat", [](SmallScore &s) { return s.score.createBeat(s.at(1, 0), eighth); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"CreateBeatInEmptyBar",
         [](SmallScore &s) { return s.score.createBeat(s.at(5, 0, 0, 3), eighth); },
         "ModifyBarRange(0,0,5,5) ", nullptr},
        {"WriteBeats",
         [](SmallScore &s) {
             return s.score.writeBeats(0, 0,
                                       {writtenStretch(1, 0, 0, 2), writtenStretch(5, 3, 0, 0)});
         },
         "ModifyBarRange(0,0,0,1) ModifyBarRange(0,0,5,5) ", nullptr},
        {"RemoveBeats", [](SmallScore &s) { return s.score.removeBeats(s.from(0, 2, 2, 0)); },
         "ModifyBarRange(0,0,0,2) ", nullptr},
        {"RemoveBeatsOfAllTracks",
         [](SmallScore &s) { return s.score.removeBeats(s.everything(1, 3)); },
         "ModifyBarRangeAllTracks(1,3) ModifyBarRange(0,0,0,0) ModifyBarRange(0,0,4,4) ", nullptr},
        {"SetBeatRhythm",
         [](SmallScore &s) { return s.score.setBeatRhythm(s.from(0, 1, 1, 1), eighth); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetBeatDynamic",
         [](SmallScore &s) {
             return s.score.setBeatDynamic(s.everything(0, 5), NoteDynamic::Value::FF);
         },
         "ModifyBarRangeAllTracks(0,5) ", nullptr},
        {"SetStringedNote", [](SmallScore &s) { return s.score.setStringedNote(s.at(0, 3), 5, 7); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetStringedNoteOnRest",
         [](SmallScore &s) { return s.score.setStringedNote(s.at(0, 2), 3, 0); },
         "ModifyBarRange(0,0,0,0) ", nullptr},
        {"SetMIDINote", [](SmallScore &s) { return s.score.setMIDINote(s.at(2, 0, 1, 2), 64); },
         "ModifyBarRange(1,0,2,2) ", nullptr},
        {"AutomaticFingerPositioning",
         [](SmallScore &s) {
             fingering::FingeringOptions options;
             options.openStrings = fingering::OpenStrings::Avoided;
             options.fingers = fingering::LeftFingers::Written;
             return s.score.automaticFingerPositioning(s.everything(0, 5), options);
         },
         "ModifyBarRange(0,0,0,4) ", nullptr},
        {"RemoveNote",
         [](SmallScore &s) {
             ScoreModelIndex place = s.at(0, 3);
             place.setNoteString(5);
             place.setNoteMidi(76);
             return s.score.removeNote(place);
         },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetNoteRest", [](SmallScore &s) { return s.score.setNoteRest(s.from(0, 3, 1, 1)); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
    };
}

void expectBeatCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    ScoreModelIndex named = rich.at(0, 1);
    named.setNoteMidi(99);
    expectAllRefused(
        score,
        {
            [&] { return score.writeBeats(0, 0, {}); },
            [&] { return score.writeBeats(0, 9, {writtenStretch(0, 0, 0, 0)}); },
            [&] { return score.writeBeats(0, 0, {writtenStretch(99, 0, 0, 0)}); },
            [&] { return score.writeBeats(0, 0, {writtenStretch(0, 4, 0, 0)}); },
            [&] { return score.writeBeats(0, 0, {writtenStretch(0, 0, 0, 99)}); },
            [&] {
                return score.writeBeats(0, 0,
                                        {writtenStretch(0, 0, 0, 0), writtenStretch(0, 0, 1, 0)});
            },
            [&] { return score.createBeat(rich.at(0, 5), eighth); },
            [&] { return score.createBeat(rich.at(0, -1), eighth); },
            [&] { return score.createBeat(rich.at(6, 0), eighth); },
            [&] { return score.createBeat(rich.at(0, 0, 0, 4), eighth); },
            [&] { return score.createBeat(rich.at(0, 0), RhythmValue(eighth.getNoteValue(), 4)); },
            [&] { return score.removeBeats(ScoreModelRange()); },
            [&] { return score.removeBeats(rich.from(0, 0, 6, 0)); },
            [&] { return score.removeBeats(ScoreModelRange(rich.at(5, -1))); },
            [&] { return score.setBeatRhythm(ScoreModelRange(rich.at(0, 4)), eighth); },
            [&] { return score.setBeatDynamic(rich.everything(5, 5), NoteDynamic::Value::P); },
            [&] { return score.setStringedNote(rich.at(0, 0), 6, 0); },
            [&] { return score.setStringedNote(rich.at(0, 0), 0, 25); },
            [&] { return score.setStringedNote(rich.at(0, 0, 1), 0, 0); },
            [&] { return score.setMIDINote(rich.at(0, 0, 1), 128); },
            [&] { return score.setMIDINote(rich.at(0, 0, 1), 60); },
            [&] { return score.setMIDINote(rich.at(0, 0), 40); },
            [&] { return score.setMIDINote(named, 64); },
            [&] { return score.removeNote(named); },
            [&] { return score.removeNote(rich.at(5, 0)); },
            [&] { return score.setNoteRest(ScoreModelRange(rich.at(0, 0, 1, 1))); },
            [&] { return score.automaticFingerPositioning(rich.everything(5, 5), {}); },
            [&] { return score.automaticFingerPositioning(ScoreModelRange(rich.at(0, 0, 1)), {}); },
            [&] {
                fingering::FingeringOptions options;
                options.lowestFret = 5;
                options.highestFret = 4;
                return score.automaticFingerPositioning(rich.everything(0, 5), options);
            },
        });
}
