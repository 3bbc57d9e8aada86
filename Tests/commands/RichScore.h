// SPDX-License-Identifier: MIT
#pragma once

#include "support/SmallScore.h"

#include <ZarnCore/commands/Beat/ZarnWriteBeats.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

/// What the tests of all commands work on.
namespace rich {

using namespace zarn;

inline TempoAutomation tempo(unsigned bar, float value)
{
    TempoAutomation automation;
    automation.setIndex(bar);
    automation.setValue(value);
    return automation;
}

inline SoundAutomation soundChange(unsigned bar, const char *sound = "Organ")
{
    SoundAutomation automation(std::make_shared<Sound>(sound, MIDISound()));
    automation.setIndex(bar);
    return automation;
}

inline std::shared_ptr<Track> shortTrack()
{
    auto track = ScoreModel::createTrack(InstrumentSet::flute);
    track->addEmptyBars(2);
    return track;
}

inline const RhythmValue eighth(RhythmValue::NoteValue::Eighth, 1);

inline WrittenStretch writtenStretch(unsigned bar, unsigned voice, unsigned firstBeat,
                                     unsigned replaced)
{
    const auto beat = std::make_shared<Beat>(eighth);
    beat->addNote(std::make_shared<Note>(60));
    return {bar, voice, firstBeat, replaced, {beat, std::make_shared<Beat>(eighth)}};
}

/// A small score with something for every command to work on.
struct RichScore : SmallScore {
    RichScore()
    {
        model.insertAudioTrack(0, std::make_shared<AudioTrack>("Click"));
        model.insertAudioTrack(1, std::make_shared<AudioTrack>("Band"));
        addSounds(*model.track(1));
        model.setTrackGroups({{0, 1, "Band", GroupSymbol::Bracket, true},
                              {1, 1, "Keys", GroupSymbol::Brace, false}});
        model.masterTrack()->insertAutomation(tempo(0, 100).cloneAutomation());
        model.masterTrack()->insertAutomation(tempo(2, 120).cloneAutomation());
        model.track(1)->mutableAutomations().insertAutomation(
            soundChange(1, "Strings").cloneAutomation());
        model.track(0)->bar(5)->setSimileMark(SimileMark::Simple);
        model.track(1)->bar(2)->setClefChanges({{utils::rational(2), ClefType::F4}});
        model.masterTrack()->setDirection(static_cast<int>(DirectionMark::Coda), 3);
        model.masterTrack()->setDirection(static_cast<int>(DirectionMark::DoubleCoda), 2);
        model.masterTrack()->masterBar(5)->setFurtherDirections(
            directionBit(DirectionMark::DaCapo) | directionBit(DirectionMark::Segno));
        model.track(0)->bar(2)->setSimileMark(SimileMark::Simple);
        model.track(0)->staff(0)->setPartialCapoFret(3);
        model.track(0)->staff(0)->setPartialCapoStringFlags(
            {true, false, false, true, false, false});
        model.track(0)->staff(0)->setChordWorkingSet({"Fmaj7"});
        model.track(0)->staff(0)->setDiagramWorkingSet({{"F", 1, {1, 3, 3, 2, 1, 1}, {}}});
        model.masterTrack()->masterBars()[4]->setMovementStart(true);
        model.masterTrack()->masterBars()[5]->setBeamGroups(BeamGroups({1, 3}));
        beat(0, 1).setDynamic(NoteDynamic::Value::P);
        addLinks();
        beat(0, 3).setChord({"Em7", nullptr});
        beat(1, 1).setLyrics({{0, Syllabic::Single, false, "la"}});
        score.scoreCursor().setIndex(at(5, -1, 1));
    }

    /// A piano and an organ with effects; the track switches to the piano, and yet plays the organ.
    static void addSounds(Track &track)
    {
        const auto piano = std::make_shared<Sound>("Piano", MIDISound());
        piano->mutableOrkaSound().mutableEffectChain().setEffect(0, Effect("eq", "EQ", {0.5F}));
        piano->mutableOrkaSound().mutableEffectChain().setEffect(2, Effect("echo", "Echo", {}));
        const auto organ = std::make_shared<Sound>("Organ", MIDISound());
        organ->mutableOrkaSound().mutableEffectChain().setEffect(0, Effect("drive", "Drive", {1}));
        track.addSound(piano);
        track.addSound(organ);
        track.setForcedSoundIndex(1);
        auto change = std::make_unique<SoundAutomation>(piano);
        change->setIndex(1);
        change->setPosition(2);
        track.mutableAutomations().insertAutomation(std::move(change));
    }

    /// A slur from bar 0 to bar 2, a crescendo under it, and in another voice of bar 3 two notes of
    /// one string.
    void addLinks()
    {
        for (unsigned i = 3; i < 8; ++i) {
            beat(i / 4, i % 4).setSlurredToNext(true);
            beat((i + 1) / 4, (i + 1) % 4).setSlurredToPrevious(true);
        }
        for (unsigned i = 5; i < 10; ++i)
            beat(i / 4, i % 4).setHairpin(Hairpin::Crescendo);
        Voice &second = *model.track(0)->bar(3)->ensureVoice(2);
        for (const int fret : {5, 7}) {
            addBeat(second, {3});
            second.beats().back()->notes()[0]->setFret(fret);
            second.beats().back()->notes()[0]->setMidi(67 + fret);
        }
    }
};

} // namespace rich
