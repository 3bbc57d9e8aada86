// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomations.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

ModifyTrackAutomations::ModifyTrackAutomations()
    : AutomationsCommand(QStringLiteral("ModifyTrackAutomations"))
{
}
ModifyTrackAutomations::~ModifyTrackAutomations() = default;

bool ModifyTrackAutomations::init(Score *score, unsigned track, const Automations &removed,
                                  const Automations &inserted)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyTrackAutomations::init", score != NULL);
    return prepare(score, {{trackNumber(track), removed, inserted}});
}

} // namespace zarn::cmd
