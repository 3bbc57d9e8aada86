// SPDX-License-Identifier: MIT
#include "RandomAttribute.h"
#include "RandomOperations.h"

#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

using namespace zarn;

namespace {

AttributeValue value(EditedScore &e, const AttributeRange &range)
{
    return test::RandomAttribute([&e](unsigned count) { return e.random.below(count); })
        .value(range);
}

/// A value of an attribute as its own operation takes it.
template <class T, class Id>
T drawn(EditedScore &e, Id id)
{
    return value(e, rowOf(id).range).template to<T>();
}

BeatAttribute beatAttribute(EditedScore &e)
{
    return static_cast<BeatAttribute>(
        e.random.below(BeatAttributeCount + (e.random.percent(2) ? 1 : 0)));
}

AttributeValue valueOf(EditedScore &e, BeatAttribute id)
{
    return static_cast<unsigned>(id) < BeatAttributeCount ? value(e, rowOf(id).range)
                                                          : AttributeValue(3);
}

/// Mostly a stretch, at times one note by its string.
ScoreModelRange notes(EditedScore &e)
{
    ScoreModelRange range = e.places.range();
    if (e.random.percent(30)) {
        ScoreModelIndex place = range.first();
        place.setNoteString(e.random.below(6));
        range = ScoreModelRange(place);
    }
    return range;
}

const std::vector<RandomOperation> operations = {
    {"setBeatFadding", 1,
     [](EditedScore &e) {
         return e.score.setBeatFadding(e.places.range(), drawn<Fadding>(e, BeatAttribute::Fadding));
     }},
    {"setBeatOttavia", 1,
     [](EditedScore &e) {
         return e.score.setBeatOttavia(e.places.range(), drawn<Ottavia>(e, BeatAttribute::Ottavia));
     }},
    {"setBeatTimer", 1,
     [](EditedScore &e) {
         return e.score.setBeatTimer(e.places.range(), drawn<bool>(e, BeatAttribute::Timer));
     }},
    {"setBeatSlashed", 1,
     [](EditedScore &e) {
         return e.score.setBeatSlashed(e.places.range(), drawn<bool>(e, BeatAttribute::Slashed));
     }},
    {"setBeatPickStroke", 1,
     [](EditedScore &e) {
         return e.score.setBeatPickStroke(e.places.range(),
                                          drawn<Direction>(e, BeatAttribute::PickStroke));
     }},
    {"setBeatRasgueado", 1,
     [](EditedScore &e) {
         return e.score.setBeatRasgueado(e.places.range(),
                                         drawn<RasgueadoType>(e, BeatAttribute::Rasgueado));
     }},
    {"setBeatGolpe", 1,
     [](EditedScore &e) {
         return e.score.setBeatGolpe(e.places.range(),
                                     drawn<ZarnGolpeType>(e, BeatAttribute::Golpe));
     }},
    {"setBeatTremolo", 1,
     [](EditedScore &e) {
         return e.score.setBeatTremolo(e.places.range(),
                                       drawn<unsigned>(e, BeatAttribute::Tremolo));
     }},
    {"setBeatBarre", 1,
     [](EditedScore &e) {
         return e.score.setBeatBarre(e.places.range(), drawn<Barre>(e, BeatAttribute::Barre));
     }},
    {"setStringedBeatBassAttack", 1,
     [](EditedScore &e) {
         return e.score.setStringedBeatBassAttack(e.places.range(),
                                                  drawn<BassAttack>(e, BeatAttribute::BassAttack));
     }},
    {"setStringedBeatVibrato", 1,
     [](EditedScore &e) {
         return e.score.setStringedBeatVibrato(e.places.range(),
                                               drawn<Vibrato>(e, BeatAttribute::BarVibrato));
     }},
    {"setStringedBeatWhammyBar", 1,
     [](EditedScore &e) {
         return e.score.setStringedBeatWhammyBar(e.places.range(),
                                                 drawn<WhammyBar>(e, BeatAttribute::WhammyBar));
     }},
    {"setWah", 1,
     [](EditedScore &e) {
         return e.score.setWah(e.places.range(), drawn<WahWah>(e, BeatAttribute::Wah));
     }},
    {"setStemOrientations", 1,
     [](EditedScore &e) {
         return e.score.setStemOrientations(
             e.places.range(), drawn<ZarnStemOrientation>(e, BeatAttribute::StemOrientation));
     }},
    {"setNoteVelocity", 1,
     [](EditedScore &e) {
         return e.score.setNoteVelocity(e.places.range(),
                                        drawn<unsigned>(e, NoteAttribute::Velocity));
     }},
    {"setNoteAntiAccent", 1,
     [](EditedScore &e) {
         return e.score.setNoteAntiAccent(e.places.range(),
                                          drawn<AntiAccent>(e, NoteAttribute::AntiAccent));
     }},
    {"setNoteOrnement", 1,
     [](EditedScore &e) {
         return e.score.setNoteOrnement(e.places.range(),
                                        drawn<Ornament>(e, NoteAttribute::Ornament));
     }},
    {"setNoteLetring", 1,
     [](EditedScore &e) {
         return e.score.setNoteLetring(e.places.range(), drawn<bool>(e, NoteAttribute::LetRing));
     }},
    {"setStringedNotePalmMute", 1,
     [](EditedScore &e) {
         return e.score.setStringedNotePalmMute(e.places.range(),
                                                drawn<bool>(e, NoteAttribute::PalmMute));
     }},
    {"setStringedNoteDead", 1,
     [](EditedScore &e) {
         return e.score.setStringedNoteDead(e.places.range(), drawn<bool>(e, NoteAttribute::Dead));
     }},
    {"setStringedNoteVibrato", 1,
     [](EditedScore &e) {
         return e.score.setStringedNoteVibrato(e.places.range(),
                                               drawn<Vibrato>(e, NoteAttribute::Vibrato));
     }},
    {"setStringedNoteLeftHandTapping", 1,
     [](EditedScore &e) {
         return e.score.setStringedNoteLeftHandTapping(e.places.range(),
                                                       drawn<bool>(e, NoteAttribute::LeftTap));
     }},
    {"setStringedNoteRightHandTapping", 1,
     [](EditedScore &e) {
         return e.score.setStringedNoteRightHandTapping(e.places.range(),
                                                        drawn<bool>(e, NoteAttribute::RightTap));
     }},
    {"setStringedNoteShowStringNumber", 1,
     [](EditedScore &e) {
         return e.score.setStringedNoteShowStringNumber(e.places.range(),
                                                        drawn<bool>(e, NoteAttribute::ShowString));
     }},
    {"setBeatAttribute", 12,
     [](EditedScore &e) {
         const BeatAttribute id = beatAttribute(e);
         return e.score.setBeatAttribute(e.places.range(), id, valueOf(e, id));
     }},
    {"setBeatAttributes", 4,
     [](EditedScore &e) {
         std::map<BeatAttribute, AttributeValue> values;
         for (unsigned i = e.random.below(4); i > 0; --i) {
             const BeatAttribute id = beatAttribute(e);
             values[id] = valueOf(e, id);
         }
         return e.score.setBeatAttributes(e.places.range(), values);
     }},
    {"switchBeatAttribute", 4,
     [](EditedScore &e) {
         return e.score.switchBeatAttribute(e.places.range(), beatAttribute(e));
     }},
    {"unsetBeatAttribute", 4,
     [](EditedScore &e) { return e.score.unsetBeatAttribute(e.places.range(), beatAttribute(e)); }},
    {"incrementBeatSecondaryAttribute", 8,
     [](EditedScore &e) {
         return e.score.incrementBeatSecondaryAttribute(e.places.range(), beatAttribute(e),
                                                        e.random.between(-3, 3));
     }},
    {"setBeatFreeText", 2,
     [](EditedScore &e) {
         const auto text = drawn<std::string>(e, BeatAttribute::Text);
         return e.score.setBeatFreeText(e.places.range(), QString::fromStdString(text));
     }},
    {"setBeatArpeggio", 6,
     [](EditedScore &e) {
         return e.score.setBeatArpeggio(e.places.range(), static_cast<Direction>(e.random.below(4)),
                                        e.random.below(4000));
     }},
    {"setBrush", 2,
     [](EditedScore &e) {
         return e.score.setBrush(e.places.range(), static_cast<Direction>(e.random.below(4)), 60,
                                 static_cast<StrumAnchor>(e.random.below(2)));
     }},
    {"setMasterBarAttribute", 6,
     [](EditedScore &e) {
         const auto id = static_cast<MasterBarAttribute>(e.random.below(MasterBarAttributeCount));
         const auto bars = e.places.bars(4);
         return e.score.setMasterBarAttribute(bars.first, bars.second, id,
                                              value(e, rowOf(id).range));
     }},
    {"setMasterBarAttributes", 3,
     [](EditedScore &e) {
         std::map<MasterBarAttribute, AttributeValue> values;
         for (unsigned i = e.random.below(4); i > 0; --i) {
             const auto id =
                 static_cast<MasterBarAttribute>(e.random.below(MasterBarAttributeCount));
             values[id] = value(e, rowOf(id).range);
         }
         const auto bars = e.places.bars(4);
         return e.score.setMasterBarAttributes(bars.first, bars.second, values);
     }},
    {"unsetMasterBarAttributes", 2,
     [](EditedScore &e) {
         std::set<MasterBarAttribute> ids;
         for (unsigned i = e.random.below(4); i > 0; --i)
             ids.insert(static_cast<MasterBarAttribute>(e.random.below(MasterBarAttributeCount)));
         const auto bars = e.places.bars(4);
         return e.score.unsetMasterBarAttributes(bars.first, bars.second, ids);
     }},
    {"setBarAttribute", 5,
     [](EditedScore &e) {
         const auto id = static_cast<BarAttribute>(e.random.below(BarAttributeCount));
         const unsigned track = e.places.track();
         const auto bars = e.places.bars(4);
         return e.score.setBarAttribute(track, e.places.staffOf(track), bars.first, bars.second, id,
                                        value(e, rowOf(id).range));
     }},
    {"setBarSimileMark", 3,
     [](EditedScore &e) {
         static constexpr SimileMark marks[] = {SimileMark::None, SimileMark::Simple,
                                                SimileMark::Double, SimileMark::FirstOfDouble};
         const unsigned track = e.places.track();
         const auto bars = e.places.bars(5);
         return e.score.setBarSimileMark(track, e.places.staffOf(track), bars.first, bars.second,
                                         marks[e.random.below(4)]);
     }},
    {"unsetBarAttributes", 2,
     [](EditedScore &e) {
         std::set<BarAttribute> ids;
         for (unsigned i = e.random.below(3); i > 0; --i)
             ids.insert(static_cast<BarAttribute>(e.random.below(BarAttributeCount)));
         const unsigned track = e.places.track();
         const auto bars = e.places.bars(4);
         return e.score.unsetBarAttributes(track, e.places.staffOf(track), bars.first, bars.second,
                                           ids);
     }},
    {"setNoteAttribute", 12,
     [](EditedScore &e) {
         const auto id = static_cast<NoteAttribute>(e.random.below(NoteAttributeCount));
         return e.score.setNoteAttribute(notes(e), id, value(e, rowOf(id).range));
     }},
    {"setNoteAccentFlag", 3,
     [](EditedScore &e) {
         return e.score.setNoteAccentFlag(
             notes(e), static_cast<AccentFlag>(1U << e.random.below(7)), e.random.coin());
     }},
    {"setNoteOrnament", 2,
     [](EditedScore &e) {
         return e.score.setNoteOrnament(notes(e), static_cast<Ornament>(e.random.below(6)),
                                        e.random.coin());
     }},
    {"setNoteTrill", 3,
     [](EditedScore &e) {
         return e.score.setNoteTrill(notes(e), e.random.percent(20) ? 0 : e.random.between(50, 80));
     }},
    {"setNoteFingering", 2,
     [](EditedScore &e) {
         return e.score.setNoteFingering(notes(e), e.random.coin() ? Hand::Left : Hand::Right,
                                         static_cast<Fingering>(e.random.below(8)));
     }},
    {"setStringedNoteBend", 4,
     [](EditedScore &e) {
         return e.score.setStringedNoteBend(notes(e), drawn<Bend>(e, NoteAttribute::Bend));
     }},
    {"setStringedNoteNaturalHarmonic", 8,
     [](EditedScore &e) {
         return e.score.setStringedNoteNaturalHarmonic(notes(e), e.random.percent(80),
                                                       e.random.below(14));
     }},
    {"setStringedNoteArtificialHarmonic", 2,
     [](EditedScore &e) {
         return e.score.setStringedNoteArtificialHarmonic(
             notes(e), static_cast<HarmonicType>(e.random.below(8)), e.random.below(14));
     }},
};

} // namespace

const std::vector<RandomOperation> &randomMarkOperations()
{
    return operations;
}
