// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomationBypass.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

ModifyMasterTrackAutomationBypass::ModifyMasterTrackAutomationBypass()
    : ScoreCommand(QStringLiteral("ModifyMasterTrackAutomationBypass"))
{
}
ModifyMasterTrackAutomationBypass::~ModifyMasterTrackAutomationBypass() = default;

bool ModifyMasterTrackAutomationBypass::init(Score *score, Automation::Type type, bool isBypassed)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyMasterTrackAutomationBypass::init", score != NULL);
    addArg(QStringLiteral("Type"), QString::fromStdString(Automation::typeToString(type)));
    addArg(QStringLiteral("Bypass"), isBypassed ? QStringLiteral("true") : QStringLiteral("false"));
    setScore(score);
    _type = type;
    _isBypassed = isBypassed;
    return Automation::typeId(type) != 0;
}

AutomationContainer *ModifyMasterTrackAutomationBypass::container() const
{
    return model().masterTrack().get();
}

void ModifyMasterTrackAutomationBypass::apply()
{
    _before = container()->isTypeBypassed(_type);
    container()->bypassType(_type, _isBypassed);
}

void ModifyMasterTrackAutomationBypass::revert()
{
    container()->bypassType(_type, _before);
}

void ModifyMasterTrackAutomationBypass::announceApplied()
{
    announce(_isBypassed);
}

void ModifyMasterTrackAutomationBypass::announceReverted()
{
    announce(_before);
}

void ModifyMasterTrackAutomationBypass::announce(bool isBypassed)
{
    score().notify(this, evt::MasterTrackAutomationBypassChanged(_type, isBypassed));
}

} // namespace zarn::cmd
