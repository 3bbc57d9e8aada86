// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyMasteringAutomations.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>

namespace zarn::cmd {

ModifyMasteringAutomations::ModifyMasteringAutomations()
    : AutomationsCommand(QStringLiteral("ModifyMasteringAutomations"))
{
}
ModifyMasteringAutomations::~ModifyMasteringAutomations() = default;

bool ModifyMasteringAutomations::init(Score *score, const Automations &removed,
                                      const Automations &inserted)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyMasteringAutomations::init", score != NULL);
    return prepare(score, {{masterTrackIndex, removed, inserted}});
}

bool ModifyMasteringAutomations::canHold(int, Automation::Type type) const noexcept
{
    return isParameterType(type);
}

} // namespace zarn::cmd
