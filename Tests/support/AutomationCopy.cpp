// SPDX-License-Identifier: MIT
#include "AutomationCopy.h"

#include <algorithm>
#include <iterator>
#include <limits>

using zarn::Automation;
using zarn::AutomationContainer;

namespace {

std::string text(const Automation &automation)
{
    return std::to_string(automation.index()) + "+" + std::to_string(automation.position()) + "="
        + automation.valueToString() + " ";
}

template <class List>
std::string text(const List &automations)
{
    std::string all;
    for (const auto &automation : automations)
        all += text(*automation);
    return all;
}

bool isSame(const Automation &left, const Automation &right)
{
    return left.index() == right.index() && left.position() == right.position()
        && left.equals(right);
}

} // namespace

AutomationCopy::AutomationCopy(const AutomationContainer &container)
{
    for (unsigned slot = 0; slot < slotCount; ++slot) {
        const auto type = Automation::idType(slot);
        read(container, type, 0, std::numeric_limits<unsigned>::max());
        _isBypassed[slot] = container.isTypeBypassed(type);
    }
}

void AutomationCopy::read(const AutomationContainer &container, Automation::Type type,
                          unsigned first, unsigned last)
{
    Slot &slot = _slots[Automation::typeId(type)];
    const auto isInside = [&](const auto &automation) {
        return automation->index() >= first && automation->index() <= last;
    };
    slot.erase(std::remove_if(slot.begin(), slot.end(), isInside), slot.end());
    const auto at = std::find_if(slot.begin(), slot.end(), [&](const auto &automation) {
        return automation->index() > last;
    });
    Slot read;
    for (const Automation *automation : container.automations(type)) {
        if (isInside(automation))
            read.push_back(automation->cloneAutomation());
    }
    slot.insert(at, std::make_move_iterator(read.begin()), std::make_move_iterator(read.end()));
}

void AutomationCopy::setBypassed(Automation::Type type, bool isBypassed)
{
    _isBypassed[Automation::typeId(type)] = isBypassed;
}

void AutomationCopy::makeRoom(unsigned at, unsigned count)
{
    for (Slot &slot : _slots) {
        for (const auto &automation : slot) {
            if (automation->index() >= at)
                automation->setIndex(automation->index() + count);
        }
    }
}

void AutomationCopy::closeGap(unsigned at, unsigned count)
{
    for (Slot &slot : _slots) {
        const auto isGone = [&](const auto &automation) {
            return automation->index() >= at && automation->index() - at < count;
        };
        slot.erase(std::remove_if(slot.begin(), slot.end(), isGone), slot.end());
        for (const auto &automation : slot) {
            if (automation->index() >= at)
                automation->setIndex(automation->index() - count);
        }
    }
}

std::string AutomationCopy::difference(const AutomationContainer &container) const
{
    for (unsigned slot = 0; slot < slotCount; ++slot) {
        const auto type = Automation::idType(slot);
        const std::string name = Automation::typeToString(type);
        const auto found = container.automations(type);
        const Slot &known = _slots[slot];
        if (!std::equal(known.begin(), known.end(), found.begin(), found.end(),
                        [](const auto &a, const auto &b) { return isSame(*a, *b); }))
            return name + " automations are known as " + text(known) + "and are " + text(found);
        if (_isBypassed[slot] != container.isTypeBypassed(type))
            return "bypassing of " + name + " has changed";
    }
    return {};
}
