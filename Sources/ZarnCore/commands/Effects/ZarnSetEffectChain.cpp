// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Effects/ZarnSetEffectChain.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <QStringList>

namespace zarn::cmd {

SetEffectChain::SetEffectChain() : EffectChainCommand(QStringLiteral("SetEffectChain")) { }
SetEffectChain::~SetEffectChain() = default;

bool SetEffectChain::init(Score *score, int track, int sound, const EffectChain &chain)
{
    ZARN_ASSERT_IN("zarn::cmd::SetEffectChain::init", score != NULL);
    setPlace(score, track, sound);
    bool isFinite = true;
    QStringList identifiers;
    for (unsigned slot = 0; slot < chain.slotCount(); ++slot) {
        identifiers.append(QString::fromStdString(chain.effect(slot).identifier()));
        isFinite = isFinite && chain.effect(slot).isFinite();
    }
    addArg(QStringLiteral("Type"), identifiers.join(QLatin1Char(' ')));
    _chain = chain;
    return isFinite && expectChain();
}

std::optional<EffectChain> SetEffectChain::changed(const EffectChain &) const
{
    return _chain;
}

void SetEffectChain::announceChange()
{
    score().notify(this, evt::RequestEffectChainChange(trackIndex()));
}

} // namespace zarn::cmd
