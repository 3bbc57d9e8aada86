// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterTrack/ZarnDeleteEffect.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

DeleteEffect::DeleteEffect() : ScoreCommand(QStringLiteral("DeleteEffect")) { }
DeleteEffect::~DeleteEffect() = default;

bool DeleteEffect::init(Score *score, unsigned slot)
{
    ZARN_ASSERT_IN("zarn::cmd::DeleteEffect::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(slot));
    setScore(score);
    _slot = slot;
    return slot < EffectChain::maximumSlotCount && expectPlace([this] { return isPossible(); });
}

bool DeleteEffect::isPossible() const
{
    return !model().masterTrack()->mastering().effectChain().effect(_slot).isEmpty();
}

void DeleteEffect::apply()
{
    requirePlace(isPossible());
    EffectChain &chain = model().masterTrack()->mutableMastering().mutableEffectChain();
    _removed = chain.effect(_slot);
    chain.removeEffect(_slot);
}

void DeleteEffect::revert()
{
    model().masterTrack()->mutableMastering().mutableEffectChain().setEffect(_slot, _removed);
}

void DeleteEffect::announceApplied()
{
    score().notify(this, evt::RequestEffectDelete(masterTrackIndex, static_cast<int>(_slot)));
    announceReverb();
}

void DeleteEffect::announceReverted()
{
    score().notify(this, evt::RequestEffectChange(masterTrackIndex, static_cast<int>(_slot)));
    announceReverb();
}

void DeleteEffect::announceReverb()
{
    if (_slot == Mastering::reverbSlot)
        score().notify(this, evt::MasteringReverbChanged());
}

} // namespace zarn::cmd
