// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetBarRepeatEnd.h>

namespace zarn::cmd {

SetBarRepeatEnd::SetBarRepeatEnd() : SetPlayOrder(QStringLiteral("SetBarRepeatEnd")) { }
SetBarRepeatEnd::~SetBarRepeatEnd() = default;

bool SetBarRepeatEnd::init(Score *score, unsigned bar, unsigned count)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBarRepeatEnd::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(bar));
    addArg(QStringLiteral("Count"), QString::number(count));
    return count != 1 && count <= mostPasses && prepare(score, {bar, bar}, count);
}

} // namespace zarn::cmd
