// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnNoteAttribute.h>

#include <ZarnCore/model/AttributeRows.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/StringLinks.h>

namespace zarn {

namespace {

using Id = NoteAttribute;
using Row = NoteAttributeRow;

/// Number of the published event of beats and notes.
constexpr unsigned contentChanged = 55;

// What a row says beside its accessors; each returns the row with its part.

template <auto Get, auto Set>
constexpr Row row(Id id, std::string_view name, std::string_view key, const AttributeRange &range,
                  Split split = Split::First)
{
    auto row = rowOf<Row, Get, Set>(id, name, key, range);
    row.event = contentChanged;
    row.split = split;
    return row;
}

constexpr Row excluding(NoteAttributeSet others, Row row)
{
    row.excludes = others;
    return row;
}
constexpr Row excludingOnBeat(BeatAttributeSet others, Row row)
{
    row.excludesOnBeat = others;
    return row;
}
constexpr Row linking(Row row)
{
    row.isLink = true;
    return row;
}
constexpr Row on(OnStaves staves, Row row)
{
    row.staves = staves;
    return row;
}
constexpr Row fretted(Row row)
{
    return on(OnStaves::Fretted, row);
}
constexpr Row pitched(Row row)
{
    return on(OnStaves::Pitched, row);
}
constexpr Row
where(bool (*accepts)(const Staff &, const Beat &, const Note &, const AttributeValue &), Row row)
{
    row.accepts = accepts;
    return row;
}

bool leadsToNext(const Beat &beat, const Note &note, StringLink link)
{
    const auto voice = beat.parentVoice();
    return voice && canLeadToNext(*voice, beat.index(), note, link);
}
bool canHopo(const Staff &, const Beat &beat, const Note &note, const AttributeValue &)
{
    return leadsToNext(beat, note, StringLink::Hopo);
}
bool canSlide(const Staff &, const Beat &beat, const Note &note, const AttributeValue &value)
{
    const auto slide = value.to<SlideOut>();
    return (slide != SlideOut::Shift && slide != SlideOut::Legato)
        || leadsToNext(beat, note, StringLink::Slide);
}

bool isAlive(const Staff &, const Beat &, const Note &note, const AttributeValue &)
{
    return !note.isDead();
}
bool isAliveAndNoGrace(const Staff &, const Beat &beat, const Note &note, const AttributeValue &)
{
    return !note.isDead() && !beat.isGrace();
}
bool isNotOpen(const Staff &, const Beat &, const Note &, const AttributeValue &value)
{
    return value.to<Fingering>() != Fingering::Open;
}

constexpr std::array<Row, NoteAttributeCount> rows = {{
    linking(row<&Note::isTied, &Note::setTied>(Id::Tied, "Tied", "", anyOf<bool>(), Split::Cut)),
    linking(row<&Note::isTieOrigin, &Note::setTieOrigin>(Id::TieOrigin, "TieOrigin", "",
                                                         anyOf<bool>(), Split::Cut)),
    excluding({Id::Bend, Id::Harmonic, Id::Trill, Id::LetRing},
              fretted(row<&Note::isDead, &Note::setDead>(Id::Dead, "Dead", "", anyOf<bool>(),
                                                         Split::All))),
    excluding({Id::Accents},
              row<&Note::antiAccent, &Note::setAntiAccent>(Id::AntiAccent, "AntiAccent", "",
                                                           enumerators<antiAccentToString, 3>())),
    excluding({Id::AntiAccent},
              row<&Note::accents, &Note::setAccents>(Id::Accents, "Accents", "accents",
                                                     anyOf<AccentFlags>(), Split::Cut)),
    row<&Note::velocity, &Note::setVelocity>(Id::Velocity, "Velocity", "velocity", numbers(0, 127)),
    excluding({Id::PalmMute, Id::Dead},
              row<&Note::letsRing, &Note::setLetRing>(Id::LetRing, "LetRing", "letRing",
                                                      anyOf<bool>(), Split::All)),
    excluding({Id::LetRing},
              fretted(row<&Note::isPalmMuted, &Note::setPalmMute>(
                  Id::PalmMute, "PalmMute", "palmMute", anyOf<bool>(), Split::All))),
    where(canHopo,
          fretted(linking(row<&Note::isHopo, &Note::setHopo>(Id::Hopo, "Hopo", "hopo",
                                                             anyOf<bool>(), Split::Last)))),
    excluding({Id::RightTap},
              excludingOnBeat({BeatAttribute::PickStroke},
                              fretted(row<&Note::isLeftHandTapped, &Note::setLeftHandTapped>(
                                  Id::LeftTap, "LeftTap", "leftTap", anyOf<bool>())))),
    excluding({Id::LeftTap},
              fretted(row<&Note::isRightHandTapped, &Note::setRightHandTapped>(
                  Id::RightTap, "RightTap", "rightTap", anyOf<bool>()))),
    row<&Note::slideIn, &Note::setSlideIn>(Id::SlideIn, "SlideIn", "slideIn",
                                           enumerators<slideInToString, 2>()),
    where(canSlide,
          linking(row<&Note::slideOut, &Note::setSlideOut>(Id::SlideOut, "SlideOut", "slideOut",
                                                           enumerators<slideOutToString, 6>(),
                                                           Split::Last))),
    fretted(row<&Note::vibrato, &Note::setVibrato>(Id::Vibrato, "Vibrato", "vibrato",
                                                   enumerators<vibratoToString, 2>(), Split::All)),
    where(
        isAliveAndNoGrace,
        excluding({Id::Ornament},
                  excludingOnBeat({BeatAttribute::Tremolo, BeatAttribute::TremoloToNext},
                                  pitched(row<&Note::trill, &Note::setTrill>(
                                      Id::Trill, "Trill", "trill", anyOf<Trill>(), Split::All))))),
    excluding({Id::Trill},
              pitched(row<&Note::ornament, &Note::setOrnament>(
                  Id::Ornament, "Ornament", "ornament", enumerators<ornamentToString, 4>()))),
    where(isAlive,
          fretted(row<&Note::harmonic, &Note::setHarmonic>(Id::Harmonic, "Harmonic", "harmonic",
                                                           anyOf<Harmonic>(), Split::All))),
    row<&Note::leftFingering, &Note::setLeftFingering>(
        Id::LeftFingering, "LeftFingering", "leftFinger", enumerators<fingeringToString, 6>()),
    where(isNotOpen,
          row<&Note::rightFingering, &Note::setRightFingering>(
              Id::RightFingering, "RightFingering", "rightFinger",
              enumerators<fingeringToString, 6>())),
    fretted(row<&Note::showsString, &Note::setShowString>(Id::ShowString, "ShowString",
                                                          "showString", anyOf<bool>())),
    row<&Note::accidentalDisplay, &Note::setAccidentalDisplay>(
        Id::AccidentalDisplay, "AccidentalDisplay", "accidental",
        enumerators<accidentalDisplayToString, 4>()),
    where(isAlive,
          fretted(row<&Note::bend, &Note::setBend>(Id::Bend, "Bend", "bend", anyOf<Bend>(),
                                                   Split::Cut))),
    row<&Note::isHidden, &Note::setHidden>(Id::Hidden, "Hidden", "hidden", anyOf<bool>(),
                                           Split::All),
    row<&Note::noteHead, &Note::setNoteHead>(
        Id::Head, "Head", "", enumeratorsWithGaps<noteHeadToString, 21>(), Split::All),
    row<&Note::headFill, &Note::setHeadFill>(Id::HeadFill, "HeadFill", "headFill",
                                             enumerators<headFillToString, 2>(), Split::All),
}};
static_assert(areInOrder(rows));

} // namespace

const std::array<Row, NoteAttributeCount> &noteAttributes() noexcept
{
    return rows;
}

void setAttribute(Beat &beat, Note &note, NoteAttribute id, const AttributeValue &value)
{
    const Row &row = rowOf(id);
    row.set(note, value);
    if (row.isDefault(note))
        return;
    if (!row.excludes.isEmpty())
        for (const Row &other : rows)
            if (row.excludes.has(other.id))
                reset(note, other);
    if (!row.excludesOnBeat.isEmpty())
        for (const BeatAttributeRow &other : beatAttributes())
            if (row.excludesOnBeat.has(other.id))
                reset(beat, other);
}

} // namespace zarn
