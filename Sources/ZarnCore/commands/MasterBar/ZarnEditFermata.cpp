// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnEditFermata.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnMasterBar.h>

namespace zarn::cmd {

EditFermata::EditFermata() : ChangeFermatas(QStringLiteral("EditFermata")) { }
EditFermata::~EditFermata() = default;

bool EditFermata::init(Score *score, unsigned bar, const utils::rational &position,
                       const FermataMark &mark)
{
    ZARN_ASSERT_IN("zarn::cmd::EditFermata::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(bar));
    addArg(QStringLiteral("Position"), QString::fromStdString(position.toString()));
    addArg(QStringLiteral("Value"), QString::fromStdString(mark.toString()));
    _position = position;
    _mark = mark;
    return mark.isValid() && prepare(score, bar);
}

/// A mark behind the end of a bar that got shorter may stay there.
bool EditFermata::change(const MasterBar &bar, FermataMarks &marks) const
{
    const auto present = markAt(marks, _position);
    const bool isMoved = _mark.position != _position;
    if (present == marks.end() || (isMoved && bar.length() < _mark.position))
        return false;
    marks.erase(present);
    if (markAt(marks, _mark.position) != marks.end())
        return false;
    addMark(marks, _mark);
    return true;
}

} // namespace zarn::cmd
