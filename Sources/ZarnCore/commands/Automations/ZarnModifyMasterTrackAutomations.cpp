// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomations.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>

namespace zarn::cmd {

ModifyMasterTrackAutomations::ModifyMasterTrackAutomations()
    : AutomationsCommand(QStringLiteral("ModifyMasterTrackAutomations"))
{
}
ModifyMasterTrackAutomations::~ModifyMasterTrackAutomations() = default;

bool ModifyMasterTrackAutomations::init(Score *score, const Automations &removed,
                                        const Automations &inserted)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyMasterTrackAutomations::init", score != NULL);
    return prepare(score, {{masterTrackIndex, removed, inserted}});
}

} // namespace zarn::cmd
