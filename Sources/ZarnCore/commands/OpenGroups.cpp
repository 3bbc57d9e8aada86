// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/OpenGroups.h>

#include <algorithm>
#include <utility>

namespace zarn {

bool OpenGroups::hasRun() const noexcept
{
    return std::any_of(_groups.begin(), _groups.end(), [](const OpenGroup &group) {
        return !group.isCollecting && group.commands->commandCount() != 0;
    });
}

void OpenGroups::openMacro(Score *score)
{
    OpenGroup group;
    group.commands = std::make_unique<MacroCommand>(score);
    _groups.push_back(std::move(group));
}

std::uint64_t OpenGroups::openTransaction(Score *score, const QString &name)
{
    OpenGroup group;
    group.commands = std::make_unique<MacroCommand>(score);
    group.commands->setName(name);
    group.transaction = ++_transactions;
    group.isCollecting = isCollecting();
    _groups.push_back(std::move(group));
    return _transactions;
}

std::unique_ptr<MacroCommand> OpenGroups::takeMacro()
{
    const auto macro = std::find_if(_groups.rbegin(), _groups.rend(),
                                    [](const OpenGroup &group) { return group.transaction == 0; });
    if (macro == _groups.rend())
        return nullptr;
    auto commands = std::move(macro->commands);
    _groups.erase(macro.base() - 1, _groups.end());
    return commands;
}

OpenGroup *OpenGroups::findTransaction(std::uint64_t number) noexcept
{
    const auto found = std::find_if(_groups.begin(), _groups.end(), [&](const OpenGroup &group) {
        return group.transaction == number;
    });
    return found != _groups.end() ? &*found : nullptr;
}

OpenGroup OpenGroups::takeInnermost()
{
    OpenGroup group = std::move(_groups.back());
    _groups.pop_back();
    return group;
}

} // namespace zarn
