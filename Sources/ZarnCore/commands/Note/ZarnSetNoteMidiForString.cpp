// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteMidiForString.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/notes/ZarnFretting.h>

namespace zarn::cmd {

SetNoteMidiForString::SetNoteMidiForString() : WriteNote(QStringLiteral("SetNoteMidiForString")) { }
SetNoteMidiForString::~SetNoteMidiForString() = default;

bool SetNoteMidiForString::init(Score *score, const ScoreModelIndex &index, int string, int midi)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteMidiForString::init", score != NULL);
    addArg(QStringLiteral("Index"), index.toQString());
    addArg(QStringLiteral("String"), QString::number(string));
    addArg(QStringLiteral("Type"), QString::number(midi));
    _string = string;
    _midi = midi;
    return string >= 0 && midi >= 0 && prepare(score, index);
}

std::optional<WriteNote::Placement> SetNoteMidiForString::placement(const Staff &staff,
                                                                    const Beat &beat) const
{
    const int fret = fretOfPitch(staff, _string, _midi);
    if (fret < 0)
        return std::nullopt;
    Placement placement = placementOf(beat.noteOnString(_string), _midi);
    placement.to->string = static_cast<std::int8_t>(_string);
    placement.to->fret = static_cast<std::int8_t>(fret);
    return placement;
}

} // namespace zarn::cmd
