// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomations.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

ModifyMasterTrackAutomations::ModifyMasterTrackAutomations()
    : ModifyAutomations(QStringLiteral("ModifyMasterTrackAutomations"))
{
}
ModifyMasterTrackAutomations::~ModifyMasterTrackAutomations() = default;

bool ModifyMasterTrackAutomations::init(Score *score, const Automations &removed,
                                        const Automations &inserted)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyMasterTrackAutomations::init", score != NULL);
    return prepare(score, removed, inserted);
}

AutomationContainer *ModifyMasterTrackAutomations::container() const
{
    return model().masterTrack().get();
}

bool ModifyMasterTrackAutomations::canHold(Automation::Type type) const noexcept
{
    return type == Automation::Tempo || isEffectParameter(type);
}

void ModifyMasterTrackAutomations::apply()
{
    const MasterTrack &master = *model().masterTrack();
    const double before = startTempo(master);
    ModifyAutomations::apply();
    _tempoBefore = before;
    _tempoAfter = startTempo(master);
}

void ModifyMasterTrackAutomations::announceApplied()
{
    announce(_tempoBefore, _tempoAfter);
}

void ModifyMasterTrackAutomations::announceReverted()
{
    announce(_tempoAfter, _tempoBefore);
}

void ModifyMasterTrackAutomations::announce(double tempoBefore, double tempoAfter)
{
    announceBars(masterTrackIndex);
    announceStartTempo(score(), this, tempoBefore, tempoAfter);
    score().notify(this, evt::AutomationChanged());
}

} // namespace zarn::cmd
