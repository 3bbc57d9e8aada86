// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetBarRepeatStart.h>

namespace zarn::cmd {

SetBarRepeatStart::SetBarRepeatStart() : SetPlayOrder(QStringLiteral("SetBarRepeatStart")) { }
SetBarRepeatStart::~SetBarRepeatStart() = default;

bool SetBarRepeatStart::init(Score *score, unsigned bar, bool isRepeatStart)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBarRepeatStart::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(bar));
    addArg(QStringLiteral("Checked"),
           isRepeatStart ? QStringLiteral("true") : QStringLiteral("false"));
    return prepare(score, {bar, bar}, isRepeatStart);
}

} // namespace zarn::cmd
