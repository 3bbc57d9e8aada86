// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnChangeProperty.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

ChangeProperty::ChangeProperty() : ModifyProperties(QStringLiteral("ChangeProperty")) { }
ChangeProperty::~ChangeProperty() = default;

bool ChangeProperty::init(Score *score, ScoreProperty property, const QString &text)
{
    ZARN_ASSERT_IN("zarn::cmd::ChangeProperty::init", score != NULL);
    addArg(QStringLiteral("Type"), scorePropertyToQString(property));
    addArg(QStringLiteral("Text"), text);
    _property = property;
    return prepare(score, {{property, text.toStdString()}});
}

void ChangeProperty::announceApplied()
{
    score().notify(this, evt::PropertyChanged(_property));
}

void ChangeProperty::announceReverted()
{
    score().notify(this, evt::PropertyChanged(_property));
}

} // namespace zarn::cmd
