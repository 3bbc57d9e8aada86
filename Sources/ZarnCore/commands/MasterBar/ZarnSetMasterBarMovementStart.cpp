// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarMovementStart.h>

namespace zarn::cmd {

SetMasterBarMovementStart::SetMasterBarMovementStart()
    : SetPlayOrder(QStringLiteral("SetMasterBarMovementStart"))
{
}
SetMasterBarMovementStart::~SetMasterBarMovementStart() = default;

bool SetMasterBarMovementStart::init(Score *score, unsigned bar, bool isMovementStart)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterBarMovementStart::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(bar));
    addArg(QStringLiteral("Checked"),
           isMovementStart ? QStringLiteral("true") : QStringLiteral("false"));
    return prepare(score, {bar, bar}, isMovementStart);
}

} // namespace zarn::cmd
