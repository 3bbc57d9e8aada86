// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteNaturalHarmonic.h>

namespace zarn::cmd {

SetStringedNoteNaturalHarmonic::SetStringedNoteNaturalHarmonic()
    : SetByTable(QStringLiteral("SetStringedNoteNaturalHarmonic"))
{
}
SetStringedNoteNaturalHarmonic::~SetStringedNoteNaturalHarmonic() = default;

bool SetStringedNoteNaturalHarmonic::init(Score *score, const ScoreModelRange &range, bool checked,
                                          unsigned partial)
{
    ZARN_ASSERT_IN("zarn::cmd::SetStringedNoteNaturalHarmonic::init", score != NULL);
    _isPartialOfFret = checked && partial == 0;
    const bool isPartial =
        partial == 0 || (partial >= Harmonic::LowestPartial && partial <= Harmonic::HighestPartial);
    Harmonic harmonic;
    if (checked)
        harmonic = {HarmonicType::Natural,
                    static_cast<std::uint8_t>(partial == 0 ? Harmonic::LowestPartial : partial)};
    return isPartial && prepare(score, range, {{NoteAttribute::Harmonic, harmonic}});
}

bool SetStringedNoteNaturalHarmonic::takes(const MarkedPlace &place, const Beat &beat,
                                           const Note &note) const
{
    return SetByTable::takes(place, beat, note)
        && (!_isPartialOfFret || Harmonic::partialAtFret(note.fret()) != 0);
}

void SetStringedNoteNaturalHarmonic::change(const MarkedPlace &, Beat &beat, Note &note)
{
    auto harmonic = given()[0].value.to<Harmonic>();
    if (_isPartialOfFret)
        harmonic.partial = static_cast<std::uint8_t>(Harmonic::partialAtFret(note.fret()));
    setAttribute(beat, note, NoteAttribute::Harmonic, harmonic);
}

} // namespace zarn::cmd
