// SPDX-License-Identifier: MIT
#include "support/EventLog.h"
#include "support/SmallScore.h"

#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/model/ZarnModelCheck.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>

/// The laws of all commands, checked on a table of them: what undo and redo give back, to the byte;
/// what they announce; what is refused; and what a listener that throws leaves behind.
namespace {

using namespace zarn;

struct Operation {
    const char *name;
    std::function<bool(SmallScore &)> act;
    const char *events;
    const char *undoEvents; ///< null when they are the same
};

TempoAutomation tempo(unsigned bar, float value)
{
    TempoAutomation automation;
    automation.setIndex(bar);
    automation.setValue(value);
    return automation;
}

SoundAutomation soundChange(unsigned bar)
{
    SoundAutomation automation(std::make_shared<Sound>("Organ", MIDISound()));
    automation.setIndex(bar);
    return automation;
}

std::shared_ptr<Track> shortTrack()
{
    auto track = ScoreModel::createTrack(InstrumentSet::flute);
    track->addEmptyBars(2);
    return track;
}

const RhythmValue eighth(RhythmValue::NoteValue::Eighth, 1);

const Operation operations[] = {
    {"CreateBars", [](SmallScore &s) { return s.score.createBars(2, 3); }, "AddBars ",
     "RemoveBars "},
    {"RemoveBars", [](SmallScore &s) { return s.score.removeBarRange(1, 2); },
     "RemoveBars ModifyBarRangeAllTracks ", "AddBars ModifyBarRangeAllTracks "},
    {"SetClef", [](SmallScore &s) { return s.score.setClef(1, 0, 1, 3, ClefType::C3); },
     "TrackClefChanged ", nullptr},
    {"SetMasterTimeSignature",
     [](SmallScore &s) {
         return s.score.setMasterTimeSignature(1, 3, {7, 8});
     },
     "MasterBarTimeSignature ", nullptr},
    {"SetMasterKeySignature",
     [](SmallScore &s) {
         return s.score.setMasterKeySignature(0, 5, KeySignature(-3, false, true));
     },
     "MasterBarKeySignature ", nullptr},
    {"SetMasterTripletFeel",
     [](SmallScore &s) { return s.score.setMasterTripletFeel(0, 5, TripletFeel::Triplet8th); },
     "MasterBarTripletFeel ", nullptr},
    {"SetMasterBarFreeTime", [](SmallScore &s) { return s.score.setMasterBarFreeTime(2, 2, true); },
     "MasterBarFreeTime ", nullptr},
    {"SetMasterBarDoubleBar", [](SmallScore &s) { return s.score.setMasterBarDoubleBar(5, true); },
     "MasterBarDoubleBar ", nullptr},
    {"SetBarRepeatStart", [](SmallScore &s) { return s.score.setBarRepeatStart(1, true); },
     "MasterBarRepeat RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetBarRepeatEnd", [](SmallScore &s) { return s.score.setBarRepeatEnd(4, 3); },
     "MasterBarRepeat RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetBarAlternateEndings",
     [](SmallScore &s) { return s.score.setBarAlternateEndings(3, 4, 5); },
     "MasterBarAlternateEnding RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetBarDirection",
     [](SmallScore &s) { return s.score.setBarDirection(DirectionMark::DaCapoAlFine, 4); },
     "MasterBarDirection RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetBarDirections",
     [](SmallScore &s) {
         return s.score.setBarDirections(2, {DirectionMark::Segno, DirectionMark::Fine});
     },
     "MasterBarDirection MasterBarDirection RequestMasterBarPlaylistUpdate ", nullptr},
    {"SetMasterBarSection",
     [](SmallScore &s) {
         return s.score.setMasterBarSection(3, QStringLiteral("B"), QStringLiteral("Bridge"));
     },
     "SetBarSection ", "UnsetBarSection "},
    {"CreateTrack", [](SmallScore &s) { return s.score.createTrack(1, InstrumentSet::violin); },
     "RequestAddTracks ", "WillRemoveTrack RemoveTrack "},
    {"InsertTrack", [](SmallScore &s) { return s.score.insertTrack(2, shortTrack()); },
     "RequestAddTracks ", "WillRemoveTrack RemoveTrack "},
    {"RemoveTrack", [](SmallScore &s) { return s.score.removeTrack(1); },
     "WillRemoveTrack RemoveTrack ", "RequestAddTracks "},
    {"SetTrackName",
     [](SmallScore &s) { return s.score.setTrackName(0, QStringLiteral("Lead %0")); },
     "TrackNameChanged ", nullptr},
    {"SetTrackShortName",
     [](SmallScore &s) { return s.score.setTrackShortName(1, QStringLiteral("pn.")); },
     "TrackShortNameChanged ", nullptr},
    {"SetTrackIcon", [](SmallScore &s) { return s.score.setTrackIcon(0, ZarnIconID::Banjo); },
     "TrackIconChanged ", nullptr},
    {"SetGuitarFullTuning",
     [](SmallScore &s) {
         return s.score.setGuitarFullTuning(0, 0, {38, 45, 50, 55, 59, 64}, 2);
     },
     "GuitarFullTuningChanged ", nullptr},
    {"AddTrackSound",
     [](SmallScore &s) { return s.score.addTrackSound(0, Sound("Nylon", MIDISound())); },
     "RequestAddSound ", "RequestRemoveSound "},
    {"RemoveTrackSound", [](SmallScore &s) { return s.score.removeTrackSound(1, 0); },
     "RequestRemoveSound ", "RequestInsertSound "},
    {"CreateAudioTrack",
     [](SmallScore &s) {
         return s.score.createAudioTrack(0, std::make_shared<AudioTrack>("Demo"));
     },
     "AddAudioTrack ", "RemoveAudioTrack "},
    {"RemoveAudioTrack", [](SmallScore &s) { return s.score.removeAudioTrack(1); },
     "RemoveAudioTrack ", "AddAudioTrack "},
    {"ModifyMasterTrackAutomations",
     [](SmallScore &s) {
         const auto first = tempo(0, 90);
         const auto second = tempo(3, 150);
         const auto third = tempo(2, 120);
         return s.score.modifyMasterTrackAutomations({&third}, {&first, &second});
     },
     "MasterTrackAutomationChanged GlobalTempoChanged AutomationChanged ", nullptr},
    {"ModifyTrackAutomations",
     [](SmallScore &s) {
         const auto change = soundChange(2);
         return s.score.modifyTrackAutomations(1, {}, {&change});
     },
     "TrackAutomationChanged SoundAutomationChanged AutomationChanged ", nullptr},
    {"ModifyMasterTrackAutomationBypass",
     [](SmallScore &s) {
         return s.score.modifyMasterTrackAutomationBypass(Automation::Tempo, true);
     },
     "MasterTrackAutomationBypassChanged ", nullptr},
    {"ModifyTrackAutomationBypass",
     [](SmallScore &s) {
         return s.score.modifyTrackAutomationBypass(0, Automation::DSPParam_07, true);
     },
     "TrackAutomationBypassChanged ", nullptr},
    {"DeleteEffect", [](SmallScore &s) { return s.score.removeMasterReverb(); },
     "RequestEffectDelete MasteringReverbChanged ", "RequestEffectChange MasteringReverbChanged "},
    {"ChangeProperty",
     [](SmallScore &s) {
         return s.score.changeProperty(ScoreProperty::Artist, QStringLiteral("Trad."));
     },
     "PropertyChanged ", nullptr},
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
     "HeaderAndFooterChanged ", nullptr},
    {"SetConcertTone", [](SmallScore &s) { return s.score.setConcertTone(442.5); },
     "ConcertToneChanged ", nullptr},
    {"CreateBeat", [](SmallScore &s) { return s.score.createBeat(s.at(1, 0), eighth); },
     "ModifyBarRange ", nullptr},
    {"CreateBeatInEmptyBar",
     [](SmallScore &s) { return s.score.createBeat(s.at(5, 0, 0, 3), eighth); }, "ModifyBarRange ",
     nullptr},
    {"RemoveBeats", [](SmallScore &s) { return s.score.removeBeats(s.from(0, 2, 2, 0)); },
     "ModifyBarRange ", nullptr},
    {"RemoveBeatsOfAllTracks",
     [](SmallScore &s) { return s.score.removeBeats(s.everything(1, 3)); },
     "ModifyBarRangeAllTracks ", nullptr},
    {"SetBeatRhythm",
     [](SmallScore &s) { return s.score.setBeatRhythm(s.from(0, 1, 1, 1), eighth); },
     "ModifyBarRange ", nullptr},
    {"SetBeatDynamic",
     [](SmallScore &s) {
         return s.score.setBeatDynamic(s.everything(0, 5), NoteDynamic::Value::FF);
     },
     "ModifyBarRangeAllTracks ", nullptr},
    {"SetStringedNote", [](SmallScore &s) { return s.score.setStringedNote(s.at(0, 3), 5, 7); },
     "ModifyBarRange ", nullptr},
    {"SetStringedNoteOnRest",
     [](SmallScore &s) { return s.score.setStringedNote(s.at(0, 2), 3, 0); }, "ModifyBarRange ",
     nullptr},
    {"SetMIDINote", [](SmallScore &s) { return s.score.setMIDINote(s.at(2, 0, 1, 2), 64); },
     "ModifyBarRange ", nullptr},
    {"SetNoteRest", [](SmallScore &s) { return s.score.setNoteRest(s.from(0, 3, 1, 1)); },
     "ModifyBarRange ", nullptr},
};

