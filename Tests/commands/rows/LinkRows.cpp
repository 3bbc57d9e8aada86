// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <ZarnCore/model/ZarnBeatAttribute.h>

using namespace rich;

namespace {

/// The first of two notes on one string.
ScoreModelRange legatoNote(const SmallScore &s)
{
    return ScoreModelRange(s.at(3, 0, 0, 2), SelectionMode::MultiSelection);
}

ScoreModelRange pianoNote(const SmallScore &s, int bar)
{
    return ScoreModelRange(s.at(bar, 0, 1));
}

} // namespace

std::vector<CommandRow> linkRows()
{
    return {
        {"SetBeatTied", [](SmallScore &s) { return s.score.setBeatTied(s.from(1, 2, 1, 3), true); },
         "ModifyBarRange(0,0,1,1) ", nullptr},
        {"SetBeatTiedOverBarLine",
         [](SmallScore &s) { return s.score.setBeatTied(pianoNote(s, 1), true); },
         "ModifyBarRange(1,0,0,1) ", nullptr},
        {"SetBeatTiedNoMore",
         [](SmallScore &s) { return s.score.setBeatTied(s.from(1, 0, 1, 0), false); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetNoteTied",
         [](SmallScore &s) {
             return s.score.setNoteTied(ScoreModelRange(s.onString(0, 2, 1)), true);
         },
         "ModifyBarRange(0,0,0,0) ", nullptr},
        {"SetBeatTiedOnly",
         [](SmallScore &s) { return s.score.setBeatTiedOnly(pianoNote(s, 1), true); },
         "ModifyBarRange(1,0,0,1) ", nullptr},
        {"SetNoteTiedOnly",
         [](SmallScore &s) {
             return s.score.setNoteTiedOnly(ScoreModelRange(s.onString(1, 0, 5)), false);
         },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetBeatHairpin",
         [](SmallScore &s) {
             return s.score.setBeatHairpin(s.from(2, 2, 3, 1), Hairpin::Crescendo);
         },
         "ModifyBarRange(0,0,2,3) ", nullptr},
        {"SetBeatHairpinInFront",
         [](SmallScore &s) {
             return s.score.setBeatHairpin(s.from(0, 2, 1, 0), Hairpin::Crescendo);
         },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetBeatHairpinOfAllTracks",
         [](SmallScore &s) {
             return s.score.setBeatHairpin(s.everything(1, 2), Hairpin::NoHairpin);
         },
         "ModifyBarRangeAllTracks(1,2) ", nullptr},
        {"SetBeatLegato",
         [](SmallScore &s) { return s.score.setBeatLegato(s.from(2, 0, 3, 0), true); },
         "ModifyBarRange(0,0,2,3) ", nullptr},
        {"SetBeatLegatoToNextBar",
         [](SmallScore &s) { return s.score.setBeatLegato(s.from(3, 3, 3, 3), true); },
         "ModifyBarRange(0,0,3,4) ", nullptr},
        {"SetBeatLegatoNoMore",
         [](SmallScore &s) { return s.score.setBeatLegato(s.from(1, 0, 1, 1), false); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetStringedNoteHopo",
         [](SmallScore &s) { return s.score.setStringedNoteHopo(legatoNote(s), true); },
         "ModifyBarRange(0,0,3,3) ", nullptr},
        {"SetStringedNoteSlide",
         [](SmallScore &s) {
             return s.score.setStringedNoteSlide(legatoNote(s), SlideIn::FromBelow,
                                                 SlideOut::Legato);
         },
         "ModifyBarRange(0,0,3,3) ", nullptr},
        {"SetBeatGraceNotes",
         [](SmallScore &s) {
             return s.score.setBeatGraceNotes(s.from(1, 1, 1, 2), GraceType::BeforeBeat);
         },
         "ModifyBarRange(0,0,1,1) ", nullptr},
        {"ClearBeats", [](SmallScore &s) { return s.score.clearBeats(s.from(0, 3, 1, 1)); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"ClearBeatsOfAllTracks",
         [](SmallScore &s) { return s.score.clearBeats(s.everything(1, 2)); },
         "ModifyBarRangeAllTracks(1,2) ModifyBarRange(0,0,0,0) ModifyBarRange(0,0,3,3) ", nullptr},
        {"CopyBeatToEOB", [](SmallScore &s) { return s.score.copyBeatToEOB(s.at(1, 1)); },
         "ModifyBarRange(0,0,1,2) ", nullptr},
        {"SetBeatDeadSlapped",
         [](SmallScore &s) { return s.score.setBeatDeadSlapped(s.from(1, 1, 1, 3), true); },
         "ModifyBarRange(0,0,1,2) ", nullptr},
        {"SetBeatAttributeSlur",
         [](SmallScore &s) {
             return s.score.setBeatAttribute(s.from(2, 3, 2, 3), BeatAttribute::SlurredToNext,
                                             true);
         },
         "ModifyBarRange(0,0,2,3) ", nullptr},
        {"SetNoteAttributeTie",
         [](SmallScore &s) {
             return s.score.setNoteAttribute(pianoNote(s, 1), NoteAttribute::Tied, true);
         },
         "ModifyBarRange(1,0,0,1) ", nullptr},
    };
}

void expectLinkCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    const ScoreModelRange empty = rich.everything(5, 5);
    const ScoreModelRange piano = pianoNote(rich, 1);
    expectAllRefused(
        score,
        {
            [&] { return score.setBeatTied(rich.from(0, 0, 0, 0), true); },
            [&] { return score.setBeatTied(rich.from(0, 3, 0, 3), true); }, // behind a rest
            [&] { return score.setBeatTied(rich.from(0, 0, 0, 1), false); },
            [&] { return score.setNoteTied(ScoreModelRange(rich.onString(0, 2, 4)), true); },
            [&] { return score.setBeatTiedOnly(rich.from(0, 1, 0, 2), true); },
            [&] { return score.setNoteTiedOnly(piano, false); },
            [&] { return score.setBeatHairpin(rich.from(1, 0, 1, 1), static_cast<Hairpin>(4)); },
            [&] { return score.setBeatHairpin(empty, Hairpin::Crescendo); },
            [&] { return score.setBeatLegato(rich.from(0, 2, 0, 2), true); },
            [&] { return score.setBeatLegato(empty, false); },
            [&] { return score.setStringedNoteHopo(rich.from(0, 0, 0, 3), true); },
            [&] { return score.setStringedNoteHopo(piano, false); },
            [&] { return score.setStringedNoteSlide(legatoNote(rich), {}, {}); },
            [&] { return score.setStringedNoteSlide(piano, SlideIn::FromBelow, {}); },
            [&] { return score.setStringedNoteSlide(rich.from(0, 3, 1, 0), {}, SlideOut::Shift); },
            [&] { return score.setBeatGraceNotes(rich.from(0, 2, 0, 2), GraceType::OnBeat); },
            [&] { return score.clearBeats(empty); },
            [&] { return score.copyBeatToEOB(rich.at(0, 3)); },
            [&] { return score.copyBeatToEOB(rich.at(0, 4)); },
            [&] { return score.setBeatDeadSlapped(piano, true); },
            [&] {
                return score.setBeatAttribute(rich.from(4, 3, 4, 3), BeatAttribute::SlurredToNext,
                                              true);
            },
            [&] {
                return score.setNoteAttribute(rich.from(0, 0, 0, 3), NoteAttribute::Hopo, true);
            },
        });
}
