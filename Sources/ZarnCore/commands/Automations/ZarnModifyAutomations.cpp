// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyAutomations.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

ModifyAutomations::ModifyAutomations() : AutomationsCommand(QStringLiteral("ModifyAutomations")) { }
ModifyAutomations::~ModifyAutomations() = default;

bool ModifyAutomations::init(Score *score, const std::vector<AutomationChanges> &changes)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyAutomations::init", score != NULL);
    return prepare(score, changes);
}

} // namespace zarn::cmd
