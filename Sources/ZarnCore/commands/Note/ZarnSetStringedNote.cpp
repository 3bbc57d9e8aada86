// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNote.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/notes/ZarnFretting.h>

namespace zarn::cmd {

SetStringedNote::SetStringedNote() : WriteNote(QStringLiteral("SetStringedNote")) { }
SetStringedNote::~SetStringedNote() = default;

bool SetStringedNote::init(Score *score, const ScoreModelIndex &index, int string, int fret)
{
    ZARN_ASSERT_IN("zarn::cmd::SetStringedNote::init", score != NULL);
    addArg(QStringLiteral("StageIndex"), index.toQString());
    addArg(QStringLiteral("String"), QString::number(string));
    addArg(QStringLiteral("Fret"), QString::number(fret));
    _string = string;
    _fret = fret;
    return string >= 0 && fret >= 0 && prepare(score, index);
}

std::optional<WriteNote::Placement> SetStringedNote::placement(const Staff &staff,
                                                               const Beat &beat) const
{
    const int midi = writtenPitch(staff, _string, _fret);
    if (midi < 0)
        return std::nullopt;
    Placement placement = placementOf(beat.noteOnString(_string), midi);
    placement.to->string = static_cast<std::int8_t>(_string);
    placement.to->fret = static_cast<std::int8_t>(_fret);
    return placement;
}

} // namespace zarn::cmd
