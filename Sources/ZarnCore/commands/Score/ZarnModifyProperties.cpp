// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnModifyProperties.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <utility>

namespace zarn {

ModifyProperties::~ModifyProperties() = default;

bool ModifyProperties::prepare(Score *score, Properties properties)
{
    setScore(score);
    _properties = std::move(properties);
    return !_properties.empty() && _properties.rbegin()->first <= ScoreProperty::Notice;
}

void ModifyProperties::apply()
{
    Properties before;
    for (const auto &entry : _properties)
        before.emplace(entry.first, model().property(entry.first));
    _before = std::move(before);
    write(_properties);
}

void ModifyProperties::revert()
{
    write(_before);
}

void ModifyProperties::write(const Properties &properties)
{
    for (const auto &[property, text] : properties)
        model().setScoreProperty(property, text);
}

} // namespace zarn
