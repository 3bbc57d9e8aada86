// SPDX-License-Identifier: MIT
#include "MarkCommands.h"
#include "RichScore.h"
#include "support/CommandLaw.h"
#include "support/EventMirror.h"
#include "support/ScoreDump.h"

#include <ZarnCore/fingering/ZarnFingeringReport.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

/// The laws of all commands, checked on a table of them: what undo and redo give back, to the byte;
/// what they announce; and what a listener that throws leaves behind.
namespace {

using namespace rich;

struct Operation {
    std::string name;
    std::function<bool(SmallScore &)> act;
    const char *events;
    const char *undoEvents; ///< null when they are the same
};

void PrintTo(const Operation &operation, std::ostream *out)
{
    *out << operation.name;
}

const std::vector<Operation> structuralOperations = {
    {"CreateBars", [](SmallScore &s) { return s.score.createBars(2, 3); },
     "AddBars(2,3) ModifyBarRange(0,0,1,1) ModifyBarRange(0,0,5,5) "
     "SimileMarkBarChanged(0,0,5,5) RequestMasterBarPlaylistUpdate ",
     "RemoveBars(2,3) ModifyBarRange(0,0,1,2) SimileMarkBarChanged(0,0,2,2) "
     "RequestMasterBarPlaylistUpdate "},
    {"CreateBarsAtTheStart", [](SmallScore &s) { return s.score.createBars(0, 2); },
     "AddBars(0,2) RequestMasterBarPlaylistUpdate "
     "MasterTrackAutomationChanged(Tempo,0,2) AutomationChanged ",
     "RemoveBars(0,2) RequestMasterBarPlaylistUpdate "
     "MasterTrackAutomationChanged(Tempo,0,0) AutomationChanged "},
    {"CreateBarsAtTheEnd", [](SmallScore &s) { return s.score.createBars(6, 1); },
     "AddBars(6,1) RequestMasterBarPlaylistUpdate ",
     "RemoveBars(6,1) RequestMasterBarPlaylistUpdate "},
    {"RemoveBarsFromTheStart", [](SmallScore &s) { return s.score.removeBarRange(0, 2); },
     "RemoveBars(0,3) ModifyBarRangeAllTracks(0,2) ModifyBarRange(0,0,0,0) "
     "MasterBarDirection(1,2,-1) RequestMasterBarPlaylistUpdate "
     "MasterTrackAutomationChanged(Tempo,0,0) TrackAutomationChanged(1,Sound,0,0) "
     "SoundAutomationChanged(1,0,0) AutomationChanged ",
     "AddBars(0,3) ModifyBarRangeAllTracks(0,2) ModifyBarRange(0,0,3,3) "
     "MasterBarDirection(1,-1,2) RequestMasterBarPlaylistUpdate "
     "MasterTrackAutomationChanged(Tempo,0,3) TrackAutomationChanged(1,Sound,0,3) "
     "SoundAutomationChanged(1,0,3) AutomationChanged "},
    {"RemoveAllBars", [](SmallScore &s) { return s.score.removeBarRange(0, 5); },
     "RemoveBars(0,6) ModifyBarRangeAllTracks(0,5) MasterBarDirection(0,3,-1) "
     "MasterBarDirection(1,2,-1) RequestMasterBarPlaylistUpdate "
     "MasterTrackAutomationChanged(Tempo,0,0) TrackAutomationChanged(1,Sound,0,0) "
     "SoundAutomationChanged(1,0,0) AutomationChanged ",
     "AddBars(0,6) ModifyBarRangeAllTracks(0,5) MasterBarDirection(0,-1,3) "
     "MasterBarDirection(1,-1,2) RequestMasterBarPlaylistUpdate "
     "MasterTrackAutomationChanged(Tempo,0,5) TrackAutomationChanged(1,Sound,0,5) "
     "SoundAutomationChanged(1,0,5) AutomationChanged "},
    {"RemoveBars", [](SmallScore &s) { return s.score.removeBarRange(1, 2); },
     "RemoveBars(1,2) ModifyBarRangeAllTracks(1,2) MasterBarDirection(1,2,-1) "
     "RequestMasterBarPlaylistUpdate MasterTrackAutomationChanged(Tempo,1,1) "
     "TrackAutomationChanged(1,Sound,1,1) SoundAutomationChanged(1,1,1) "
     "AutomationChanged ",
     "AddBars(1,2) ModifyBarRangeAllTracks(1,2) MasterBarDirection(1,-1,2) "
     "RequestMasterBarPlaylistUpdate MasterTrackAutomationChanged(Tempo,1,2) "
     "TrackAutomationChanged(1,Sound,1,2) SoundAutomationChanged(1,1,2) "
     "AutomationChanged "},
    {"RemoveBarsThatBeginAMovement", [](SmallScore &s) { return s.score.removeBarRange(4, 4); },
     "RemoveBars(4,1) ModifyBarRangeAllTracks(4,4) ModifyBarRange(0,0,3,3) "
     "SimileMarkBarChanged(0,0,4,4) MasterBarAttribute(4,4) RequestMasterBarPlaylistUpdate ",
     "AddBars(4,1) ModifyBarRangeAllTracks(4,4) ModifyBarRange(0,0,3,3) "
     "SimileMarkBarChanged(0,0,5,5) MasterBarAttribute(5,5) RequestMasterBarPlaylistUpdate "},
    {"SetClef", [](SmallScore &s) { return s.score.setClef(1, 0, 1, 3, ClefType::C3); },
     "TrackClefChanged(1,0,1,3) ", nullptr},
    {"SetMasterTimeSignature",
     [](SmallScore &s) {
         return s.score.setMasterTimeSignature(1, 3, {7, 8});
     },
     "MasterBarTimeSignature(1,3) ", nullptr},
    {"SetMasterKeySignature",
     [](SmallScore &s) {
         return s.score.setMasterKeySignature(0, 5, KeySignature(-3, false, true));
     },
     "MasterBarKeySignature(0,5) ", nullptr},
    {"SetMasterTripletFeel",
     [](SmallScore &s) { return s.score.setMasterTripletFeel(0, 5, TripletFeel::Triplet8th); },
     "MasterBarTripletFeel(0,5) ", nullptr},
    {"SetMasterBarFreeTime", [](SmallScore &s) { return s.score.setMasterBarFreeTime(2, 2, true); },
     "MasterBarFreeTime(2,2) ", nullptr},
    {"SetMasterBarDoubleBar", [](SmallScore &s) { return s.score.setMasterBarDoubleBar(5, true); },
     "MasterBarDoubleBar(5,5) ", nullptr},
    {"SetMasterBarMovementStart",
     [](SmallScore &s) { return s.score.setMasterBarMovementStart(2, true); },
     "MasterBarAttribute(2,2) RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetBarRepeatStart", [](SmallScore &s) { return s.score.setBarRepeatStart(1, true); },
     "MasterBarRepeat(1,1) RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetBarRepeatEnd", [](SmallScore &s) { return s.score.setBarRepeatEnd(4, 3); },
     "MasterBarRepeat(4,4) RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetBarAlternateEndings",
     [](SmallScore &s) { return s.score.setBarAlternateEndings(3, 4, 5); },
     "MasterBarAlternateEnding(3,4) RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetBarDirection",
     [](SmallScore &s) { return s.score.setBarDirection(DirectionMark::DaCapoAlFine, 4); },
     "MasterBarDirection(8,-1,4) RequestMasterBarPlaylistUpdate ",
     "MasterBarDirection(8,4,-1) RequestMasterBarPlaylistUpdate "},
    {"SetBarDirections",
     [](SmallScore &s) {
         return s.score.setBarDirections(2, {DirectionMark::Segno, DirectionMark::Fine});
     },
     "MasterBarDirection(1,2,-1) MasterBarDirection(2,-1,2) "
     "MasterBarDirection(4,-1,2) RequestMasterBarPlaylistUpdate ",
     "MasterBarDirection(1,-1,2) MasterBarDirection(2,2,-1) "
     "MasterBarDirection(4,2,-1) RequestMasterBarPlaylistUpdate "},
    {"SetMasterBarSection",
     [](SmallScore &s) {
         return s.score.setMasterBarSection(3, QStringLiteral("B"), QStringLiteral("Bridge"));
     },
     "SetBarSection(3,3) ", "UnsetBarSection(3,3) "},
    {"CreateTrack", [](SmallScore &s) { return s.score.createTrack(1, InstrumentSet::violin); },
     "RequestAddTracks(1,1) ", "WillRemoveTrack(1) RemoveTrack(1) "},
    {"InsertTrack", [](SmallScore &s) { return s.score.insertTrack(2, shortTrack()); },
     "RequestAddTracks(2,1) ", "WillRemoveTrack(2) RemoveTrack(2) "},
    {"RemoveTrack", [](SmallScore &s) { return s.score.removeTrack(1); },
     "WillRemoveTrack(1) RemoveTrack(1) ", "RequestAddTracks(1,1) "},
    {"SetTrackName",
     [](SmallScore &s) { return s.score.setTrackName(0, QStringLiteral("Lead %0")); },
     "TrackNameChanged(0) ", nullptr},
    {"SetTrackShortName",
     [](SmallScore &s) { return s.score.setTrackShortName(1, QStringLiteral("pn.")); },
     "TrackShortNameChanged(1) ", nullptr},
    {"SetTrackIcon", [](SmallScore &s) { return s.score.setTrackIcon(0, ZarnIconID::Banjo); },
     "TrackIconChanged(0) ", nullptr},
    {"SetGuitarFullTuning",
     [](SmallScore &s) {
         return s.score.setGuitarFullTuning(0, 0, {38, 45, 50, 55, 59, 64}, 2);
     },
     "GuitarFullTuningChanged(0,0) ModifyBarRange(0,0,0,4) ", nullptr},
    {"SetGuitarFullTuningWithoutPartialCapo",
     [](SmallScore &s) {
         return s.score.setGuitarFullTuning(0, 0, {40, 45, 50, 55}, 0, Retuning::KeepPitches);
     },
     "GuitarFullTuningChanged(0,0) ModifyBarRange(0,0,0,4) ", nullptr},
    {"AddTrackSound",
     [](SmallScore &s) { return s.score.addTrackSound(0, Sound("Nylon", MIDISound())); },
     "RequestAddSound(0,0) ", "RequestRemoveSound(0,0) "},
    {"RemoveTrackSound", [](SmallScore &s) { return s.score.removeTrackSound(1, 0); },
     "RequestRemoveSound(1,0) ", "RequestInsertSound(1,0) "},
    {"CreateAudioTrack",
     [](SmallScore &s) {
         return s.score.createAudioTrack(0, std::make_shared<AudioTrack>("Demo"));
     },
     "AddAudioTrack(0) ", "RemoveAudioTrack(0) "},
    {"RemoveAudioTrack", [](SmallScore &s) { return s.score.removeAudioTrack(1); },
     "RemoveAudioTrack(1) ", "AddAudioTrack(1) "},
    {"ModifyMasterTrackAutomations",
     [](SmallScore &s) {
         const auto first = tempo(0, 90);
         const auto second = tempo(3, 150);
         const auto third = tempo(2, 120);
         return s.score.modifyMasterTrackAutomations({&third}, {&first, &second});
     },
     "MasterTrackAutomationChanged(Tempo,0,3) GlobalTempoChanged(100,90) "
     "AutomationChanged ",
     "MasterTrackAutomationChanged(Tempo,0,3) GlobalTempoChanged(90,100) "
     "AutomationChanged "},
    {"ModifyTrackAutomations",
     [](SmallScore &s) {
         const auto change = soundChange(2);
         return s.score.modifyTrackAutomations(1, {}, {&change});
     },
     "TrackAutomationChanged(1,Sound,2,2) SoundAutomationChanged(1,2,2) "
     "AutomationChanged ",
     nullptr},
    {"ModifyMasterTrackAutomationBypass",
     [](SmallScore &s) {
         return s.score.modifyMasterTrackAutomationBypass(Automation::Tempo, true);
     },
     "MasterTrackAutomationBypassChanged(Tempo,1) ",
     "MasterTrackAutomationBypassChanged(Tempo,0) "},
    {"ModifyTrackAutomationBypass",
     [](SmallScore &s) {
         return s.score.modifyTrackAutomationBypass(0, Automation::DSPParam_07, true);
     },
     "TrackAutomationBypassChanged(0,DSPParam_07,1) ",
     "TrackAutomationBypassChanged(0,DSPParam_07,0) "},
    {"DeleteEffect", [](SmallScore &s) { return s.score.removeMasterReverb(); },
     "RequestEffectDelete(-1,3) MasteringReverbChanged ",
     "RequestEffectChange(-1,3) MasteringReverbChanged "},
    {"ChangeProperty",
     [](SmallScore &s) {
         return s.score.changeProperty(ScoreProperty::Artist, QStringLiteral("Trad."));
     },
     "PropertyChanged(2) ", nullptr},
    {"ChangeProperties",
     [](SmallScore &s) {
         return s.score.changeProperties({{ScoreProperty::Title, QStringLiteral("A")},
                                          {ScoreProperty::Notice, QStringLiteral("B")}});
     },
     "PropertiesChanged ", nullptr},
    {"ChangeHeaderAndFooter",
     [](SmallScore &s) {
         return s.score.changeHeaderAndFooter(HeaderAndFooter::FooterRight,
                                              QStringLiteral("%Page%"));
     },
     "HeaderAndFooterChanged(11) ", nullptr},
    {"SetConcertTone", [](SmallScore &s) { return s.score.setConcertTone(442.5); },
     "ConcertToneChanged(440,442.5) ", "ConcertToneChanged(442.5,440) "},
    {"CreateBeat", [](SmallScore &s) { return s.score.createBeat(s.at(1, 0), eighth); },
     "ModifyBarRange(0,0,0,1) ", nullptr},
    {"CreateBeatInEmptyBar",
     [](SmallScore &s) { return s.score.createBeat(s.at(5, 0, 0, 3), eighth); },
     "ModifyBarRange(0,0,5,5) ", nullptr},
    {"WriteBeats",
     [](SmallScore &s) {
         return s.score.writeBeats(0, 0, {writtenStretch(1, 0, 0, 2), writtenStretch(5, 3, 0, 0)});
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
         return s.score.automaticFingerPositioning(s.everything(0, 5), options);
     },
     "ModifyBarRange(0,0,0,4) ", nullptr},
    {"SetNoteRest", [](SmallScore &s) { return s.score.setNoteRest(s.from(0, 3, 1, 1)); },
     "ModifyBarRange(0,0,0,1) ", nullptr},
};

const std::vector<Operation> generalMarkOperations = {
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
         return s.score.incrementBeatSecondaryAttribute(s.from(0, 0, 1, 3), BeatAttribute::Dynamic,
                                                        -2);
     },
     "ModifyBarRange(0,0,0,1) ", nullptr},
    {"SetBeatFreeText",
     [](SmallScore &s) {
         return s.score.setBeatFreeText(s.from(0, 1, 1, 3), QStringLiteral("dolce"));
     },
     "ModifyBarRange(0,0,0,1) ", nullptr},
    {"SetMasterBarAttribute",
     [](SmallScore &s) {
         return s.score.setMasterBarAttribute(0, 2, MasterBarAttribute::Fermatas,
                                              FermataMarks{FermataMark::at(1, Fermata::Long)});
     },
     "MasterBarFermata(0,2) ", nullptr},
    {"SetMasterBarAttributes",
     [](SmallScore &s) {
         return s.score.setMasterBarAttributes(
             0, 3,
             {{MasterBarAttribute::TimeSignature, TimeSignature(5, 8)},
              {MasterBarAttribute::OwnLength, std::optional<utils::rational>(2)},
              {MasterBarAttribute::RepeatStart, true},
              {MasterBarAttribute::RepeatCount, 3},
              {MasterBarAttribute::MovementStart, true},
              {MasterBarAttribute::BeamGroups, BeamGroups({2, 3})},
              {MasterBarAttribute::Section, Section{"A", ""}},
              {MasterBarAttribute::BarLine, BarLine::Dashed},
              {MasterBarAttribute::LayoutRatio, 2.0}});
     },
     "MasterBarTimeSignature(0,3) MasterBarAttribute(0,3) MasterBarRepeat(0,3) SetBarSection(0,3) "
     "MasterBarBeamGroups(0,3) BarLayoutRatiosChanged(0,3) RequestMasterBarPlaylistUpdate ",
     "MasterBarTimeSignature(0,3) MasterBarAttribute(0,3) MasterBarRepeat(0,3) "
     "UnsetBarSection(0,3) MasterBarBeamGroups(0,3) BarLayoutRatiosChanged(0,3) "
     "RequestMasterBarPlaylistUpdate "},
    {"SetMasterTimeSignatureThatGroupsDoNotFit",
     [](SmallScore &s) {
         return s.score.setMasterTimeSignature(4, 5, {3, 4});
     },
     "MasterBarTimeSignature(4,5) MasterBarBeamGroups(4,5) ", nullptr},
    {"SetAnacrusis",
     [](SmallScore &s) {
         return s.score.setMasterBarAttribute(0, 0, MasterBarAttribute::Anacrusis, true);
     },
     "AnacrusisChanged(0,1) ", "AnacrusisChanged(1,0) "},
    {"UnsetMasterBarAttributes",
     [](SmallScore &s) {
         return s.score.unsetMasterBarAttributes(
             3, 5, {MasterBarAttribute::FreeTime, MasterBarAttribute::MovementStart});
     },
     "MasterBarFreeTime(3,5) MasterBarAttribute(3,5) RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetBarAttribute",
     [](SmallScore &s) {
         return s.score.setBarAttribute(1, 0, 1, 3, BarAttribute::LayoutRatio, 0.5);
     },
     "BarLayoutRatiosChanged(1,3) ", nullptr},
    {"SetBarAttributes",
     [](SmallScore &s) {
         return s.score.setBarAttributes(
             1, 0, 1, 2,
             {{BarAttribute::Clef, ClefType::C4}, {BarAttribute::Ottavia, Ottavia::_8vb}});
     },
     "TrackClefChanged(1,0,1,2) ModifyBarRange(1,0,1,2) ", nullptr},
    {"UnsetBarAttributes",
     [](SmallScore &s) {
         return s.score.unsetBarAttributes(1, 0, 3, 5,
                                           {BarAttribute::Clef, BarAttribute::SimileMark});
     },
     "TrackClefChanged(1,0,3,5) SimileMarkBarChanged(1,0,3,5) ModifyBarRange(1,0,3,5) ", nullptr},
    {"SetBarSimileMark",
     [](SmallScore &s) { return s.score.setBarSimileMark(0, 0, 2, 5, SimileMark::Double); },
     "SimileMarkBarChanged(0,0,2,5) ModifyBarRange(0,0,2,5) ", nullptr},
    {"SetNoteAttributeOfAllTracks",
     [](SmallScore &s) {
         return s.score.setNoteAttribute(s.everything(0, 5), NoteAttribute::Velocity, 99);
     },
     "ModifyBarRangeAllTracks(0,5) ", nullptr},
};

