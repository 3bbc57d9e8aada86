// SPDX-License-Identifier: MIT
#include "CommandRows.h"

#include <ZarnCore/commands/Automations/ZarnModifyAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyChannelStripAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomationBypass.h>
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyMasteringAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomationBypass.h>
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomations.h>
#include <ZarnCore/commands/Bar/ZarnArrangeBars.h>
#include <ZarnCore/commands/Bar/ZarnCompleteReduceBarsWithRests.h>
#include <ZarnCore/commands/Bar/ZarnCreateBars.h>
#include <ZarnCore/commands/Bar/ZarnModifyBarRange.h>
#include <ZarnCore/commands/Bar/ZarnModifyBarRangeAllTracks.h>
#include <ZarnCore/commands/Bar/ZarnMoveVoice.h>
#include <ZarnCore/commands/Bar/ZarnPasteBarRange.h>
#include <ZarnCore/commands/Bar/ZarnRemoveBars.h>
#include <ZarnCore/commands/Bar/ZarnSetBarAttribute.h>
#include <ZarnCore/commands/Bar/ZarnSetBarAttributes.h>
#include <ZarnCore/commands/Bar/ZarnSetBarLayoutRatios.h>
#include <ZarnCore/commands/Bar/ZarnSetBarSimileMark.h>
#include <ZarnCore/commands/Bar/ZarnSetClef.h>
#include <ZarnCore/commands/Bar/ZarnSwapVoices.h>
#include <ZarnCore/commands/Bar/ZarnUnsetBarAttributes.h>
#include <ZarnCore/commands/Beat/ZarnClearBeats.h>
#include <ZarnCore/commands/Beat/ZarnCopyBeatToEOB.h>
#include <ZarnCore/commands/Beat/ZarnCreateBeat.h>
#include <ZarnCore/commands/Beat/ZarnIncrementBeatDuration.h>
#include <ZarnCore/commands/Beat/ZarnIncrementBeatSecondaryAttribute.h>
#include <ZarnCore/commands/Beat/ZarnPasteBeatRange.h>
#include <ZarnCore/commands/Beat/ZarnRemoveBeats.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatArpeggio.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatAttribute.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatAttributes.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatBarre.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatDeadSlapped.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatDynamic.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatFadding.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatFreeText.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatGolpe.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatGraceNotes.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatHairpin.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatLegato.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatOttavia.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatPickStroke.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatRasgueado.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatSlashed.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatTied.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatTimer.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatTremolo.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatTuplet.h>
#include <ZarnCore/commands/Beat/ZarnSetBrush.h>
#include <ZarnCore/commands/Beat/ZarnSetChord.h>
#include <ZarnCore/commands/Beat/ZarnSetNoteAugmentationDot.h>
#include <ZarnCore/commands/Beat/ZarnSetNoteDuration.h>
#include <ZarnCore/commands/Beat/ZarnSetNoteDurationAndVelocity.h>
#include <ZarnCore/commands/Beat/ZarnSetStemOrientations.h>
#include <ZarnCore/commands/Beat/ZarnSetStringedBeatBassAttack.h>
#include <ZarnCore/commands/Beat/ZarnSetStringedBeatVibrato.h>
#include <ZarnCore/commands/Beat/ZarnSetStringedBeatWhammyBar.h>
#include <ZarnCore/commands/Beat/ZarnSetWah.h>
#include <ZarnCore/commands/Beat/ZarnSwitchBeatAttribute.h>
#include <ZarnCore/commands/Beat/ZarnUnsetBeatAttribute.h>
#include <ZarnCore/commands/Beat/ZarnUnsetChord.h>
#include <ZarnCore/commands/Beat/deprecated/ZarnSetBeatTied.h>
#include <ZarnCore/commands/Effects/ZarnClearEffectChain.h>
#include <ZarnCore/commands/Effects/ZarnDeleteEffect.h>
#include <ZarnCore/commands/Effects/ZarnSetEffect.h>
#include <ZarnCore/commands/Effects/ZarnSetEffectBypass.h>
#include <ZarnCore/commands/Effects/ZarnSetEffectChain.h>
#include <ZarnCore/commands/Effects/ZarnSwapEffects.h>
#include <ZarnCore/commands/MasterBar/ZarnEditFermata.h>
#include <ZarnCore/commands/MasterBar/ZarnSetBarAlternateEndings.h>
#include <ZarnCore/commands/MasterBar/ZarnSetBarRepeatEnd.h>
#include <ZarnCore/commands/MasterBar/ZarnSetBarRepeatStart.h>
#include <ZarnCore/commands/MasterBar/ZarnSetFermata.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarAttribute.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarAttributes.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarBeamGroups.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarDoubleBar.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarFreeTime.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarLayoutRatios.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarSection.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterKeySignature.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterTimeSignature.h>
#include <ZarnCore/commands/MasterBar/ZarnSetMasterTripletFeel.h>
#include <ZarnCore/commands/MasterBar/ZarnUnsetMasterBarAttributes.h>
#include <ZarnCore/commands/MasterTrack/ZarnSetBarDirection.h>
#include <ZarnCore/commands/MasterTrack/ZarnSetBarDirections.h>
#include <ZarnCore/commands/Note/ZarnAutomaticFingerPositioning.h>
#include <ZarnCore/commands/Note/ZarnCreateNonPitchedNote.h>
#include <ZarnCore/commands/Note/ZarnCreateNonPitchedNoteFromMidiAndString.h>
#include <ZarnCore/commands/Note/ZarnLetRingAssistant.h>
#include <ZarnCore/commands/Note/ZarnPalmMuteAssistant.h>
#include <ZarnCore/commands/Note/ZarnRemoveNonPitchedNoteFromMidiAndString.h>
#include <ZarnCore/commands/Note/ZarnSetMIDINote.h>
#include <ZarnCore/commands/Note/ZarnSetNoteAccentFlag.h>
#include <ZarnCore/commands/Note/ZarnSetNoteAntiAccent.h>
#include <ZarnCore/commands/Note/ZarnSetNoteFingering.h>
#include <ZarnCore/commands/Note/ZarnSetNoteLetring.h>
#include <ZarnCore/commands/Note/ZarnSetNoteMidiForString.h>
#include <ZarnCore/commands/Note/ZarnSetNoteOrnament.h>
#include <ZarnCore/commands/Note/ZarnSetNoteOrnement.h>
#include <ZarnCore/commands/Note/ZarnSetNoteRest.h>
#include <ZarnCore/commands/Note/ZarnSetNoteSoundingAccidental.h>
#include <ZarnCore/commands/Note/ZarnSetNoteTied.h>
#include <ZarnCore/commands/Note/ZarnSetNoteTrill.h>
#include <ZarnCore/commands/Note/ZarnSetNoteVelocity.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNote.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteArtificialHarmonic.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteBend.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteDead.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteFret.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteHopo.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteLeftHandTapping.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteNaturalHarmonic.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNotePalmMute.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteRightHandTapping.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteShowStringNumber.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteSlide.h>
#include <ZarnCore/commands/Note/ZarnSetStringedNoteVibrato.h>
#include <ZarnCore/commands/Note/ZarnShiftOneElement.h>
#include <ZarnCore/commands/Note/ZarnShiftOneString.h>
#include <ZarnCore/commands/Note/ZarnShiftSemitone.h>
#include <ZarnCore/commands/Note/ZarnSwitchNoteAccidental.h>
#include <ZarnCore/commands/Note/deprecated/ZarnSetNoteTied.h>
#include <ZarnCore/commands/Score/ZarnChangeHeaderAndFooter.h>
#include <ZarnCore/commands/Score/ZarnChangeProperties.h>
#include <ZarnCore/commands/Score/ZarnChangeProperty.h>
#include <ZarnCore/commands/Score/ZarnReplaceScore.h>
#include <ZarnCore/commands/Score/ZarnSetAutoLayout.h>
#include <ZarnCore/commands/Score/ZarnSetConcertTone.h>
#include <ZarnCore/commands/Score/ZarnSetFixedLayout.h>
#include <ZarnCore/commands/Score/ZarnSetFullScoreSystemsLayout.h>
#include <ZarnCore/commands/Score/ZarnSetLayout.h>
#include <ZarnCore/commands/Score/ZarnSetMultiRest.h>
#include <ZarnCore/commands/Sounds/ZarnAddTrackSound.h>
#include <ZarnCore/commands/Sounds/ZarnRemoveTrackSound.h>
#include <ZarnCore/commands/Sounds/ZarnSetChannelStripParameter.h>
#include <ZarnCore/commands/Sounds/ZarnSetForcedSoundIndex.h>
#include <ZarnCore/commands/Sounds/ZarnSetMasterTrackVolumePan.h>
#include <ZarnCore/commands/Sounds/ZarnSetTrackSound.h>
#include <ZarnCore/commands/Sounds/ZarnSwapTrackSounds.h>
#include <ZarnCore/commands/Track/ZarnSetAutoAccentuation.h>
#include <ZarnCore/commands/Track/ZarnSetGuitarFullTuning.h>
#include <ZarnCore/commands/Track/ZarnSetLyrics.h>
#include <ZarnCore/commands/Track/ZarnSetLyricsOffset.h>
#include <ZarnCore/commands/Track/ZarnSetLyricsVisible.h>
#include <ZarnCore/commands/Track/ZarnSetPalmMute.h>
#include <ZarnCore/commands/Track/ZarnSetTrackIcon.h>
#include <ZarnCore/commands/Track/ZarnSetTrackMidiConnection.h>
#include <ZarnCore/commands/Track/ZarnSetTrackName.h>
#include <ZarnCore/commands/Track/ZarnSetTrackShortName.h>
#include <ZarnCore/commands/Track/ZarnSetTrackSystemsLayout.h>
#include <ZarnCore/commands/Track/ZarnSetTrackTranspositionOffset.h>
#include <ZarnCore/commands/Track/ZarnTransposeAllTracks.h>
#include <ZarnCore/commands/Track/ZarnTransposeTrack.h>

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

