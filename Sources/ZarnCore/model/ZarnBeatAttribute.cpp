// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnBeatAttribute.h>

#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/model/AttributeRows.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/notes/Ties.h>

#include <algorithm>

namespace zarn {

namespace {

using Id = BeatAttribute;
using Row = BeatAttributeRow;

/// Numbers of the published events.
constexpr unsigned contentChanged = 55;
constexpr unsigned timerChanged = 64;

constexpr unsigned longestText = 1000;

// What a row says beside its accessors; each returns the row with its part.

template <auto Get, auto Set>
constexpr Row row(Id id, std::string_view name, std::string_view key, const AttributeRange &range,
                  Split split = Split::First)
{
    auto row = rowOf<Row, Get, Set>(id, name, key, range);
    row.event = id == Id::Timer ? timerChanged : contentChanged;
    row.split = split;
    return row;
}

constexpr Row excluding(BeatAttributeSet others, Row row)
{
    row.excludes = others;
    return row;
}
constexpr Row excludingOnNotes(NoteAttributeSet others, Row row)
{
    row.excludesOnNotes = others;
    return row;
}
constexpr Row fretted(Row row)
{
    row.staves = OnStaves::Fretted;
    return row;
}
constexpr Row withNotes(unsigned least, Row row)
{
    row.leastNotes = least;
    return row;
}
constexpr Row linking(Row row)
{
    row.isLink = true;
    return row;
}
constexpr Row where(bool (*accepts)(const Staff &, const Beat &, const AttributeValue &), Row row)
{
    row.accepts = accepts;
    return row;
}

/// Strokes of a tremolo are shorter than the beat is, and a grace beat has no time for any.
bool isSlowerThanTremolo(const Staff &, const Beat &beat, const AttributeValue &speed)
{
    const int stroke = static_cast<int>(RhythmValue::NoteValue::Eighth) + speed.to<int>() - 1;
    return !beat.isGrace() && stroke > static_cast<int>(beat.rhythmValue().getNoteValue());
}

bool hasStringsOfBarre(const Staff &staff, const Beat &, const AttributeValue &value)
{
    const auto barre = value.to<Barre>();
    return barre.fret <= staff.fretCount()
        && static_cast<unsigned>(barre.strings) >> staff.tuning().stringCount() == 0;
}

/// Strings that are played or not, and fingers that a hand has.
bool canBeHeld(const ChordDiagram &diagram)
{
    constexpr std::uint8_t thumb = 5;
    return std::all_of(diagram.frets.begin(), diagram.frets.end(),
                       [](std::int8_t fret) { return fret >= -1; })
        && diagram.fingers.size() <= diagram.frets.size()
        && std::all_of(diagram.fingers.begin(), diagram.fingers.end(),
                       [](std::uint8_t finger) { return finger <= thumb; });
}

bool hasStringsOfDiagram(const Staff &staff, const Beat &, const AttributeValue &value)
{
    const auto chord = value.to<ChordMark>();
    return !chord.diagram
        || (chord.diagram->frets.size() == staff.tuning().stringCount()
            && canBeHeld(*chord.diagram));
}

const Beat *nextOf(const Beat &beat)
{
    const auto voice = beat.parentVoice();
    return voice ? beatBehindJoint(*voice, beat.index() + 1) : nullptr;
}

bool hasNext(const Staff &, const Beat &beat, const AttributeValue &)
{
    return nextOf(beat) != nullptr;
}
bool hasPrevious(const Staff &, const Beat &beat, const AttributeValue &)
{
    const auto voice = beat.parentVoice();
    return voice && beatInFrontOfJoint(*voice, beat.index());
}
bool canBeginSlur(const Staff &, const Beat &beat, const AttributeValue &)
{
    return beat.isSlurredToNext();
}
bool isUnderSlur(const Staff &, const Beat &beat, const AttributeValue &)
{
    return beat.isSlurredToNext() || beat.isSlurredToPrevious();
}
bool hasLevel(const Staff &, const Beat &beat, const AttributeValue &)
{
    return beat.dynamic() != NoteDynamic() || beat.attackDynamic() != AttackDynamic::None;
}
bool hasHairpin(const Staff &, const Beat &beat, const AttributeValue &)
{
    return beat.hairpin() != Hairpin::NoHairpin;
}
bool hasNoNotes(const Staff &, const Beat &beat, const AttributeValue &)
{
    return !beat.hasNotes();
}
bool hasTremoloPartner(const Staff &, const Beat &beat, const AttributeValue &)
{
    const auto next = nextOf(beat);
    return next && next->hasNotes();
}

bool isNoGrace(const Staff &, const Beat &beat, const AttributeValue &)
{
    return !beat.isGrace();
}

constexpr std::array<Row, BeatAttributeCount> rows = {{
    row<&Beat::rhythmValue, &Beat::setRhythmValue>(Id::Rhythm, "Rhythm", "", anyOf<RhythmValue>()),
    excluding({Id::Tremolo},
              excludingOnNotes({NoteAttribute::Trill},
                               withNotes(1,
                                         row<&Beat::graceType, &Beat::setGraceType>(
                                             Id::GraceType, "GraceType", "",
                                             enumerators<graceTypeToString, 2>())))),
    row<&Beat::isSlashedGrace, &Beat::setSlashedGrace>(Id::SlashedGrace, "SlashedGrace", "",
                                                       anyOf<bool>()),
    row<&Beat::isPlaceHolder, &Beat::setPlaceHolder>(Id::PlaceHolder, "PlaceHolder", "",
                                                     anyOf<bool>(), Split::All),
    row<&Beat::isWholeBarRest, &Beat::setWholeBarRest>(Id::WholeBarRest, "WholeBarRest", "",
                                                       anyOf<bool>(), Split::Cut),
    row<&Beat::dynamic, &Beat::setDynamic>(Id::Dynamic, "Dynamic", "",
                                           enumerators<NoteDynamic::textOf, 16>()),
    row<&Beat::ottavia, &Beat::setOttavia>(Id::Ottavia, "Ottavia", "",
                                           enumerators<ottaviaToString, 4>(), Split::All),
    row<&Beat::text, &Beat::setText>(Id::Text, "Text", "", textsUpTo(longestText)),
    where(hasStringsOfDiagram,
          row<&Beat::chord, &Beat::setChord>(Id::Chord, "Chord", "", anyOf<ChordMark>())),
    linking(row<&Beat::hairpin, &Beat::setHairpin>(Id::Hairpin, "Hairpin", "hairpin",
                                                   enumerators<hairpinToString, 3>(), Split::Cut)),
    where(hasHairpin,
          linking(row<&Beat::beginsHairpin, &Beat::setHairpinBegins>(
              Id::HairpinBegins, "HairpinBegins", "hairpinBegins", anyOf<bool>()))),
    row<&Beat::fadding, &Beat::setFadding>(Id::Fadding, "Fadding", "fadding",
                                           enumerators<faddingToString, 3>(), Split::Cut),
    excluding({Id::Brush, Id::Arpeggio, Id::Rasgueado},
              excludingOnNotes({NoteAttribute::LeftTap},
                               withNotes(1,
                                         row<&Beat::pickStroke, &Beat::setPickStroke>(
                                             Id::PickStroke, "PickStroke", "pickStroke",
                                             enumerators<directionToString, 2>())))),
    excluding({Id::Arpeggio, Id::Rasgueado, Id::PickStroke},
              withNotes(2,
                        fretted(row<&Beat::brush, &Beat::setBrush>(Id::Brush, "Brush", "brush",
                                                                   anyOf<Strum>())))),
    excluding({Id::Brush, Id::Rasgueado, Id::PickStroke, Id::NonArpeggio},
              withNotes(2,
                        row<&Beat::arpeggio, &Beat::setArpeggio>(Id::Arpeggio, "Arpeggio",
                                                                 "arpeggio", anyOf<Strum>()))),
    excluding({Id::Brush, Id::Arpeggio, Id::PickStroke, Id::Tremolo},
              fretted(row<&Beat::rasgueado, &Beat::setRasgueado>(
                  Id::Rasgueado, "Rasgueado", "rasgueado", enumerators<rasgueadoToString, 19>()))),
    withNotes(
        1,
        fretted(row<&Beat::bassAttack, &Beat::setBassAttack>(
            Id::BassAttack, "BassAttack", "bassAttack", enumerators<bassAttackToString, 2>()))),
    fretted(row<&Beat::barVibrato, &Beat::setBarVibrato>(
        Id::BarVibrato, "BarVibrato", "barVibrato", enumerators<vibratoToString, 2>(), Split::All)),
    row<&Beat::wah, &Beat::setWah>(Id::Wah, "Wah", "wah", enumerators<wahWahToString, 2>()),
    fretted(row<&Beat::golpe, &Beat::setGolpe>(Id::Golpe, "Golpe", "golpe",
                                               enumerators<golpeToString, 2>())),
    where(hasNoNotes,
          fretted(row<&Beat::isDeadSlapped, &Beat::setDeadSlapped>(Id::DeadSlapped, "DeadSlapped",
                                                                   "deadSlapped", anyOf<bool>()))),
    row<&Beat::isSlashed, &Beat::setSlashed>(Id::Slashed, "Slashed", "slashes", anyOf<bool>(),
                                             Split::All),
    where(isSlowerThanTremolo,
          excluding(
              {Id::Rasgueado, Id::TremoloToNext},
              excludingOnNotes({NoteAttribute::Trill},
                               withNotes(1,
                                         row<&Beat::tremolo, &Beat::setTremolo>(
                                             Id::Tremolo, "Tremolo", "tremolo", numbers(0, 4)))))),
    row<&Beat::hasTimer, &Beat::setTimer>(Id::Timer, "Timer", "timer", anyOf<bool>()),
    row<&Beat::stemOrientation, &Beat::setStemOrientation>(
        Id::StemOrientation, "StemOrientation", "stem", enumerators<stemOrientationToString, 3>(),
        Split::All),
    row<&Beat::beamMode, &Beat::setBeamMode>(Id::BeamMode, "BeamMode", "beam",
                                             enumerators<beamModeToString, 2>(), Split::Last),
    where(hasNext,
          linking(row<&Beat::isSlurredToNext, &Beat::setSlurredToNext>(
              Id::SlurredToNext, "SlurredToNext", "slurToNext", anyOf<bool>(), Split::Cut))),
    where(hasPrevious,
          linking(row<&Beat::isSlurredToPrevious, &Beat::setSlurredToPrevious>(
              Id::SlurredToPrevious, "SlurredToPrevious", "slurToPrevious", anyOf<bool>(),
              Split::Cut))),
    where(canBeginSlur,
          linking(row<&Beat::beginsSlur, &Beat::setSlurBegins>(Id::SlurBegins, "SlurBegins",
                                                               "slurBegins", anyOf<bool>()))),
    fretted(row<&Beat::whammyBar, &Beat::setWhammyBar>(Id::WhammyBar, "WhammyBar", "whammyBar",
                                                       anyOf<WhammyBar>(), Split::Cut)),
    where(hasStringsOfBarre,
          fretted(row<&Beat::barre, &Beat::setBarre>(Id::Barre, "Barre", "barre", anyOf<Barre>(),
                                                     Split::All))),
    where(
        isNoGrace,
        withNotes(
            1, row<&Beat::lyrics, &Beat::setLyrics>(Id::Lyrics, "Lyrics", "", anyOf<Syllables>()))),
    row<&Beat::pedal, &Beat::setPedal>(Id::Pedal, "Pedal", "pedal",
                                       enumerators<pedalChangeToString, 3>()),
    row<&Beat::breath, &Beat::setBreath>(Id::Breath, "Breath", "breath",
                                         enumerators<breathSignToString, 2>(), Split::Last),
    row<&Beat::attackDynamic, &Beat::setAttackDynamic>(Id::AttackDynamic, "AttackDynamic", "attack",
                                                       enumerators<attackDynamicToString, 10>()),
    where(hasTremoloPartner,
          excluding(
              {Id::Tremolo},
              excludingOnNotes({NoteAttribute::Trill},
                               withNotes(1,
                                         linking(row<&Beat::tremoloToNext, &Beat::setTremoloToNext>(
                                             Id::TremoloToNext, "TremoloToNext", "tremoloToNext",
                                             numbers(0, 4), Split::Cut)))))),
    excluding({Id::Arpeggio},
              withNotes(2,
                        row<&Beat::isNonArpeggio, &Beat::setNonArpeggio>(
                            Id::NonArpeggio, "NonArpeggio", "nonArpeggio", anyOf<bool>()))),
    row<&Beat::isCue, &Beat::setCue>(Id::Cue, "Cue", "cue", anyOf<bool>(), Split::All),
    row<&Beat::slurEnds, &Beat::setSlurEnds>(Id::SlurEnds, "SlurEnds", "", anyOf<SlurEnds>(),
                                             Split::Cut),
    row<&Beat::textSpan, &Beat::setTextSpan>(Id::TextSpan, "TextSpan", "textSpan",
                                             enumerators<textSpanToString, 3>(), Split::Cut),
    where(isUnderSlur,
          row<&Beat::slurLine, &Beat::setSlurLine>(Id::SlurLine, "SlurLine", "slurLine",
                                                   enumerators<slurLineToString, 2>(), Split::All)),
    where(isUnderSlur,
          row<&Beat::slurSide, &Beat::setSlurSide>(Id::SlurSide, "SlurSide", "slurSide",
                                                   enumerators<markSideToString, 2>(), Split::All)),
    row<&Beat::textBelow, &Beat::setTextBelow>(Id::TextBelow, "TextBelow", "textBelow",
                                               textsUpTo(longestText)),
    where(hasLevel,
          row<&Beat::dynamicSide, &Beat::setDynamicSide>(
              Id::DynamicSide, "DynamicSide", "dynamicSide", enumerators<markSideToString, 2>())),
    where(hasHairpin,
          row<&Beat::hairpinSide, &Beat::setHairpinSide>(
              Id::HairpinSide, "HairpinSide", "hairpinSide", enumerators<markSideToString, 2>(),
              Split::All)),
}};
static_assert(areInOrder(rows));

/// Takes off what one attribute of the beat excludes.
template <class Note>
void takeOff(Beat &beat, const Row &row, Note named)
{
    if (!row.excludes.isEmpty())
        for (const Row &other : rows)
            if (row.excludes.has(other.id) && !other.isDefault(beat)) {
                named(other.name);
                reset(beat, other);
            }
    if (!row.excludesOnNotes.isEmpty())
        for (const NoteAttributeRow &other : noteAttributes()) {
            if (!row.excludesOnNotes.has(other.id))
                continue;
            for (const auto &note : beat.notes())
                if (!other.isDefault(*note)) {
                    named(other.name);
                    reset(*note, other);
                }
        }
}

} // namespace

const std::array<Row, BeatAttributeCount> &beatAttributes() noexcept
{
    return rows;
}

void setAttribute(Beat &beat, BeatAttribute id, const AttributeValue &value)
{
    const Row &row = rowOf(id);
    row.set(beat, value);
    if (!row.isDefault(beat))
        takeOff(beat, row, [](std::string_view) {});
}

std::vector<std::string_view> mendExclusions(Beat &beat)
{
    std::vector<std::string_view> names;
    const auto take = [&names](std::string_view name) { names.push_back(name); };
    for (const Row &row : rows)
        if (!row.isDefault(beat))
            takeOff(beat, row, take);
    for (const auto &note : beat.notes()) {
        for (const NoteAttributeRow &row : noteAttributes()) {
            if (row.excludes.isEmpty() || row.isDefault(*note))
                continue;
            for (const NoteAttributeRow &other : noteAttributes())
                if (row.excludes.has(other.id) && !other.isDefault(*note)) {
                    take(other.name);
                    reset(*note, other);
                }
        }
    }
    return names;
}

} // namespace zarn
