// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include "../MarkCommands.h"

using namespace rich;

std::vector<CommandRow> markRows()
{
    std::vector<CommandRow> all = {
        {"SetBeatAttributes",
         [](SmallScore &s) {
             return s.score.setBeatAttributes(s.everything(0, 1),
                                              {{BeatAttribute::Cue, true},
                                               {BeatAttribute::Timer, true},
                                               {BeatAttribute::Rhythm, eighth},
                                               {BeatAttribute::Tremolo, 4}});
         },
         "ModifyBarRangeAllTracks(0,1) RequestTimerChanged(0,0,0,1) RequestTimerChanged(1,0,0,1) "
         "RequestTimerChanged(1,1,0,1) ",
         nullptr},
        {"SwitchBeatAttribute",
         [](SmallScore &s) {
             return s.score.switchBeatAttribute(s.from(1, 0, 2, 1), BeatAttribute::Slashed);
         },
         "ModifyBarRange(0,0,1,2) ", nullptr},
        {"UnsetBeatAttribute",
         [](SmallScore &s) {
             return s.score.unsetBeatAttribute(s.from(0, 0, 1, 3), BeatAttribute::Dynamic);
         },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"IncrementBeatSecondaryAttribute",
         [](SmallScore &s) {
             return s.score.incrementBeatSecondaryAttribute(s.from(0, 0, 1, 3),
                                                            BeatAttribute::Dynamic, -2);
         },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetBeatFreeText",
         [](SmallScore &s) {
             return s.score.setBeatFreeText(s.from(0, 1, 1, 3), QStringLiteral("dolce"));
         },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"SetNoteAttributeOfAllTracks",
         [](SmallScore &s) {
             return s.score.setNoteAttribute(s.everything(0, 5), NoteAttribute::Velocity, 99);
         },
         "ModifyBarRangeAllTracks(0,5) ", nullptr},
    };
    // Those of single attributes once by their names and once by the table.
    for (const MarkCommand &command : markCommands()) {
        const bool isTimer = command.name == std::string("SetBeatTimer");
        const char *const events =
            isTimer ? "RequestTimerChanged(0,0,0,1) " : "ModifyBarRange(0,0,0,1) ";
        all.push_back(
            {command.name + std::string("OnGuitar"),
             [&command](SmallScore &s) { return command.act(s.score, s.from(0, 0, 1, 3)); }, events,
             nullptr});
        all.push_back(
            {command.name + std::string("ByTable"),
             [&command](SmallScore &s) { return command.actByTable(s.score, s.from(0, 0, 1, 3)); },
             events, nullptr});
    }
    return all;
}

void expectMarkCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    expectAllRefused(
        score,
        {
            // What no node of the range takes, and what is out of range.
            [&] { return score.setBeatTremolo(rich.from(0, 0, 0, 3), 5); },
            [&] { return score.setBeatTremolo(ScoreModelRange(rich.at(0, 2)), 3); },
            [&] {
                return score.setBeatPickStroke(rich.from(0, 0, 0, 3), static_cast<Direction>(3));
            },
            [&] { return score.setBeatRasgueado(rich.everythingOf(1, 0, 4), RasgueadoType::mi_1); },
            [&] {
                return score.setBeatBarre(rich.from(0, 0, 0, 3), {25, 0});
            },
            [&] {
                return score.setBeatBarre(rich.from(0, 0, 0, 3), {3, 64});
            },
            [&] { return score.setBrush(ScoreModelRange(rich.at(0, 0)), Direction::Up); },
            [&] { return score.setBeatArpeggio(rich.from(0, 0, 0, 3), Direction::Up, 4000); },
            [&] {
                return score.setBeatFreeText(ScoreModelRange(rich.at(0, 0)),
                                             QString(1001, QLatin1Char('a')));
            },
            [&] { return score.setBeatAttributes(rich.from(0, 0, 0, 3), {}); },
            [&] {
                return score.setBeatAttributes(rich.from(0, 0, 0, 3),
                                               {{BeatAttribute::PickStroke, Direction::Up},
                                                {BeatAttribute::Rasgueado, RasgueadoType::mi_1}});
            },
            [&] { return score.setBeatAttribute(rich.from(0, 0, 0, 3), BeatAttribute::Cue, 1); },
            [&] {
                return score.setBeatAttribute(rich.from(0, 0, 0, 3),
                                              BeatAttribute(BeatAttributeCount), 1);
            },
            [&] {
                return score.switchBeatAttribute(rich.from(0, 0, 0, 3), BeatAttribute::Dynamic);
            },
            [&] { return score.unsetBeatAttribute(rich.from(0, 0, 0, 3), BeatAttribute::Rhythm); },
            [&] {
                return score.incrementBeatSecondaryAttribute(rich.from(0, 0, 0, 3),
                                                             BeatAttribute::Cue, 1);
            },
            [&] {
                return score.incrementBeatSecondaryAttribute(rich.from(0, 0, 0, 3),
                                                             BeatAttribute::Wah, 1);
            },
            [&] { return score.setNoteVelocity(rich.from(0, 0, 0, 3), 128); },
            [&] { return score.setNoteVelocity(ScoreModelRange(rich.at(0, 2)), 64); },
            [&] { return score.setNoteVelocity(ScoreModelRange(rich.onString(0, 0, 5)), 64); },
            [&] { return score.setStringedNoteVibrato(rich.everythingOf(1, 0, 4), Vibrato::Wide); },
            [&] { return score.setNoteAccentFlag(rich.from(0, 0, 0, 3), AccentFlag(3), true); },
            [&] { return score.setNoteAccentFlag(rich.from(0, 0, 0, 3), AccentFlag(64), true); },
            [&] {
                return score.setNoteOrnament(rich.from(0, 0, 0, 3), Ornament::NoOrnament, true);
            },
            [&] { return score.setNoteTrill(rich.from(0, 0, 0, 3), 52); },
            [&] { return score.setNoteTrill(rich.from(0, 0, 0, 3), 70); },
            [&] {
                return score.setNoteFingering(rich.from(0, 0, 0, 3), Hand::Right, Fingering::Open);
            },
            [&] {
                return score.setStringedNoteBend(rich.from(0, 0, 0, 3),
                                                 Bend::of(BendType::HoldBend));
            },
            [&] {
                return score.setStringedNoteBend(rich.from(0, 0, 0, 3), {BendType::Bend, {}});
            },
            [&] { return score.setStringedNoteNaturalHarmonic(rich.from(0, 0, 0, 3), true); },
            [&] {
                return score.setStringedNoteArtificialHarmonic(rich.from(0, 0, 0, 3),
                                                               HarmonicType::Natural);
            },
        });
}
