// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Effects/ZarnSetEffectParameters.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnEffectEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace zarn::cmd {

SetEffectParameters::SetEffectParameters()
    : EffectChainCommand(QStringLiteral("SetEffectParameters"))
{
}
SetEffectParameters::~SetEffectParameters() = default;

bool SetEffectParameters::init(Score *score, int track, int sound, unsigned slot,
                               const std::vector<float> &values)
{
    ZARN_ASSERT_IN("zarn::cmd::SetEffectParameters::init", score != NULL);
    setPlace(score, track, sound);
    addArg(QStringLiteral("Index"), QString::number(slot));
    QStringList texts;
    for (const float value : values)
        texts.append(QString::number(static_cast<double>(value)));
    addArg(QStringLiteral("Value"), texts.join(QLatin1Char(' ')));
    _slot = slot;
    _values = values;
    return slot < EffectChain::maximumSlotCount
        && std::all_of(values.begin(), values.end(),
                       [](float value) { return std::isfinite(value); })
        && expectChain();
}

std::optional<EffectChain> SetEffectParameters::changed(const EffectChain &chain) const
{
    Effect effect = chain.effect(_slot);
    if (effect.isEmpty() || effect.parameterCount() != _values.size())
        return std::nullopt;
    effect.setParameters(_values);
    EffectChain after = chain;
    after.setEffect(_slot, effect);
    return after;
}

void SetEffectParameters::announceChange()
{
    score().notify(this, evt::RequestEffectParametersChange(trackIndex(), static_cast<int>(_slot)));
}

} // namespace zarn::cmd
