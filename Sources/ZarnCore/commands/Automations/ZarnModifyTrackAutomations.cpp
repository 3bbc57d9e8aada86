// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomations.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

ModifyTrackAutomations::ModifyTrackAutomations()
    : ModifyAutomations(QStringLiteral("ModifyTrackAutomations"))
{
}
ModifyTrackAutomations::~ModifyTrackAutomations() = default;

bool ModifyTrackAutomations::init(Score *score, unsigned track, const Automations &removed,
                                  const Automations &inserted)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyTrackAutomations::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    _track = track;
    return prepare(score, removed, inserted);
}

AutomationContainer *ModifyTrackAutomations::container() const
{
    return model().hasTrackIndex(_track) ? &model().tracks()[_track]->mutableAutomations()
                                         : nullptr;
}

bool ModifyTrackAutomations::canHold(Automation::Type type) const noexcept
{
    return type == Automation::Sound || isEffectParameter(type);
}

void ModifyTrackAutomations::announceApplied()
{
    announceBars(static_cast<int>(_track));
    score().notify(this, evt::AutomationChanged());
}

void ModifyTrackAutomations::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
