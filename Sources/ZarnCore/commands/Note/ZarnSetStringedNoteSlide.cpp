// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteSlide.h>

#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/StringLinks.h>

#include <algorithm>

namespace zarn::cmd {

SetStringedNoteSlide::SetStringedNoteSlide()
    : SetByTable(QStringLiteral("SetStringedNoteSlide")) { }
SetStringedNoteSlide::~SetStringedNoteSlide() = default;

bool SetStringedNoteSlide::init(Score *score, const ScoreModelRange &range,
                                std::optional<SlideIn> in, std::optional<SlideOut> out)
{
    ZARN_ASSERT_IN("zarn::cmd::SetStringedNoteSlide::init", score != NULL);
    Values values;
    if (in)
        values.emplace_back(NoteAttribute::SlideIn, *in);
    if (out)
        values.emplace_back(NoteAttribute::SlideOut, *out);
    return prepare(score, range, std::move(values), Recorded::NamesAndValues);
}

/// To slide to another note takes another fret.
bool SetStringedNoteSlide::isTaken(const Given &given, const MarkedPlace &place, const Beat &beat,
                                   const Note &note)
{
    if (!place.isFretted || !SetByTable::takes(given, place, beat, note))
        return false;
    if (given.row->id != NoteAttribute::SlideOut)
        return true;
    const auto out = given.value.to<SlideOut>();
    const auto voice = beat.parentVoice();
    return (out != SlideOut::Shift && out != SlideOut::Legato)
        || (voice && canLeadToNext(*voice, beat.index(), note, StringLink::Hopo));
}

bool SetStringedNoteSlide::takes(const MarkedPlace &place, const Beat &beat, const Note &note) const
{
    return std::any_of(given().begin(), given().end(),
                       [&](const Given &one) { return isTaken(one, place, beat, note); });
}

void SetStringedNoteSlide::change(const MarkedPlace &place, Beat &beat, Note &note)
{
    for (const Given &one : given())
        if (isTaken(one, place, beat, note))
            setAttribute(beat, note, one.row->id, one.value);
    if (note.slideOut() == SlideOut::Legato)
        note.setHopo(false);
}

} // namespace zarn::cmd
