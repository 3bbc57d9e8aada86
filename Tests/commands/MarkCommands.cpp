// SPDX-License-Identifier: MIT
#include "MarkCommands.h"

using namespace zarn;

const std::vector<MarkCommand> &markCommands()
{
    static const std::vector<MarkCommand> commands = {
        {"SetBeatFadding",
         [](Score &s, const ScoreModelRange &r) { return s.setBeatFadding(r, Fadding::FadeIn); },
         BeatAttribute::Fadding, Fadding::FadeIn},
        {"SetBeatOttavia",
         [](Score &s, const ScoreModelRange &r) { return s.setBeatOttavia(r, Ottavia::_8va); },
         BeatAttribute::Ottavia, Ottavia::_8va},
        {"SetBeatTimer", [](Score &s, const ScoreModelRange &r) { return s.setBeatTimer(r, true); },
         BeatAttribute::Timer, true},
        {"SetBeatSlashed",
         [](Score &s, const ScoreModelRange &r) { return s.setBeatSlashed(r, true); },
         BeatAttribute::Slashed, true},
        {"SetBeatPickStroke",
         [](Score &s, const ScoreModelRange &r) { return s.setBeatPickStroke(r, Direction::Up); },
         BeatAttribute::PickStroke, Direction::Up},
        {"SetBeatRasgueado",
         [](Score &s, const ScoreModelRange &r) {
             return s.setBeatRasgueado(r, RasgueadoType::ami_1);
         },
         BeatAttribute::Rasgueado, RasgueadoType::ami_1},
        {"SetBeatGolpe",
         [](Score &s, const ScoreModelRange &r) { return s.setBeatGolpe(r, ZarnGolpeType::Thumb); },
         BeatAttribute::Golpe, ZarnGolpeType::Thumb},
        {"SetBeatTremolo",
         [](Score &s, const ScoreModelRange &r) { return s.setBeatTremolo(r, 3U); },
         BeatAttribute::Tremolo, 3U},
        {"SetBeatBarre",
         [](Score &s, const ScoreModelRange &r) {
             return s.setBeatBarre(r, Barre{5, 0});
         },
         BeatAttribute::Barre, Barre{5, 0}},
        {"SetStringedBeatBassAttack",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedBeatBassAttack(r, BassAttack::Pop);
         },
         BeatAttribute::BassAttack, BassAttack::Pop},
        {"SetStringedBeatVibrato",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedBeatVibrato(r, Vibrato::Wide);
         },
         BeatAttribute::BarVibrato, Vibrato::Wide},
        {"SetStringedBeatWhammyBar",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedBeatWhammyBar(r, WhammyBar::of(WhammyBarType::Dip));
         },
         BeatAttribute::WhammyBar, WhammyBar::of(WhammyBarType::Dip)},
        {"SetWah", [](Score &s, const ScoreModelRange &r) { return s.setWah(r, WahWah::Open); },
         BeatAttribute::Wah, WahWah::Open},
        {"SetStemOrientations",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStemOrientations(r, ZarnStemOrientation::Downward);
         },
         BeatAttribute::StemOrientation, ZarnStemOrientation::Downward},
        {"SetNoteVelocity",
         [](Score &s, const ScoreModelRange &r) { return s.setNoteVelocity(r, 77U); },
         NoteAttribute::Velocity, 77U},
        {"SetNoteAntiAccent",
         [](Score &s, const ScoreModelRange &r) {
             return s.setNoteAntiAccent(r, AntiAccent::Soft);
         },
         NoteAttribute::AntiAccent, AntiAccent::Soft},
        {"SetNoteOrnement",
         [](Score &s, const ScoreModelRange &r) { return s.setNoteOrnement(r, Ornament::Turn); },
         NoteAttribute::Ornament, Ornament::Turn},
        {"SetNoteLetring",
         [](Score &s, const ScoreModelRange &r) { return s.setNoteLetring(r, true); },
         NoteAttribute::LetRing, true},
        {"SetStringedNotePalmMute",
         [](Score &s, const ScoreModelRange &r) { return s.setStringedNotePalmMute(r, true); },
         NoteAttribute::PalmMute, true},
        {"SetStringedNoteDead",
         [](Score &s, const ScoreModelRange &r) { return s.setStringedNoteDead(r, true); },
         NoteAttribute::Dead, true},
        {"SetStringedNoteVibrato",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedNoteVibrato(r, Vibrato::Slight);
         },
         NoteAttribute::Vibrato, Vibrato::Slight},
        {"SetStringedNoteLeftHandTapping",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedNoteLeftHandTapping(r, true);
         },
         NoteAttribute::LeftTap, true},
        {"SetStringedNoteRightHandTapping",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedNoteRightHandTapping(r, true);
         },
         NoteAttribute::RightTap, true},
        {"SetStringedNoteShowStringNumber",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedNoteShowStringNumber(r, true);
         },
         NoteAttribute::ShowString, true},
        {"SetBeatDynamic",
         [](Score &s, const ScoreModelRange &r) {
             return s.setBeatDynamic(r, NoteDynamic::Value::FF);
         },
         BeatAttribute::Dynamic, NoteDynamic::Value::FF},
        {"SetBeatArpeggio",
         [](Score &s, const ScoreModelRange &r) {
             return s.setBeatArpeggio(r, Direction::Down, 480);
         },
         BeatAttribute::Arpeggio, Strum{Direction::Down, 480, StrumAnchor::StartsOnBeat}},
        {"SetBrush",
         [](Score &s, const ScoreModelRange &r) {
             return s.setBrush(r, Direction::Up, 60, StrumAnchor::EndsOnBeat);
         },
         BeatAttribute::Brush, Strum{Direction::Up, 0, StrumAnchor::EndsOnBeat}},
        {"SetBeatRhythm",
         [](Score &s, const ScoreModelRange &r) {
             return s.setBeatRhythm(r, RhythmValue(RhythmValue::NoteValue::Half, 1));
         },
         BeatAttribute::Rhythm, RhythmValue(RhythmValue::NoteValue::Half, 1)},
        {"SetNoteAccentFlag",
         [](Score &s, const ScoreModelRange &r) {
             return s.setNoteAccentFlag(r, AccentFlag::Tenuto, true);
         },
         NoteAttribute::Accents, AccentFlags(AccentFlag::Tenuto)},
        {"SetNoteOrnament",
         [](Score &s, const ScoreModelRange &r) {
             return s.setNoteOrnament(r, Ornament::UpperMordent, true);
         },
         NoteAttribute::Ornament, Ornament::UpperMordent},
        {"SetNoteTrill", [](Score &s, const ScoreModelRange &r) { return s.setNoteTrill(r, 54); },
         NoteAttribute::Trill, Trill{2, Trill::Speed::ThirtySecond}},
        {"SetNoteFingeringLeft",
         [](Score &s, const ScoreModelRange &r) {
             return s.setNoteFingering(r, Hand::Left, Fingering::Open);
         },
         NoteAttribute::LeftFingering, Fingering::Open},
        {"SetNoteFingeringRight",
         [](Score &s, const ScoreModelRange &r) {
             return s.setNoteFingering(r, Hand::Right, Fingering::Annular);
         },
         NoteAttribute::RightFingering, Fingering::Annular},
        {"SetStringedNoteBend",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedNoteBend(r, Bend::of(BendType::BendNRelease));
         },
         NoteAttribute::Bend, Bend::of(BendType::BendNRelease)},
        {"SetStringedNoteNaturalHarmonic",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedNoteNaturalHarmonic(r, true, 4);
         },
         NoteAttribute::Harmonic, Harmonic{HarmonicType::Natural, 4}},
        {"SetStringedNoteArtificialHarmonic",
         [](Score &s, const ScoreModelRange &r) {
             return s.setStringedNoteArtificialHarmonic(r, HarmonicType::Tapped, 3);
         },
         NoteAttribute::Harmonic, Harmonic{HarmonicType::Tapped, 3}},
    };
    return commands;
}
