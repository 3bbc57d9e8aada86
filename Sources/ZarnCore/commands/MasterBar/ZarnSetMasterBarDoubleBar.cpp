// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarDoubleBar.h>

namespace zarn::cmd {

SetMasterBarDoubleBar::SetMasterBarDoubleBar()
    : SetAttribute(QStringLiteral("SetMasterBarDoubleBar"))
{
}
SetMasterBarDoubleBar::~SetMasterBarDoubleBar() = default;

bool SetMasterBarDoubleBar::init(Score *score, unsigned bar, bool hasDoubleBar)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterBarDoubleBar::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(bar));
    addArg(QStringLiteral("Checked"),
           hasDoubleBar ? QStringLiteral("true") : QStringLiteral("false"));
    return prepare(score, {bar, bar}, hasDoubleBar);
}

} // namespace zarn::cmd
