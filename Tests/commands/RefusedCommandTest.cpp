// SPDX-License-Identifier: MIT
#include "RichScore.h"
#include "support/CommandLaw.h"

#include <ZarnCore/fingering/ZarnFingeringReport.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace {

using namespace rich;

/// Arguments that cannot be: each operation is refused, and leaves no trace.
TEST(RefusedCommandTest, leavesNoTrace)
{
    RichScore rich;
    Score &score = rich.score;
    const auto late = tempo(6, 90);
    const auto missing = tempo(1, 90);
    const auto early = [] {
        auto automation = tempo(1, 90);
        automation.setPosition(-1);
        return automation;
    }();
    const auto sound = soundChange(1);
    auto longTrack = ScoreModel::createTrack(InstrumentSet::flute);
    longTrack->addEmptyBars(7);
    ScoreModelIndex named = rich.at(0, 1);
    named.setNoteMidi(99);
    const std::function<bool()> refused[] = {
        [&] { return score.setClef(0, 1, 0, 0, ClefType::F4); },
        [&] { return score.setClef(0, 0, 3, 6, ClefType::F4); },
        [&] { return score.setClef(0, 0, 0, 0, ClefType::None); },
        [&] {
            return score.setMasterTimeSignature(2, 1, {3, 4});
        },
        [&] {
            return score.setMasterTimeSignature(0, 0, {3, 5});
        },
        [&] {
            return score.setMasterTimeSignature(0, 0, {0, 4});
        },
        [&] { return score.setMasterKeySignature(6, 6, KeySignature(1, true, true)); },
        [&] { return score.setMasterTripletFeel(0, 0, static_cast<TripletFeel>(7)); },
        [&] { return score.setBarRepeatEnd(2, 1); },
        [&] { return score.setBarRepeatEnd(2, 256); },
        [&] { return score.setBarDirection(DirectionMark::NoDirection, 2); },
        [&] { return score.setBarDirection(DirectionMark::Fine, 6); },
        [&] { return score.setBarDirection(DirectionMark::Fine, -2); },
        [&] { return score.setBarDirections(2, {DirectionMark::NoDirection}); },
        [&] { return score.setMasterBarSection(6, QStringLiteral("A"), QString()); },
        [&] { return score.createTrack(3, InstrumentSet::flute); },
        [&] { return score.insertTrack(0, nullptr); },
        [&] { return score.insertTrack(0, rich.model.track(1)); },
        [&] { return score.insertTrack(0, longTrack); },
        [&] { return score.removeTrack(2); },
        [&] { return score.setTrackName(2, QStringLiteral("x")); },
        [&] { return score.setTrackIcon(0, static_cast<ZarnIconID>(0)); },
        [&] { return score.setGuitarFullTuning(1, 2, {40}); },
        [&] { return score.setGuitarFullTuning(0, 0, {40}, 99); },
        [&] { return score.addTrackSound(0, std::shared_ptr<const Sound>()); },
        [&] { return score.addTrackSound(2, Sound()); },
        [&] { return score.removeTrackSound(1, 1); },
        [&] { return score.createAudioTrack(3, std::make_shared<AudioTrack>()); },
        [&] { return score.createAudioTrack(0, rich.model.audioTracks()[1]); },
        [&] { return score.removeAudioTrack(2); },
        [&] { return score.modifyMasterTrackAutomations({}, {}); },
        [&] { return score.modifyMasterTrackAutomations({}, {nullptr}); },
        [&] { return score.modifyMasterTrackAutomations({}, {&late}); },
        [&] { return score.modifyMasterTrackAutomations({}, {&early}); },
        [&] { return score.modifyMasterTrackAutomations({&missing}, {}); },
        [&] {
            return score.modifyMasterTrackAutomations({}, {&missing, &missing});
        },
        [&] { return score.modifyMasterTrackAutomations({}, {&sound}); },
        [&] { return score.modifyTrackAutomations(0, {}, {&missing}); },
        [&] { return score.modifyTrackAutomations(2, {}, {&sound}); },
        [&] { return score.modifyMasterTrackAutomationBypass(Automation::Unknown, true); },
        [&] { return score.modifyTrackAutomationBypass(2, Automation::Sound, true); },
        [&] { return score.changeProperty(static_cast<ScoreProperty>(11), QString()); },
        [&] { return score.changeProperties({}); },
        [&] { return score.changeHeaderAndFooter(static_cast<HeaderAndFooter>(12), QString()); },
        [&] { return score.setConcertTone(0); },
        [&] { return score.setConcertTone(std::numeric_limits<double>::quiet_NaN()); },
        [&] { return score.writeBeats(0, 0, {}); },
        [&] { return score.writeBeats(0, 9, {writtenStretch(0, 0, 0, 0)}); },
        [&] { return score.writeBeats(0, 0, {writtenStretch(99, 0, 0, 0)}); },
        [&] { return score.writeBeats(0, 0, {writtenStretch(0, 4, 0, 0)}); },
        [&] { return score.writeBeats(0, 0, {writtenStretch(0, 0, 0, 99)}); },
        [&] {
            return score.writeBeats(0, 0, {writtenStretch(0, 0, 0, 0), writtenStretch(0, 0, 1, 0)});
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
        [&] { return score.setNoteRest(ScoreModelRange(rich.at(0, 0, 1, 1))); },
        [&] { return score.automaticFingerPositioning(rich.everything(5, 5), {}); },
        [&] { return score.automaticFingerPositioning(ScoreModelRange(rich.at(0, 0, 1)), {}); },
        [&] {
            fingering::FingeringOptions options;
            options.lowestFret = 5;
            options.highestFret = 4;
            return score.automaticFingerPositioning(rich.everything(0, 5), options);
        },
        [&] { return score.setMasterBarAttributes(0, 0, {}); },
        [&] {
            return score.setMasterBarAttribute(0, 0, MasterBarAttribute::OwnLength,
                                               std::optional<utils::rational>(0));
        },
        [&] {
            return score.setMasterBarAttribute(0, 0, MasterBarAttribute::BeamGroups,
                                               BeamGroups({3, 2}));
        },
        [&] {
            return score.setMasterBarAttribute(0, 0, MasterBarAttribute::Fermatas,
                                               FermataMarks{FermataMark::at(5, Fermata::Short)});
        },
        [&] { return score.setMasterBarAttribute(0, 1, MasterBarAttribute::Anacrusis, true); },
        [&] { return score.setMasterBarAttribute(0, 0, MasterBarAttribute::LayoutRatio, 11.0); },
        [&] { return score.unsetMasterBarAttributes(0, 0, {MasterBarAttribute::KeySignature}); },
        [&] { return score.setBarSimileMark(0, 0, 0, 0, SimileMark::Simple); },
        [&] { return score.setBarSimileMark(0, 0, 1, 2, SimileMark::Double); },
        [&] { return score.setBarSimileMark(0, 0, 2, 4, SimileMark::Double); },
        [&] { return score.setBarSimileMark(0, 0, 2, 2, SimileMark::FirstOfDouble); },
        [&] { return score.setBarAttribute(0, 0, 5, 6, BarAttribute::LayoutRatio, 2.0); },
        [&] { return score.unsetBarAttributes(0, 0, 0, 2, {BarAttribute::Clef}); },
        // What no node of the range takes, and what is out of range.
        [&] { return score.setBeatTremolo(rich.from(0, 0, 0, 3), 5); },
        [&] { return score.setBeatTremolo(ScoreModelRange(rich.at(0, 2)), 3); },
        [&] { return score.setBeatPickStroke(rich.from(0, 0, 0, 3), static_cast<Direction>(3)); },
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
            return score.setBeatAttribute(rich.from(0, 0, 0, 3), BeatAttribute(BeatAttributeCount),
                                          1);
        },
        [&] { return score.switchBeatAttribute(rich.from(0, 0, 0, 3), BeatAttribute::Dynamic); },
        [&] { return score.unsetBeatAttribute(rich.from(0, 0, 0, 3), BeatAttribute::Rhythm); },
        [&] {
            return score.incrementBeatSecondaryAttribute(rich.from(0, 0, 0, 3), BeatAttribute::Cue,
                                                         1);
        },
        [&] {
            return score.incrementBeatSecondaryAttribute(rich.from(0, 0, 0, 3), BeatAttribute::Wah,
                                                         1);
        },
        [&] { return score.setNoteVelocity(rich.from(0, 0, 0, 3), 128); },
        [&] { return score.setNoteVelocity(ScoreModelRange(rich.at(0, 2)), 64); },
        [&] { return score.setNoteVelocity(ScoreModelRange(rich.onString(0, 0, 5)), 64); },
        [&] { return score.setStringedNoteVibrato(rich.everythingOf(1, 0, 4), Vibrato::Wide); },
        [&] { return score.setNoteAccentFlag(rich.from(0, 0, 0, 3), AccentFlag(3), true); },
        [&] { return score.setNoteAccentFlag(rich.from(0, 0, 0, 3), AccentFlag(64), true); },
        [&] { return score.setNoteOrnament(rich.from(0, 0, 0, 3), Ornament::NoOrnament, true); },
        [&] { return score.setNoteTrill(rich.from(0, 0, 0, 3), 52); },
        [&] { return score.setNoteTrill(rich.from(0, 0, 0, 3), 70); },
        [&] { return score.setNoteFingering(rich.from(0, 0, 0, 3), Hand::Right, Fingering::Open); },
        [&] {
            return score.setStringedNoteBend(rich.from(0, 0, 0, 3), Bend::of(BendType::HoldBend));
        },
        [&] {
            return score.setStringedNoteBend(rich.from(0, 0, 0, 3), {BendType::Bend, {}});
        },
        [&] { return score.setStringedNoteNaturalHarmonic(rich.from(0, 0, 0, 3), true); },
        [&] {
            return score.setStringedNoteArtificialHarmonic(rich.from(0, 0, 0, 3),
                                                           HarmonicType::Natural);
        },
    };
    for (std::size_t i = 0; i < std::size(refused); ++i) {
        SCOPED_TRACE("row " + std::to_string(i));
        expectRefused(score, refused[i]);
    }
    EXPECT_TRUE(score.removeMasterReverb());
    EXPECT_FALSE(score.removeMasterReverb());
}

} // namespace