/// All of them: the commands of single attributes once by their names and once by the table.
std::vector<Operation> allOperations()
{
    std::vector<Operation> all = structuralOperations;
    all.insert(all.end(), generalMarkOperations.begin(), generalMarkOperations.end());
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

const std::vector<Operation> operations = allOperations();

struct EveryCommandTest : testing::TestWithParam<Operation> {
    RichScore rich;
    CommandStack &stack = rich.score.commandStack();
    const Operation &operation = GetParam();

    bool act() { return operation.act(rich); }
};

TEST_P(EveryCommandTest, undoAndRedoGiveAllBackAndAnnounceWhatTheyDo)
{
    const std::string done = operation.events;
    const std::string undone = operation.undoEvents != nullptr ? operation.undoEvents : done;
    expectUndoable(
        rich.score, [this] { return act(); }, Announcement{done, undone});
}

/// In a macro, each `init` runs before the commands in front of it: the state to restore must not
/// be read there.
TEST_P(EveryCommandTest, inAMacroItRestoresWhatItFound)
{
    expectUndoable(rich.score, [this] {
        stack.beginMacroCommand();
        rich.score.setMasterBarDoubleBar(0, true);
        rich.score.setBeatRhythm(rich.from(0, 0, 0, 1), eighth);
        const bool isDone = act();
        stack.endMacroCommand(true);
        return isDone;
    });
}

/// What a command works on may be made by those in front of it in the same macro.
TEST_P(EveryCommandTest, aMacroMayMakeThePlaceFirst)
{
    Score &score = rich.score;
    std::vector<std::shared_ptr<Track>> tracks;
    for (const auto &track : rich.model.tracks())
        tracks.push_back(std::make_shared<Track>(*track));
    for (unsigned i = 2; i > 0; --i) {
        ASSERT_TRUE(score.removeAudioTrack(i - 1));
        ASSERT_TRUE(score.removeTrack(i - 1));
    }
    ASSERT_TRUE(score.removeBarRange(0, 5));
    const auto first = tempo(0, 100);
    const auto marked = tempo(2, 120);
    expectUndoable(score, [&] {
        stack.beginMacroCommand();
        bool isDone = score.createBars(0, 6);
        for (unsigned i = 0; i < 2; ++i) {
            isDone = isDone && score.insertTrack(i, tracks[i])
                && score.createAudioTrack(i, std::make_shared<AudioTrack>("Take"));
        }
        isDone = isDone && score.modifyMasterTrackAutomations({}, {&first, &marked}) && act();
        stack.endMacroCommand(true);
        return isDone;
    });
}

TEST_P(EveryCommandTest, aListenerThatThrowsFindsTheScoreAsItWas)
{
    expectTakenBackWhenAListenerThrows(rich.score, [this] { return act(); });
}

INSTANTIATE_TEST_SUITE_P(All, EveryCommandTest, testing::ValuesIn(operations),
                         [](const auto &info) { return info.param.name; });

/// The table of the events says of each class whether anything sends it.
TEST(EventTableTest, saysWhatIsSent)
{
    std::string events = "CommandPushed CommandExecuted CommandWillUndo CommandWillRedo "
                         "BeginMacro EndMacro ScoreCursorMoved ScoreChanged ";
    for (const Operation &operation : operations) {
        events += operation.events;
        events += operation.undoEvents != nullptr ? operation.undoEvents : "";
    }
    std::set<std::string> names;
    std::istringstream words(events);
    for (std::string word; words >> word;)
        names.insert(word.substr(0, word.find('(')));
    evt::forEachEvent(evt::eventTable, [&](const auto &row) {
        EXPECT_EQ(row.isSent, names.count(row.name) != 0) << row.name;
    });
}

/// Inside a macro a command's place may be gone when it runs: it raises, and what ran before it in
/// the macro is taken back.
TEST(GonePlaceTest, takesTheWholeMacroBack)
{
    RichScore rich;
    const std::string before = dump(rich.score);
    EventMirror mirror(rich.score);
    for (const Operation &operation : operations) {
        SCOPED_TRACE(operation.name);
        CommandStack &stack = rich.score.commandStack();
        stack.beginMacroCommand();
        rich.score.removeTrack(1);
        rich.score.removeTrack(0);
        rich.score.removeAudioTrack(1);
        rich.score.removeAudioTrack(0);
        rich.score.removeBarRange(0, 5);
        rich.score.removeMasterReverb();
        ASSERT_TRUE(operation.act(rich));
        bool isRaised = false;
        try {
            stack.endMacroCommand(true);
        } catch (const CoreException &) {
            isRaised = true;
        }
        const std::string &name = operation.name;
        const bool needsNoPlace = name == "CreateBarsAtTheStart" || name == "CreateAudioTrack"
            || name == "ChangeProperty" || name == "ChangeProperties"
            || name == "ChangeHeaderAndFooter" || name == "SetConcertTone"
            || name == "ModifyMasterTrackAutomationBypass";
        EXPECT_EQ(isRaised, !needsNoPlace);
        if (!isRaised)
            stack.undo();
        EXPECT_EQ(dump(rich.score), before);
        ASSERT_EQ(mirror.fault(), "");
    }
}

} // namespace
