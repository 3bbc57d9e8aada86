// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarFreeTime.h>

namespace zarn::cmd {

SetMasterBarFreeTime::SetMasterBarFreeTime() : SetAttribute(QStringLiteral("SetMasterBarFreeTime"))
{
}
SetMasterBarFreeTime::~SetMasterBarFreeTime() = default;

bool SetMasterBarFreeTime::init(Score *score, unsigned first, unsigned last, bool isFreeTime)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterBarFreeTime::init", score != NULL);
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    addArg(QStringLiteral("Checked"),
           isFreeTime ? QStringLiteral("true") : QStringLiteral("false"));
    return prepare(score, {first, last}, isFreeTime);
}

} // namespace zarn::cmd