/// A small score with something for every command to work on.
struct RichScore : SmallScore {
    RichScore()
    {
        model.insertAudioTrack(0, std::make_shared<AudioTrack>("Click"));
        model.insertAudioTrack(1, std::make_shared<AudioTrack>("Band"));
        model.track(1)->addSound(std::make_shared<Sound>("Piano", MIDISound()));
        model.masterTrack()->insertAutomation(tempo(2, 120).cloneAutomation());
        model.track(0)->bar(5)->setSimileMark(SimileMark::Simple);
        model.track(1)->bar(2)->setClefChanges({{utils::rational(2), ClefType::F4}});
        model.masterTrack()->setDirection(static_cast<int>(DirectionMark::Coda), 3);
    }
    std::string document() const { return io::NativeExporter().toText(model); }
};

struct EveryCommandTest : testing::TestWithParam<Operation> {
    RichScore rich;
    CommandStack &stack = rich.score.commandStack();
    const std::string before = rich.document();
    const Operation &operation = GetParam();

    void expectSound() { EXPECT_EQ(checkModel(rich.model), std::vector<std::string>()); }
};

TEST_P(EveryCommandTest, undoAndRedoAgreeToTheByteAndAnnounceWhatTheyDo)
{
    const std::string undoEvents =
        operation.undoEvents != nullptr ? operation.undoEvents : operation.events;
    EventLog log(rich.score);
    ASSERT_TRUE(operation.act(rich));
    const std::string after = rich.document();
    EXPECT_NE(after, before) << "the operation changed nothing";
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(log.take(), operation.events);
        expectSound();
        stack.undo();
        EXPECT_EQ(rich.document(), before);
        EXPECT_EQ(log.take(), undoEvents);
        expectSound();
        stack.redo();
        EXPECT_EQ(rich.document(), after);
    }
}

