// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/SignalContainer.h>

#include <ZarnCore/ZarnAssert.h>

#include <string>

namespace utils {

std::map<unsigned, int> &SignalContainerBase::priorityMap()
{
    static std::map<unsigned, int> priorities;
    return priorities;
}

int SignalContainerBase::priorityOf(unsigned listenerKind)
{
    const auto entry = priorityMap().find(listenerKind);
    return entry != priorityMap().end() ? entry->second : 0;
}

void SignalContainerBase::raiseSharedNumber(std::size_t number)
{
    ZARN_RAISE_IN("utils::SignalContainer::signal",
                  "Two event types share the number " + std::to_string(number));
}

} // namespace utils
