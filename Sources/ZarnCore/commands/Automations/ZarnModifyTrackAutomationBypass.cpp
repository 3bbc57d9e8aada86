// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomationBypass.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

ModifyTrackAutomationBypass::ModifyTrackAutomationBypass()
    : ScoreCommand(QStringLiteral("ModifyTrackAutomationBypass"))
{
}
ModifyTrackAutomationBypass::~ModifyTrackAutomationBypass() = default;

bool ModifyTrackAutomationBypass::init(Score *score, unsigned track, Automation::Type type,
                                       bool isBypassed)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyTrackAutomationBypass::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Type"), QString::fromStdString(Automation::typeToString(type)));
    addArg(QStringLiteral("Bypass"), isBypassed ? QStringLiteral("true") : QStringLiteral("false"));
    setScore(score);
    _track = track;
    _type = type;
    _isBypassed = isBypassed;
    return Automation::typeId(type) != 0 && expectPlace([this] { return container() != nullptr; });
}

AutomationContainer *ModifyTrackAutomationBypass::container() const
{
    return model().hasTrackIndex(_track) ? &model().tracks()[_track]->mutableAutomations()
                                         : nullptr;
}

void ModifyTrackAutomationBypass::apply()
{
    requirePlace(container() != nullptr);
    _before = container()->isTypeBypassed(_type);
    container()->bypassType(_type, _isBypassed);
}

void ModifyTrackAutomationBypass::revert()
{
    container()->bypassType(_type, _before);
}

void ModifyTrackAutomationBypass::announceApplied()
{
    announce(_isBypassed);
}

void ModifyTrackAutomationBypass::announceReverted()
{
    announce(_before);
}

void ModifyTrackAutomationBypass::announce(bool isBypassed)
{
    score().notify(this,
                   evt::TrackAutomationBypassChanged(static_cast<int>(_track), _type, isBypassed));
}

} // namespace zarn::cmd
