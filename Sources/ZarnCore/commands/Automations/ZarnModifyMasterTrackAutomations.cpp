// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomations.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnAutomationEvents.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

namespace zarn::cmd {

namespace {

double startTempo(const MasterTrack &master)
{
    const auto *const tempo =
        dynamic_cast<const TempoAutomation *>(master.automation(Automation::Tempo, 0, 0));
    return tempo != nullptr ? static_cast<double>(tempo->quarterValue())
                            : master.quarterTempoValue();
}

} // namespace

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
    for (const Automation::Type type : types())
        score().notify(this, evt::MasterTrackAutomationChanged(type));
    if (tempoBefore != tempoAfter)
        score().notify(this, evt::GlobalTempoChanged(tempoBefore, tempoAfter));
    score().notify(this, evt::AutomationChanged());
}

} // namespace zarn::cmd
