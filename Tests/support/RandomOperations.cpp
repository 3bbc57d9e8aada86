// SPDX-License-Identifier: MIT
#include "RandomOperations.h"

#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <limits>

using namespace zarn;

EditedScore::EditedScore(Score &edited, Random &numbers)
    : score(edited), random(numbers), places(edited.scoreModel(), numbers),
      firstBarCount(edited.scoreModel()->masterTrack()->masterBarCount()),
      firstTrackCount(edited.trackCount())
{
}

namespace {

using Automations = std::vector<const Automation *>;

QString text(Random &random)
{
    static const char *const words[] = {"",  "Intro",  "Verse %0",     "Ritornello %1;{a:b}",
                                        "A", "\"q\\n", "\xC3\xA9tude", "\xF0\x9D\x84\x9E"};
    return QString::fromUtf8(words[random.below(std::size(words))]);
}

InstrumentSet::Type instrument(Random &random)
{
    static constexpr InstrumentSet::Type types[] = {
        InstrumentSet::steelGuitar, InstrumentSet::electricBass, InstrumentSet::banjo,
        InstrumentSet::violin,      InstrumentSet::chordophone,  InstrumentSet::clarinet,
        InstrumentSet::drumKit,     InstrumentSet::unknown};
    return types[random.below(std::size(types))];
}

RhythmValue rhythm(Random &random)
{
    RhythmValue value(static_cast<RhythmValue::NoteValue>(random.below(11)), random.below(5));
    if (random.percent(20))
        value.setPrimaryTupletRatio({3, 2});
    if (random.percent(5))
        value.setSecondaryTupletRatio({static_cast<std::uint8_t>(random.below(8)), 4});
    return value;
}

void setPlace(EditedScore &e, Automation &automation)
{
    automation.setIndex(e.places.bar());
    automation.setPosition(static_cast<float>(e.random.between(-1, 12)) / 4);
    automation.setLinear(e.random.coin());
    automation.setText(text(e.random).toStdString());
    automation.setVisible(e.random.coin());
}

Automation::Type parameter(Random &random)
{
    return static_cast<Automation::Type>(Automation::DSPParam_00 + random.below(3));
}

/// One that a container holds, or none.
void addFound(EditedScore &e, const AutomationContainer &container, Automation::Type type,
              Automations &found)
{
    const auto all = container.automations(type);
    if (!all.empty())
        found.push_back(all[e.random.below(all.size())]);
}

bool modifyMasterTrackAutomations(EditedScore &e)
{
    TempoAutomation tempo;
    setPlace(e, tempo);
    tempo.setValue(static_cast<float>(e.random.between(30, 240)));
    tempo.setUnit(e.random.between(0, 5));
    DSPParamAutomation knob(parameter(e.random));
    setPlace(e, knob);
    knob.setValue(e.random.percent(2) ? std::numeric_limits<float>::infinity() : 0.25F);
    Automations removed;
    Automations inserted;
    if (e.random.percent(40))
        addFound(e, *e.score.masterTrack(), Automation::Tempo, removed);
    if (e.random.percent(20))
        addFound(e, *e.score.masterTrack(), knob.type(), removed);
    if (e.random.percent(60))
        inserted.push_back(&tempo);
    if (e.random.percent(40))
        inserted.push_back(&knob);
    return e.score.modifyMasterTrackAutomations(removed, inserted);
}

bool modifyTrackAutomations(EditedScore &e)
{
    const unsigned number = e.places.track();
    SoundAutomation sound(std::make_shared<const Sound>("Organ", MIDISound()));
    setPlace(e, sound);
    DSPParamAutomation knob(parameter(e.random));
    setPlace(e, knob);
    knob.setValue(static_cast<float>(e.random.below(4)));
    Automations removed;
    Automations inserted;
    if (const auto track = e.score.track(number)) {
        if (e.random.percent(30))
            addFound(e, track->automations(), Automation::Sound, removed);
        if (e.random.percent(30))
            addFound(e, track->automations(), knob.type(), removed);
    }
    if (e.random.percent(50))
        inserted.push_back(&sound);
    if (e.random.percent(50))
        inserted.push_back(&knob);
    return e.score.modifyTrackAutomations(number, removed, inserted);
}

bool createBars(EditedScore &e)
{
    const unsigned room = e.firstBarCount + 40;
    const unsigned most = e.places.barCount() < room ? (e.random.percent(5) ? 20 : 4) : 1;
    const unsigned count = e.random.percent(2) ? 0 : 1 + e.random.below(most);
    return e.score.createBars(e.places.index(e.places.barCount() + 1), count);
}

bool removeBarRange(EditedScore &e)
{
    // A score that has become short is left to grow again.
    if (e.places.barCount() <= e.firstBarCount / 2 && !e.random.percent(3))
        return false;
    const auto bars = e.places.bars(e.random.percent(10) ? 12 : 3);
    return e.score.removeBarRange(bars.first, bars.second);
}

bool createTrack(EditedScore &e)
{
    if (e.score.trackCount() > e.firstTrackCount + 2)
        return e.score.removeTrack(e.places.track());
    return e.score.createTrack(e.places.index(e.score.trackCount() + 1), instrument(e.random));
}

bool insertTrack(EditedScore &e)
{
    if (e.score.trackCount() > e.firstTrackCount + 2)
        return false;
    auto track = ScoreModel::createTrack(instrument(e.random));
    track->addEmptyBars(e.random.below(5));
    track->setName("inserted");
    return e.score.insertTrack(e.places.index(e.score.trackCount() + 1),
                               e.random.percent(3) ? nullptr : track);
}

bool removeTrack(EditedScore &e)
{
    return e.score.trackCount() > e.firstTrackCount && e.score.removeTrack(e.places.track());
}

bool setGuitarFullTuning(EditedScore &e)
{
    std::vector<unsigned> pitches;
    const unsigned count = e.random.percent(5) ? 13 : e.random.below(8);
    for (unsigned i = 0; i < count; ++i)
        pitches.push_back(28 + 5 * i + e.random.below(3));
    const unsigned track = e.places.track();
    return e.score.setGuitarFullTuning(track, e.places.staffOf(track), GuitarTuning(pitches),
                                       e.random.percent(70) ? 0 : e.random.below(30),
                                       e.random.coin() ? Retuning::KeepFrets
                                                       : Retuning::KeepPitches);
}

bool setMIDINote(EditedScore &e)
{
    ScoreModelIndex place = e.places.beat();
    const auto beat = place.beat();
    if (beat != nullptr && beat->hasNotes() && e.random.percent(30)) {
        const auto &note = *beat->notes()[e.random.below(beat->noteCount())];
        place.setNoteMidi(static_cast<std::uint32_t>(note.midi()));
        place.setNoteString(note.string() >= 0 ? static_cast<std::uint32_t>(note.string()) : 0);
    }
    return e.score.setMIDINote(place, e.random.between(e.random.percent(3) ? -2 : 36, 96));
}

bool setStringedNote(EditedScore &e)
{
    // A fretted staff is worth a few looks: many scores have one among many.
    ScoreModelIndex place = e.places.beat();
    for (int i = 0; i < 3 && place.staff() != nullptr && !place.staff()->isFretted(); ++i)
        place = e.places.beat();
    return e.score.setStringedNote(place, e.random.between(0, 6),
                                   e.random.between(e.random.percent(5) ? -2 : 0, 26));
}

bool automaticFingerPositioning(EditedScore &e)
{
    fingering::FingeringOptions options;
    options.given = static_cast<fingering::GivenStrings>(e.random.below(3));
    options.openStrings = static_cast<fingering::OpenStrings>(e.random.below(2));
    options.fingers = static_cast<fingering::LeftFingers>(e.random.below(2));
    if (e.random.percent(30)) {
        options.lowestFret = e.random.between(-1, 9);
        options.highestFret = e.random.between(0, 20);
    }
    return e.score.automaticFingerPositioning(e.places.range(), options);
}

template <class Operation>
bool onBars(EditedScore &e, Operation operation)
{
    const auto bars = e.places.bars(6);
    return operation(bars.first, bars.second);
}

/// One of the notes of a beat, or none that is there.
bool removeNote(EditedScore &e)
{
    ScoreModelIndex place = e.places.beat();
    const auto beat = place.beat();
    const auto note = beat != nullptr ? beat->note(e.places.index(beat->noteCount())) : nullptr;
    if (note != nullptr && note->string() != Note::Unset)
        place.setNoteString(static_cast<std::uint32_t>(note->string()));
    if (note != nullptr && note->midi() != Note::Unset)
        place.setNoteMidi(static_cast<std::uint32_t>(note->midi()));
    return e.score.removeNote(place);
}

const std::vector<RandomOperation> operations = {
    {"createBars", 4, createBars},
    {"removeBarRange", 4, removeBarRange},
    {"setClef", 3,
     [](EditedScore &e) {
         const unsigned track = e.places.track();
         const unsigned staff = e.places.staffOf(track);
         return onBars(e, [&](unsigned first, unsigned last) {
             return e.score.setClef(track, staff, first, last,
                                    static_cast<ClefType>(e.random.below(6)));
         });
     }},
    {"setMasterTimeSignature", 4,
     [](EditedScore &e) {
         const TimeSignature signature(e.random.below(13), e.random.percent(5) ? 3 : 8);
         return onBars(e, [&](unsigned first, unsigned last) {
             return e.score.setMasterTimeSignature(first, last, signature);
         });
     }},
    {"setMasterKeySignature", 3,
     [](EditedScore &e) {
         const KeySignature signature(e.random.between(-7, 7), e.random.coin(), e.random.coin());
         return onBars(e, [&](unsigned first, unsigned last) {
             return e.score.setMasterKeySignature(first, last, signature);
         });
     }},
    {"setMasterTripletFeel", 2,
     [](EditedScore &e) {
         const auto feel = static_cast<TripletFeel>(e.random.below(8));
         return onBars(e, [&](unsigned first, unsigned last) {
             return e.score.setMasterTripletFeel(first, last, feel);
         });
     }},
    {"setMasterBarFreeTime", 2,
     [](EditedScore &e) {
         return onBars(e, [&](unsigned first, unsigned last) {
             return e.score.setMasterBarFreeTime(first, last, e.random.coin());
         });
     }},
    {"setMasterBarDoubleBar", 2,
     [](EditedScore &e) { return e.score.setMasterBarDoubleBar(e.places.bar(), e.random.coin()); }},
    {"setBarRepeatStart", 2,
     [](EditedScore &e) { return e.score.setBarRepeatStart(e.places.bar(), e.random.coin()); }},
    {"setMasterBarMovementStart", 2,
     [](EditedScore &e) {
         return e.score.setMasterBarMovementStart(e.places.bar(), e.random.percent(70));
     }},
    {"setBarRepeatEnd", 2,
     [](EditedScore &e) { return e.score.setBarRepeatEnd(e.places.bar(), e.random.below(4)); }},
    {"setBarAlternateEndings", 2,
     [](EditedScore &e) {
         return onBars(e, [&](unsigned first, unsigned last) {
             return e.score.setBarAlternateEndings(first, last, e.random.below(8));
         });
     }},
    {"setBarDirection", 3,
     [](EditedScore &e) {
         const auto mark = static_cast<DirectionMark>(e.random.below(20));
         return e.score.setBarDirection(
             mark, e.random.percent(20) ? -1 : static_cast<int>(e.places.bar()));
     }},
    {"setBarDirections", 1,
     [](EditedScore &e) {
         std::set<DirectionMark> marks;
         for (unsigned i = e.random.below(4); i > 0; --i)
             marks.insert(static_cast<DirectionMark>(e.random.below(20)));
         return e.score.setBarDirections(static_cast<int>(e.places.bar()), marks);
     }},
    {"setMasterBarSection", 2,
     [](EditedScore &e) {
         return e.score.setMasterBarSection(e.places.bar(), text(e.random), text(e.random));
     }},
    {"unsetMasterBarSection", 1,
     [](EditedScore &e) { return e.score.unsetMasterBarSection(e.places.bar()); }},
    {"createTrack", 1, createTrack},
    {"insertTrack", 1, insertTrack},
    {"removeTrack", 1, removeTrack},
    {"setTrackName", 1,
     [](EditedScore &e) { return e.score.setTrackName(e.places.track(), text(e.random)); }},
    {"setTrackShortName", 1,
     [](EditedScore &e) { return e.score.setTrackShortName(e.places.track(), text(e.random)); }},
    {"setTrackIcon", 1,
     [](EditedScore &e) {
         return e.score.setTrackIcon(e.places.track(), static_cast<ZarnIconID>(e.random.below(28)));
     }},
    {"setGuitarFullTuning", 1, setGuitarFullTuning},
    {"createAudioTrack", 1,
     [](EditedScore &e) {
         const unsigned count = e.score.scoreModel()->audioTrackCount();
         return e.score.createAudioTrack(
             e.places.index(count + 1), std::make_shared<AudioTrack>(text(e.random).toStdString()));
     }},
    {"removeAudioTrack", 1,
     [](EditedScore &e) {
         return e.score.removeAudioTrack(e.places.index(e.score.scoreModel()->audioTrackCount()));
     }},
    {"setAudioTrack", 1,
     [](EditedScore &e) {
         const auto &tracks = e.score.scoreModel()->audioTracks();
         const unsigned index = e.places.index(static_cast<unsigned>(tracks.size()));
         AudioTrack track = index < tracks.size() ? *tracks[index] : AudioTrack();
         switch (e.random.below(5)) {
         case 0:
             track.setFilePath(text(e.random).toStdString());
             break;
         case 1:
             track.setStartOffset(static_cast<int>(e.random.below(20'000)) - 10'000);
             break;
         case 2:
             track.setVolume(static_cast<float>(e.random.below(41)) / 20);
             break;
         case 3:
             track.setPan(static_cast<float>(e.random.below(41)) / 20 - 1);
             break;
         default:
             track.setMuted(!track.isMuted());
         }
         return e.score.setAudioTrack(index, track);
     }},
    {"modifyMasterTrackAutomations", 4, modifyMasterTrackAutomations},
    {"modifyTrackAutomations", 4, modifyTrackAutomations},
    {"modifyMasterTrackAutomationBypass", 1,
     [](EditedScore &e) {
         return e.score.modifyMasterTrackAutomationBypass(Automation::Tempo, e.random.coin());
     }},
    {"modifyTrackAutomationBypass", 1,
     [](EditedScore &e) {
         return e.score.modifyTrackAutomationBypass(e.places.track(), parameter(e.random),
                                                    e.random.coin());
     }},
    {"changeProperty", 1,
     [](EditedScore &e) {
         return e.score.changeProperty(static_cast<ScoreProperty>(e.random.below(12)),
                                       text(e.random));
     }},
    {"changeProperties", 1,
     [](EditedScore &e) {
         std::map<ScoreProperty, QString> texts;
         for (unsigned i = e.random.below(4); i > 0; --i)
             texts[static_cast<ScoreProperty>(e.random.below(11))] = text(e.random);
         return e.score.changeProperties(texts);
     }},
    {"changeHeaderAndFooter", 1,
     [](EditedScore &e) {
         return e.score.changeHeaderAndFooter(static_cast<HeaderAndFooter>(e.random.below(13)),
                                              text(e.random));
     }},
    {"setConcertTone", 1,
     [](EditedScore &e) { return e.score.setConcertTone(e.random.between(210, 500)); }},
    {"createBeat", 24,
     [](EditedScore &e) { return e.score.createBeat(e.places.gap(), rhythm(e.random)); }},
    {"removeBeats", 4, [](EditedScore &e) { return e.score.removeBeats(e.places.range()); }},
    {"setBeatRhythm", 7,
     [](EditedScore &e) { return e.score.setBeatRhythm(e.places.range(), rhythm(e.random)); }},
    {"setBeatDynamic", 5,
     [](EditedScore &e) {
         const auto value = static_cast<NoteDynamic::Value>(e.random.below(18));
         return e.score.setBeatDynamic(e.places.range(), value);
     }},
    {"setStringedNote", 30, setStringedNote},
    {"setMIDINote", 30, setMIDINote},
    {"automaticFingerPositioning", 3, automaticFingerPositioning},
    {"removeNote", 3, removeNote},
    {"setNoteRest", 3, [](EditedScore &e) { return e.score.setNoteRest(e.places.range()); }},
};

} // namespace

const std::vector<RandomOperation> &randomOperations()
{
    static const std::vector<RandomOperation> all = [] {
        std::vector<RandomOperation> list = operations;
        for (const auto *more :
             {&randomMarkOperations(), &randomPitchOperations(), &randomSoundOperations(),
              &randomLinkOperations(), &randomStructureOperations(), &randomLayoutOperations(),
              &randomWordOperations()})
            list.insert(list.end(), more->begin(), more->end());
        return list;
    }();
    return all;
}
