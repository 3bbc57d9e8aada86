// SPDX-License-Identifier: MIT
#include "RandomOperations.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnTone.h>
#include <ZarnCore/score/ZarnScore.h>

using namespace zarn;

namespace {

/// A drum kit of a few places, for tests that run without the catalogue.
void installDrumKit()
{
    if (InstrumentSetLibrary::installed() != nullptr)
        return;
    static InstrumentSetLibrary library;
    InstrumentSet kit(InstrumentSet::drumKit);
    std::vector<InstrumentArticulation> articulations(8);
    for (int i = 0; i < 8; ++i) {
        articulations[static_cast<std::size_t>(i)].setInputMidiNumbers({36 + i, 60});
        articulations[static_cast<std::size_t>(i)].setOutputMidiNumber(36 + i / 2);
        articulations[static_cast<std::size_t>(i)].setStaffLine(i / 2 * 3 - 1);
    }
    kit.setArticulations(std::move(articulations));
    library.setInstrumentSets({std::make_shared<const InstrumentSet>(kit)});
    InstrumentSetLibrary::install(&library);
}

/// Mostly the notes of a beat or of some, at times one by its string.
ScoreModelRange notes(EditedScore &e)
{
    if (e.random.percent(30))
        return e.places.range();
    ScoreModelIndex place = e.places.beat();
    if (e.random.coin())
        return ScoreModelRange(place, SelectionMode::MultiSelection);
    place.setNoteString(e.random.below(6));
    return ScoreModelRange(place);
}

/// Looks a few times for a beat of percussion.
ScoreModelIndex drumBeat(EditedScore &e)
{
    ScoreModelIndex place = e.places.beat();
    for (int i = 0; i < 8 && !InstrumentSet::isUnpitched(place.type()); ++i)
        place = e.places.beat();
    return place;
}

ScoreModelRange drumNotes(EditedScore &e)
{
    return ScoreModelRange(drumBeat(e), SelectionMode::MultiSelection);
}

RhythmValue::TupletRatio ratio(EditedScore &e)
{
    static constexpr RhythmValue::TupletRatio ratios[] = {{0, 0}, {3, 2}, {5, 4}, {7, 4}, {3, 1}};
    return ratios[e.random.below(std::size(ratios))];
}

Shift shift(EditedScore &e)
{
    return e.random.coin() ? Shift::Up : Shift::Down;
}

int semitones(EditedScore &e, int most)
{
    return e.random.percent(50) ? e.random.between(-2, 2) : e.random.between(-most - 1, most + 1);
}

PitchClass spellingOf(EditedScore &e, int midi)
{
    return PitchClass::fromTone(Tone(midi + (e.random.percent(5) ? 1 : 0)), e.random.coin());
}

const std::vector<RandomOperation> operations = {
    {"setBeatTuplet", 2,
     [](EditedScore &e) {
         return e.score.setBeatTuplet(e.places.range(), ratio(e),
                                      e.random.percent(20) ? ratio(e)
                                                           : RhythmValue::TupletRatio(0, 0));
     }},
    {"incrementBeatDuration", 2,
     [](EditedScore &e) {
         return e.score.incrementBeatDuration(e.places.range(), e.random.between(-3, 3));
     }},
    {"setNoteDuration", 2,
     [](EditedScore &e) {
         return e.score.setNoteDuration(e.places.range(),
                                        static_cast<RhythmValue::NoteValue>(e.random.below(12)));
     }},
    {"setNoteAugmentationDot", 2,
     [](EditedScore &e) {
         return e.score.setNoteAugmentationDot(e.places.range(), e.random.below(5));
     }},
    {"setNoteDurationAndVelocity", 2,
     [](EditedScore &e) {
         return e.score.setNoteDurationAndVelocity(
             e.places.beat(), RhythmValue(RhythmValue::NoteValue::Eighth, e.random.below(2)),
             e.random.below(129));
     }},
    {"setMIDINoteSpelled", 3,
     [](EditedScore &e) {
         const int midi = e.random.between(36, 96);
         return e.score.setMIDINote(e.places.beat(), midi, spellingOf(e, midi));
     }},
    {"setNoteMidiForString", 4,
     [](EditedScore &e) {
         return e.score.setNoteMidiForString(e.places.beat(), e.random.between(0, 6),
                                             e.random.between(50, 84));
     }},
    {"createNonPitchedNote", 4,
     [](EditedScore &e) {
         return e.score.createNonPitchedNote(drumBeat(e), e.random.between(-1, 8));
     }},
    {"createNonPitchedNoteOnLine", 4,
     [](EditedScore &e) {
         return e.score.createNonPitchedNote(drumBeat(e), e.random.between(35, 44),
                                             e.random.between(0, 4));
     }},
    {"removeNonPitchedNote", 4,
     [](EditedScore &e) {
         const ScoreModelIndex place = drumBeat(e);
         const auto beat = place.beat();
         const auto note = beat != nullptr && beat->hasNotes()
             ? beat->notes()[e.random.below(beat->noteCount())]
             : nullptr;
         return e.score.removeNonPitchedNote(place, note != nullptr ? note->midi() : 36,
                                             note != nullptr ? note->string() : 0);
     }},
    {"setStringedNoteFret", 4,
     [](EditedScore &e) {
         return e.score.setStringedNoteFret(notes(e), e.random.between(-1, 25));
     }},
    {"shiftOneString", 6,
     [](EditedScore &e) { return e.score.shiftOneString(notes(e), shift(e)); }},
    {"shiftOneElement", 4,
     [](EditedScore &e) { return e.score.shiftOneElement(drumNotes(e), shift(e)); }},
    {"shiftSemitone", 6,
     [](EditedScore &e) { return e.score.shiftSemitone(notes(e), semitones(e, 12)); }},
    {"setNoteSoundingAccidental", 3,
     [](EditedScore &e) {
         return e.score.setNoteSoundingAccidental(
             notes(e), static_cast<NoteAccidental::Value>(e.random.below(6)));
     }},
    {"switchNoteAccidental", 3,
     [](EditedScore &e) { return e.score.switchNoteAccidental(notes(e)); }},
    {"letRingAssistant", 2,
     [](EditedScore &e) {
         return e.score.letRingAssistant(e.places.range(), e.random.below(64), e.random.coin());
     }},
    {"palmMuteAssistant", 2,
     [](EditedScore &e) {
         return e.score.palmMuteAssistant(e.places.range(), e.random.below(64), e.random.coin());
     }},
    {"setTrackTranspositionOffset", 2,
     [](EditedScore &e) {
         return e.score.setTrackTranspositionOffset(e.places.track(), semitones(e, 24));
     }},
    {"transposeTrack", 2,
     [](EditedScore &e) {
         return e.score.transposeTrack(e.places.track(), semitones(e, 24),
                                       e.random.percent(30) ? Refingering::FindAnew
                                                            : Refingering::KeepStrings);
     }},
    {"transposeAllTracks", 1,
     [](EditedScore &e) { return e.score.transposeAllTracks(semitones(e, 24), e.random.coin()); }},
};

} // namespace

const std::vector<RandomOperation> &randomPitchOperations()
{
    installDrumKit();
    return operations;
}