/// The commands that hosts build by their names: that all of them are there, are called so in lists
/// and logs, refuse to be without a score, and stand in the tables of the laws.
namespace {

using namespace rich;

struct PublishedCommand {
    const char *name;
    std::unique_ptr<Command> (*make)();
};

template <class C>
constexpr PublishedCommand row(const char *name)
{
    static_assert(std::is_base_of_v<Command, C> && std::is_default_constructible_v<C>);
    return {name, [] { return std::unique_ptr<Command>(std::make_unique<C>()); }};
}

constexpr PublishedCommand published[] = {
    row<cmd::AddTrackSound>("AddTrackSound"),
    row<cmd::ArrangeBars>("ArrangeBars"),
    row<cmd::AutomaticFingerPositioning>("AutomaticFingerPositioning"),
    row<cmd::ChangeHeaderAndFooter>("ChangeHeaderAndFooter"),
    row<cmd::ChangeProperties>("ChangeProperties"),
    row<cmd::ChangeProperty>("ChangeProperty"),
    row<cmd::ClearBeats>("ClearBeats"),
    row<cmd::ClearEffectChain>("ClearEffectChain"),
    row<cmd::CompleteReduceBarsWithRests>("CompleteReduceBarsWithRests"),
    row<cmd::CopyBeatToEOB>("CopyBeatToEOB"),
    row<cmd::CreateBars>("CreateBars"),
    row<cmd::CreateBeat>("CreateBeat"),
    row<cmd::CreateNonPitchedNote>("CreateNonPitchedNote"),
    row<cmd::CreateNonPitchedNoteFromMidiAndString>("CreateNonPitchedNoteFromMidiAndString"),
    row<cmd::DeleteEffect>("DeleteEffect"),
    row<cmd::EditFermata>("EditFermata"),
    row<cmd::IncrementBeatDuration>("IncrementBeatDuration"),
    row<cmd::IncrementBeatSecondaryAttribute>("IncrementBeatSecondaryAttribute"),
    row<cmd::LetRingAssistant>("LetRingAssistant"),
    row<cmd::ModifyAutomations>("ModifyAutomations"),
    row<cmd::ModifyBarRange>("ModifyBarRange"),
    row<cmd::ModifyBarRangeAllTracks>("ModifyBarRangeAllTracks"),
    row<cmd::ModifyChannelStripAutomations>("ModifyChannelStripAutomations"),
    row<cmd::ModifyMasterTrackAutomationBypass>("ModifyMasterTrackAutomationBypass"),
    row<cmd::ModifyMasterTrackAutomations>("ModifyMasterTrackAutomations"),
    row<cmd::ModifyMasteringAutomations>("ModifyMasteringAutomations"),
    row<cmd::ModifyTrackAutomationBypass>("ModifyTrackAutomationBypass"),
    row<cmd::ModifyTrackAutomations>("ModifyTrackAutomations"),
    row<cmd::MoveVoice>("MoveVoice"),
    row<cmd::PalmMuteAssistant>("PalmMuteAssistant"),
    row<cmd::PasteBarRange>("PasteBarRange"),
    row<cmd::PasteBeatRange>("PasteBeatRange"),
    row<cmd::RemoveBars>("RemoveBars"),
    row<cmd::RemoveBeats>("RemoveBeats"),
    row<cmd::RemoveNonPitchedNoteFromMidiAndString>("RemoveNonPitchedNoteFromMidiAndString"),
    row<cmd::RemoveTrackSound>("RemoveTrackSound"),
    row<cmd::ReplaceScore>("ReplaceScore"),
    row<cmd::SetAutoAccentuation>("SetAutoAccentuation"),
    row<cmd::SetAutoLayout>("SetAutoLayout"),
    row<cmd::SetBarAlternateEndings>("SetBarAlternateEndings"),
    row<cmd::SetBarAttribute>("SetBarAttribute"),
    row<cmd::SetBarAttributes>("SetBarAttributes"),
    row<cmd::SetBarDirection>("SetBarDirection"),
    row<cmd::SetBarDirections>("SetBarDirections"),
    row<cmd::SetBarLayoutRatios>("SetBarLayoutRatios"),
    row<cmd::SetBarRepeatEnd>("SetBarRepeatEnd"),
    row<cmd::SetBarRepeatStart>("SetBarRepeatStart"),
    row<cmd::SetBarSimileMark>("SetBarSimileMark"),
    row<cmd::SetBeatArpeggio>("SetBeatArpeggio"),
    row<cmd::SetBeatAttribute>("SetBeatAttribute"),
    row<cmd::SetBeatAttributes>("SetBeatAttributes"),
    row<cmd::SetBeatBarre>("SetBeatBarre"),
    row<cmd::SetBeatDeadSlapped>("SetBeatDeadSlapped"),
    row<cmd::SetBeatDynamic>("SetBeatDynamic"),
    row<cmd::SetBeatFadding>("SetBeatFadding"),
    row<cmd::SetBeatFreeText>("SetBeatFreeText"),
    row<cmd::SetBeatGolpe>("SetBeatGolpe"),
    row<cmd::SetBeatGraceNotes>("SetBeatGraceNotes"),
    row<cmd::SetBeatHairpin>("SetBeatHairpin"),
    row<cmd::SetBeatLegato>("SetBeatLegato"),
    row<cmd::SetBeatOttavia>("SetBeatOttavia"),
    row<cmd::SetBeatPickStroke>("SetBeatPickStroke"),
    row<cmd::SetBeatRasgueado>("SetBeatRasgueado"),
    row<cmd::SetBeatRhythm>("SetBeatRhythm"),
    row<cmd::SetBeatSlashed>("SetBeatSlashed"),
    row<cmd::SetBeatTied>("SetBeatTied"),
    row<cmd::SetBeatTimer>("SetBeatTimer"),
    row<cmd::SetBeatTremolo>("SetBeatTremolo"),
    row<cmd::SetBeatTuplet>("SetBeatTuplet"),
    row<cmd::SetBrush>("SetBrush"),
    row<cmd::SetChannelStripParameter>("SetChannelStripParameter"),
    row<cmd::SetChord>("SetChord"),
    row<cmd::SetClef>("SetClef"),
    row<cmd::SetConcertTone>("SetConcertTone"),
    row<cmd::SetEffect>("SetEffect"),
    row<cmd::SetEffectBypass>("SetEffectBypass"),
    row<cmd::SetEffectChain>("SetEffectChain"),
    row<cmd::SetFermata>("SetFermata"),
    row<cmd::SetFixedLayout>("SetFixedLayout"),
    row<cmd::SetForcedSoundIndex>("SetForcedSoundIndex"),
    row<cmd::SetFullScoreSystemsLayout>("SetFullScoreSystemsLayout"),
    row<cmd::SetGuitarFullTuning>("SetGuitarFullTuning"),
    row<cmd::SetLayout>("SetLayout"),
    row<cmd::SetLyrics>("SetLyrics"),
    row<cmd::SetLyricsOffset>("SetLyricsOffset"),
    row<cmd::SetLyricsVisible>("SetLyricsVisible"),
    row<cmd::SetMIDINote>("SetMIDINote"),
    row<cmd::SetMasterBarAttribute>("SetMasterBarAttribute"),
    row<cmd::SetMasterBarAttributes>("SetMasterBarAttributes"),
    row<cmd::SetMasterBarBeamGroups>("SetMasterBarBeamGroups"),
    row<cmd::SetMasterBarDoubleBar>("SetMasterBarDoubleBar"),
    row<cmd::SetMasterBarFreeTime>("SetMasterBarFreeTime"),
    row<cmd::SetMasterBarLayoutRatios>("SetMasterBarLayoutRatios"),
    row<cmd::SetMasterBarSection>("SetMasterBarSection"),
    row<cmd::SetMasterKeySignature>("SetMasterKeySignature"),
    row<cmd::SetMasterTimeSignature>("SetMasterTimeSignature"),
    row<cmd::SetMasterTrackVolumePan>("SetMasterTrackVolumePan"),
    row<cmd::SetMasterTripletFeel>("SetMasterTripletFeel"),
    row<cmd::SetMultiRest>("SetMultiRest"),
    row<cmd::SetNoteAccentFlag>("SetNoteAccentFlag"),
    row<cmd::SetNoteAntiAccent>("SetNoteAntiAccent"),
    row<cmd::SetNoteAugmentationDot>("SetNoteAugmentationDot"),
    row<cmd::SetNoteDuration>("SetNoteDuration"),
    row<cmd::SetNoteDurationAndVelocity>("SetNoteDurationAndVelocity"),
    row<cmd::SetNoteFingering<0>>("SetNoteFingering<0>"),
    row<cmd::SetNoteFingering<1>>("SetNoteFingering<1>"),
    row<cmd::SetNoteLetring>("SetNoteLetring"),
    row<cmd::SetNoteMidiForString>("SetNoteMidiForString"),
    row<cmd::SetNoteOrnament>("SetNoteOrnament"),
    row<cmd::SetNoteOrnement>("SetNoteOrnement"),
    row<cmd::SetNoteRest>("SetNoteRest"),
    row<cmd::SetNoteSoundingAccidental>("SetNoteSoundingAccidental"),
    row<cmd::SetNoteTied>("SetNoteTied"),
    row<cmd::SetNoteTrill>("SetNoteTrill"),
    row<cmd::SetNoteVelocity>("SetNoteVelocity"),
    row<cmd::SetPalmMute>("SetPalmMute"),
    row<cmd::SetStemOrientations>("SetStemOrientations"),
    row<cmd::SetStringedBeatBassAttack>("SetStringedBeatBassAttack"),
    row<cmd::SetStringedBeatVibrato>("SetStringedBeatVibrato"),
    row<cmd::SetStringedBeatWhammyBar>("SetStringedBeatWhammyBar"),
    row<cmd::SetStringedNote>("SetStringedNote"),
    row<cmd::SetStringedNoteArtificialHarmonic>("SetStringedNoteArtificialHarmonic"),
    row<cmd::SetStringedNoteBend>("SetStringedNoteBend"),
    row<cmd::SetStringedNoteDead>("SetStringedNoteDead"),
    row<cmd::SetStringedNoteFret>("SetStringedNoteFret"),
    row<cmd::SetStringedNoteHopo>("SetStringedNoteHopo"),
    row<cmd::SetStringedNoteLeftHandTapping>("SetStringedNoteLeftHandTapping"),
    row<cmd::SetStringedNoteNaturalHarmonic>("SetStringedNoteNaturalHarmonic"),
    row<cmd::SetStringedNotePalmMute>("SetStringedNotePalmMute"),
    row<cmd::SetStringedNoteRightHandTapping>("SetStringedNoteRightHandTapping"),
    row<cmd::SetStringedNoteShowStringNumber>("SetStringedNoteShowStringNumber"),
    row<cmd::SetStringedNoteSlide>("SetStringedNoteSlide"),
    row<cmd::SetStringedNoteVibrato>("SetStringedNoteVibrato"),
    row<cmd::SetTrackIcon>("SetTrackIcon"),
    row<cmd::SetTrackMidiConnection>("SetTrackMidiConnection"),
    row<cmd::SetTrackName>("SetTrackName"),
    row<cmd::SetTrackShortName>("SetTrackShortName"),
    row<cmd::SetTrackSound>("SetTrackSound"),
    row<cmd::SetTrackSystemsLayout>("SetTrackSystemsLayout"),
    row<cmd::SetTrackTranspositionOffset>("SetTrackTranspositionOffset"),
    row<cmd::SetWah>("SetWah"),
    row<cmd::ShiftOneElement<0>>("ShiftOneElement<0>"),
    row<cmd::ShiftOneElement<1>>("ShiftOneElement<1>"),
    row<cmd::ShiftOneString<0>>("ShiftOneString<0>"),
    row<cmd::ShiftOneString<1>>("ShiftOneString<1>"),
    row<cmd::ShiftSemitone>("ShiftSemitone"),
    row<cmd::SwapEffects>("SwapEffects"),
    row<cmd::SwapTrackSounds>("SwapTrackSounds"),
    row<cmd::SwapVoices>("SwapVoices"),
    row<cmd::SwitchBeatAttribute>("SwitchBeatAttribute"),
    row<cmd::SwitchNoteAccidental>("SwitchNoteAccidental"),
    row<cmd::TransposeAllTracks>("TransposeAllTracks"),
    row<cmd::TransposeTrack>("TransposeTrack"),
    row<cmd::UnsetBarAttributes>("UnsetBarAttributes"),
    row<cmd::UnsetBeatAttribute>("UnsetBeatAttribute"),
    row<cmd::UnsetChord>("UnsetChord"),
    row<cmd::UnsetMasterBarAttributes>("UnsetMasterBarAttributes"),
    row<cmd::deprecated::SetBeatTied>("SetBeatTied"),
    row<cmd::deprecated::SetNoteTied>("SetNoteTied"),
};

TEST(PublishedCommandsTest, areOneHundredAndFiftyNineByTheirNames)
{
    EXPECT_EQ(std::size(published), 159U);
    for (const PublishedCommand &command : published)
        EXPECT_EQ(command.make()->name().toStdString(), command.name);
}

TEST(PublishedCommandsTest, allStandInTheTablesOfTheLaws)
{
    std::set<std::string> done;
    for (const CommandRowsOfArea &area : commandAreas()) {
        for (const CommandRow &row : area.rows()) {
            RichScore rich;
            ASSERT_TRUE(row.act(rich)) << row.name;
            done.insert(rich.score.commandStack().undoCommandList().front().toStdString());
        }
    }
    // They need a kit with articulations of its own: PercussionTest holds the laws of these.
    const std::set<std::string> ofDrums = {
        "CreateNonPitchedNote", "CreateNonPitchedNoteFromMidiAndString",
        "RemoveNonPitchedNoteFromMidiAndString", "ShiftOneElement<0>", "ShiftOneElement<1>"};
    for (const PublishedCommand &command : published)
        EXPECT_NE(done.count(command.name), ofDrums.count(command.name)) << command.name;
}

} // namespace
