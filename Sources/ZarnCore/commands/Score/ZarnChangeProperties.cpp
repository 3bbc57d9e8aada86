// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnChangeProperties.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn::cmd {

ChangeProperties::ChangeProperties() : ModifyProperties(QStringLiteral("ChangeProperties")) { }
ChangeProperties::~ChangeProperties() = default;

bool ChangeProperties::init(Score *score, const std::map<ScoreProperty, QString> &texts)
{
    ZARN_ASSERT_IN("zarn::cmd::ChangeProperties::init", score != NULL);
    Properties properties;
    for (const auto &[property, text] : texts) {
        addArg(scorePropertyToQString(property), text);
        properties.emplace(property, text.toStdString());
    }
    return prepare(score, std::move(properties));
}

void ChangeProperties::announceApplied()
{
    score().notify(this, evt::PropertiesChanged());
}

void ChangeProperties::announceReverted()
{
    score().notify(this, evt::PropertiesChanged());
}

} // namespace zarn::cmd
