// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyChannelStripAutomations.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/automations/ZarnChannelStrip.h>

namespace zarn::cmd {

ModifyChannelStripAutomations::ModifyChannelStripAutomations()
    : AutomationsCommand(QStringLiteral("ModifyChannelStripAutomations"))
{
}
ModifyChannelStripAutomations::~ModifyChannelStripAutomations() = default;

bool ModifyChannelStripAutomations::init(Score *score, unsigned track, const Automations &removed,
                                         const Automations &inserted)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyChannelStripAutomations::init", score != NULL);
    return prepare(score, {{trackNumber(track), removed, inserted}});
}

bool ModifyChannelStripAutomations::canHold(int, Automation::Type type) const noexcept
{
    return isChannelStripType(type);
}

bool ModifyChannelStripAutomations::canHaveValue(const Automation &automation) const noexcept
{
    const bool isVolume = automation.type() == channelStripType(ChannelStripParameter::Volume);
    return isChannelStripValue(
        isVolume ? ChannelStripParameter::Volume : ChannelStripParameter::Pan, automation.value());
}

} // namespace zarn::cmd
