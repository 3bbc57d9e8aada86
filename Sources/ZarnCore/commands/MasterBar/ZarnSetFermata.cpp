// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetFermata.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::cmd {

SetFermata::SetFermata() : ChangeFermatas(QStringLiteral("SetFermata")) { }
SetFermata::~SetFermata() = default;

bool SetFermata::init(Score *score, const ScoreModelIndex &beat, Fermata kind)
{
    ZARN_ASSERT_IN("zarn::cmd::SetFermata::init", score != NULL);
    addArg(QStringLiteral("Index"), beat.toQString());
    addArg(QStringLiteral("Type"), QString::fromStdString(fermataToString(kind)));
    _beat = beat;
    _kind = kind;
    return canExist(beat) && kind <= Fermata::None
        && prepare(score, static_cast<unsigned>(beat.barIndex()));
}

bool SetFermata::change(const MasterBar &, FermataMarks &marks) const
{
    ScoreModelIndex place = _beat;
    place.setModel(&model());
    const auto beat = place.beat();
    if (!beat || beat->isGrace() || beat->isPlaceHolder())
        return false;
    const utils::rational position = place.voice()->beatDrawingOffset(*beat);
    const auto present = markAt(marks, position);
    const bool isPresent = present != marks.end();
    if (isPresent)
        marks.erase(present);
    if (_kind == Fermata::None)
        return isPresent;
    addMark(marks, FermataMark::at(position, _kind));
    return true;
}

} // namespace zarn::cmd
