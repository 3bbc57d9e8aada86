// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Effects/ZarnClearEffectChain.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

ClearEffectChain::ClearEffectChain() : EffectChainCommand(QStringLiteral("ClearEffectChain")) { }
ClearEffectChain::~ClearEffectChain() = default;

bool ClearEffectChain::init(Score *score, int track, int sound)
{
    ZARN_ASSERT_IN("zarn::cmd::ClearEffectChain::init", score != NULL);
    setPlace(score, track, sound);
    return expectChain();
}

std::optional<EffectChain> ClearEffectChain::changed(const EffectChain &chain) const
{
    return chain.isEmpty() ? std::nullopt : std::optional(EffectChain());
}

void ClearEffectChain::announceChange()
{
    score().notify(this, evt::RequestEffectChainClear(trackIndex()));
}

void ClearEffectChain::announceChangeBack()
{
    score().notify(this, evt::RequestEffectChainChange(trackIndex()));
}

} // namespace zarn::cmd