/// In a macro, each `init` runs before the commands in front of it: the state to restore must not
/// be read there.
TEST_P(EveryCommandTest, twiceInAMacroItRestoresWhatEachRunFound)
{
    stack.beginMacroCommand();
    ASSERT_TRUE(operation.act(rich));
    rich.score.setMasterBarDoubleBar(0, true);
    rich.score.setBeatRhythm(rich.from(0, 0, 0, 1), eighth);
    EXPECT_EQ(rich.document(), before);
    stack.endMacroCommand(true);
    const std::string after = rich.document();
    EXPECT_NE(after, before);
    for (int round = 0; round < 2; ++round) {
        stack.undo();
        EXPECT_EQ(rich.document(), before);
        stack.redo();
        EXPECT_EQ(rich.document(), after);
    }
    expectSound();
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
    const std::string bare = rich.document();
    const auto first = tempo(0, 100);
    const auto marked = tempo(2, 120);

    stack.beginMacroCommand();
    ASSERT_TRUE(score.createBars(0, 6));
    for (unsigned i = 0; i < 2; ++i) {
        ASSERT_TRUE(score.insertTrack(i, tracks[i]));
        ASSERT_TRUE(score.createAudioTrack(i, std::make_shared<AudioTrack>("Take")));
    }
    ASSERT_TRUE(score.modifyMasterTrackAutomations({}, {&first, &marked}));
    EXPECT_TRUE(operation.act(rich));
    EXPECT_EQ(rich.document(), bare);
    EXPECT_NO_THROW(stack.endMacroCommand(true));
    const std::string after = rich.document();
    EXPECT_NE(after, bare);
    expectSound();
    stack.undo();
    EXPECT_EQ(rich.document(), bare);
    stack.redo();
    EXPECT_EQ(rich.document(), after);
}

