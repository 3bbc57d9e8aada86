// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnNote.h>

#include <ZarnCore/model/ZarnBeat.h>

namespace zarn {

static_assert(sizeof(void *) != 8 || sizeof(Note) == 56,
              "scores hold notes by the hundred thousand");

Note::Note() noexcept
    : _articulation(Unset), _spelling(NoSpelling),
      _head(static_cast<std::uint32_t>(NoteHead::Normal)),
      _headFill(static_cast<std::uint32_t>(HeadFill::Auto))
{
}

Note::Note(int midi) : Note()
{
    setMidi(midi);
}

std::shared_ptr<Note> Note::clone() const
{
    return ChildLinkAccess::clone(*this);
}

void Note::setMidi(int midi)
{
    ZARN_ASSERT_IN("zarn::Note::setMidi", midi >= Unset && midi <= 127);
    _midi = static_cast<std::int8_t>(midi);
}

std::optional<PitchClass> Note::spelling() const
{
    if (_spelling == NoSpelling)
        return std::nullopt;
    return PitchClass(static_cast<NoteName::Value>(_spelling / spelling::accidentalCount),
                      static_cast<NoteAccidental::Value>(_spelling % spelling::accidentalCount));
}

void Note::setSpelling(const PitchClass &pitchClass)
{
    ZARN_ASSERT_IN("zarn::Note::setSpelling", static_cast<bool>(pitchClass));
    const auto letter = static_cast<unsigned>(pitchClass.note().value());
    const auto accidental = static_cast<unsigned>(pitchClass.accidental().value());
    _spelling = letter * spelling::accidentalCount + accidental;
}

void Note::setSpellingNumber(std::uint8_t number)
{
    ZARN_ASSERT_IN("zarn::Note::setSpellingNumber",
                   number < spelling::spellingCount || number == NoSpelling);
    _spelling = number;
}

void Note::setString(int string)
{
    ZARN_ASSERT_IN("zarn::Note::setString", string >= Unset && string <= 127);
    _string = static_cast<std::int8_t>(string);
}

void Note::setFret(int fret)
{
    ZARN_ASSERT_IN("zarn::Note::setFret", fret >= Unset && fret <= 127);
    _fret = static_cast<std::int8_t>(fret);
}

void Note::setPercussionArticulation(int articulation)
{
    ZARN_ASSERT_IN("zarn::Note::setPercussionArticulation",
                   articulation >= Unset && articulation <= MaxArticulation);
    _articulation = articulation;
}

void Note::setStaffLine(int line)
{
    ZARN_ASSERT_IN("zarn::Note::setStaffLine", line >= NoStaffLine && line <= 127);
    _staffLine = static_cast<std::int8_t>(line);
}

void Note::setHeadFill(HeadFill fill)
{
    ZARN_ASSERT_IN("zarn::Note::setHeadFill", fill <= HeadFill::Open);
    _headFill = static_cast<std::uint32_t>(fill);
}

void Note::setDetails(NoteDetails details)
{
    ZARN_ASSERT_IN("zarn::Note::setDetails", details.bend.isValid());
    _details.set(std::move(details));
}

void Note::setBend(const Bend &bend)
{
    ZARN_ASSERT_IN("zarn::Note::setBend", bend.isValid());
    _details.change([&](NoteDetails &details) { details.bend = bend; });
}

bool operator==(const Note &left, const Note &right) noexcept
{
    return left._midi == right._midi && left._string == right._string && left._fret == right._fret
        && left._spelling == right._spelling && left._articulation == right._articulation
        && left._staffLine == right._staffLine && left._head == right._head
        && left._headFill == right._headFill && left._marks == right._marks
        && left._details == right._details;
}

} // namespace zarn
