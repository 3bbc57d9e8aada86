// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnSetFullScoreSystemsLayout.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/NumbersText.h>

namespace zarn::cmd {

SetFullScoreSystemsLayout::SetFullScoreSystemsLayout()
    : ChangeSystems(QStringLiteral("SetFullScoreSystemsLayout"))
{
}
SetFullScoreSystemsLayout::~SetFullScoreSystemsLayout() = default;

bool SetFullScoreSystemsLayout::init(Score *score, const std::vector<int> &systems)
{
    ZARN_ASSERT_IN("zarn::cmd::SetFullScoreSystemsLayout::init", score != NULL);
    addArg(QStringLiteral("Value"), numbersText(systems));
    return prepare(score, FullScore, systems, std::nullopt);
}

} // namespace zarn::cmd