TEST_P(EveryCommandTest, aListenerThatThrowsFindsTheScoreAsItWas)
{
    EventLog log(rich.score);
    const std::string events = operation.events;
    const auto count = static_cast<int>(std::count(events.begin(), events.end(), ' '));
    for (int number = 1; number <= count; ++number) {
        log.throwAt(number);
        EXPECT_THROW(operation.act(rich), std::runtime_error);
        EXPECT_EQ(rich.document(), before);
        EXPECT_FALSE(stack.undoAvailable());
        expectSound();
    }
    log.throwAt(0);
    ASSERT_TRUE(operation.act(rich));
    const std::string after = rich.document();
    log.throwAt(1);
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(rich.document(), after);
    stack.undo();
    EXPECT_EQ(rich.document(), before);
}

INSTANTIATE_TEST_SUITE_P(All, EveryCommandTest, testing::ValuesIn(operations),
                         [](const auto &info) { return std::string(info.param.name); });

/// Arguments that cannot be: each operation is refused, and leaves no trace.
TEST(RefusedCommandTest, leavesNoTrace)
{
    RichScore rich;
    Score &score = rich.score;
    const std::string before = rich.document();
    EventLog log(score);
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
    };
    for (std::size_t i = 0; i < std::size(refused); ++i)
        EXPECT_FALSE(refused[i]()) << "number " << i;
    EXPECT_EQ(rich.document(), before);
    EXPECT_EQ(log.take(), "");
    EXPECT_EQ(score.commandStack().undoCount(), 0U);
    EXPECT_TRUE(score.removeMasterReverb());
    EXPECT_FALSE(score.removeMasterReverb());
}

/// Inside a macro a command's place may be gone when it runs: it raises, and what ran before it in
/// the macro is taken back.
TEST(GonePlaceTest, takesTheWholeMacroBack)
{
    RichScore rich;
    const std::string before = rich.document();
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
        const std::string name = operation.name;
        const bool needsNoPlace = name == "CreateAudioTrack" || name == "ChangeProperty"
            || name == "ChangeProperties" || name == "ChangeHeaderAndFooter"
            || name == "SetConcertTone" || name == "ModifyMasterTrackAutomationBypass";
        EXPECT_EQ(isRaised, !needsNoPlace);
        if (!isRaised)
            stack.undo();
        EXPECT_EQ(rich.document(), before);
    }
}

} // namespace
