// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>

#include <ZarnCore/instruments/automations/AutomationKeys.h>

#include <algorithm>
#include <cstring>

namespace zarn {

namespace {

using detail::countBefore;
using detail::countUpTo;
using detail::iteratorAt;

/// Makes the next insertion one that cannot fail.
template <typename T>
void growIfFull(std::vector<T> &values)
{
    if (values.size() == values.capacity())
        values.reserve(std::max<std::size_t>(8, values.size() * 2));
}

} // namespace

AutomationContainer::AutomationContainer() = default;

AutomationContainer::AutomationContainer(const AutomationContainer &other)
{
    copyFrom(other);
}

AutomationContainer &AutomationContainer::operator=(const AutomationContainer &other)
{
    copyFrom(other);
    return *this;
}

AutomationContainer::~AutomationContainer() = default;

Automation *AutomationContainer::automation(Automation::Type type, std::uint32_t index,
                                            float position) const
{
    const auto &slot = slotOf(type);
    const auto key = keyOf(index, position);
    const auto at = countBefore(slot.keys, key);
    return at < slot.keys.size() && slot.keys[at] == key ? slot.automations[at] : nullptr;
}

AutomationContainer::View AutomationContainer::automations(Automation::Type type) const
{
    const auto &all = slotOf(type).automations;
    return {all.data(), all.data() + all.size()};
}

AutomationContainer::View AutomationContainer::automations(Automation::Type type,
                                                           std::uint32_t fromIndex,
                                                           std::uint32_t toIndex) const
{
    const auto &slot = slotOf(type);
    const auto *all = slot.automations.data();
    const auto begin = countBefore(slot.keys, Key{fromIndex} << 32);
    const auto end = countUpTo(slot.keys, Key{toIndex} << 32 | 0xFFFFFFFF);
    return {all + begin, all + std::max(begin, end)};
}

std::size_t AutomationContainer::automationCount() const noexcept
{
    return _owned.size();
}

std::size_t AutomationContainer::automationCount(Automation::Type type) const noexcept
{
    return slotOf(type).automations.size();
}

bool AutomationContainer::hasAutomation(Automation::Type type, std::uint32_t index,
                                        float position) const
{
    return automation(type, index, position) != nullptr;
}

bool AutomationContainer::hasAutomations() const noexcept
{
    return !_owned.empty();
}

bool AutomationContainer::hasAutomations(Automation::Type type) const noexcept
{
    return automationCount(type) > 0;
}

bool AutomationContainer::hasMoreThanOneAutomation(Automation::Type type) const noexcept
{
    return automationCount(type) > 1;
}

Automation *AutomationContainer::nextAutomation(Automation::Type type, std::uint32_t index,
                                                float position) const
{
    const auto &slot = slotOf(type);
    const auto at = countUpTo(slot.keys, keyOf(index, position));
    return at < slot.automations.size() ? slot.automations[at] : nullptr;
}

Automation *AutomationContainer::previousAutomation(Automation::Type type, std::uint32_t index,
                                                    float position) const
{
    const auto &slot = slotOf(type);
    const auto at = countBefore(slot.keys, keyOf(index, position));
    return at > 0 ? slot.automations[at - 1] : nullptr;
}

bool AutomationContainer::insertAutomation(Automation *automation)
{
    if (automation == nullptr)
        return false;
    auto &slot = slotOf(automation->type());
    if (find(slot, *automation) == nowhere) {
        auto *holder = automation->parent();
        auto taken = holder != nullptr ? holder->takeAutomation(automation) : nullptr;
        if (taken == nullptr)
            taken.reset(automation);
        return insertAutomation(std::move(taken));
    }
    // It stands at its place already; others that it was moved onto make way.
    const auto key = keyOf(*automation);
    for (auto at = countBefore(slot.keys, key); at < slot.keys.size() && slot.keys[at] == key;) {
        if (slot.automations[at] == automation)
            ++at;
        else
            takeAt(slot, at);
    }
    return true;
}

bool AutomationContainer::insertAutomation(std::unique_ptr<Automation> automation)
{
    if (automation == nullptr)
        return false;
    auto &slot = slotOf(automation->type());
    const auto key = keyOf(*automation);
    auto at = countUpTo(slot.keys, key);
    while (at > 0 && slot.keys[at - 1] == key)
        takeAt(slot, --at);
    if (at > 0 && slot.automations[at - 1]->equals(*automation))
        return false;
    insertAt(slot, at, std::move(automation));
    return true;
}

void AutomationContainer::restoreAutomation(std::unique_ptr<Automation> automation)
{
    if (automation == nullptr)
        return;
    auto &slot = slotOf(automation->type());
    const auto at = countUpTo(slot.keys, keyOf(*automation));
    insertAt(slot, at, std::move(automation));
}

bool AutomationContainer::eraseAutomation(Automation *automation)
{
    return takeAutomation(automation) != nullptr;
}

std::unique_ptr<Automation> AutomationContainer::takeAutomation(Automation *automation)
{
    if (automation == nullptr)
        return nullptr;
    auto &slot = slotOf(automation->type());
    const auto at = find(slot, *automation);
    return at != nowhere ? takeAt(slot, at) : nullptr;
}

void AutomationContainer::copyAutomations(const AutomationContainer &other)
{
    if (&other == this)
        return;
    // The copies are complete before anything of this container goes.
    std::vector<std::unique_ptr<Automation>> copies;
    copies.reserve(other._owned.size());
    std::array<Slot, Automation::automationTypeCount> lists;
    for (std::size_t i = 0; i < lists.size(); ++i) {
        lists[i].keys = other._slots[i].keys;
        lists[i].isBypassed = _slots[i].isBypassed;
        lists[i].automations.reserve(other._slots[i].automations.size());
        for (const auto *original : other._slots[i].automations) {
            auto copy = original->cloneAutomation();
            copy->_parent = this;
            copy->_ownedAt = copies.size();
            lists[i].automations.push_back(copy.get());
            copies.push_back(std::move(copy));
        }
    }
    _slots.swap(lists);
    _owned.swap(copies);
}

void AutomationContainer::copyFrom(const AutomationContainer &other)
{
    copyAutomations(other);
    for (std::size_t i = 0; i < _slots.size(); ++i)
        _slots[i].isBypassed = other._slots[i].isBypassed;
}

void AutomationContainer::bypassType(Automation::Type type, bool bypassed) noexcept
{
    slotOf(type).isBypassed = bypassed;
}

bool AutomationContainer::isTypeBypassed(Automation::Type type) const noexcept
{
    return slotOf(type).isBypassed;
}

AutomationContainer::Key AutomationContainer::keyOf(std::uint32_t index, float position) noexcept
{
    // The bits of a float sort as a number does once the sign is turned; adding 0 makes -0 a 0.
    position += 0.0f;
    std::uint32_t bits = 0;
    std::memcpy(&bits, &position, sizeof bits);
    bits = (bits & 0x80000000) != 0 ? ~bits : bits | 0x80000000;
    return Key{index} << 32 | bits;
}

AutomationContainer::Key AutomationContainer::keyOf(const Automation &automation) noexcept
{
    return keyOf(automation._index, automation._position);
}

std::size_t AutomationContainer::find(const Slot &slot, const Automation &automation) noexcept
{
    const auto key = keyOf(automation);
    for (auto at = countBefore(slot.keys, key); at < slot.keys.size() && slot.keys[at] == key;
         ++at) {
        if (slot.automations[at] == &automation)
            return at;
    }
    return nowhere;
}

void AutomationContainer::insertAt(Slot &slot, std::size_t at,
                                   std::unique_ptr<Automation> automation)
{
    growIfFull(slot.keys);
    growIfFull(slot.automations);
    auto *inserted = automation.get();
    own(std::move(automation));
    slot.automations.insert(iteratorAt(slot.automations, at), inserted);
    slot.keys.insert(iteratorAt(slot.keys, at), keyOf(*inserted));
}

std::unique_ptr<Automation> AutomationContainer::takeAt(Slot &slot, std::size_t at)
{
    auto &automation = *slot.automations[at];
    slot.automations.erase(iteratorAt(slot.automations, at));
    slot.keys.erase(iteratorAt(slot.keys, at));
    return disown(automation);
}

void AutomationContainer::own(std::unique_ptr<Automation> automation)
{
    _owned.push_back(std::move(automation));
    _owned.back()->_parent = this;
    _owned.back()->_ownedAt = _owned.size() - 1;
}

std::unique_ptr<Automation> AutomationContainer::disown(Automation &automation) noexcept
{
    const auto at = automation._ownedAt;
    std::swap(_owned[at], _owned.back());
    _owned[at]->_ownedAt = at;
    auto taken = std::move(_owned.back());
    _owned.pop_back();
    taken->_parent = nullptr;
    return taken;
}

void AutomationContainer::move(Automation &automation, std::uint32_t index, float position)
{
    auto &slot = slotOf(automation.type());
    const auto from = find(slot, automation);
    automation._index = index;
    automation._position = position;
    if (from == nowhere)
        return;
    slot.keys.erase(iteratorAt(slot.keys, from));
    slot.automations.erase(iteratorAt(slot.automations, from));
    const auto key = keyOf(automation);
    const auto to = countUpTo(slot.keys, key);
    slot.keys.insert(iteratorAt(slot.keys, to), key);
    slot.automations.insert(iteratorAt(slot.automations, to), &automation);
}

bool operator==(const AutomationContainer &a, const AutomationContainer &b)
{
    const auto areEqual = [](const Automation *one, const Automation *other) {
        return one->equals(*other);
    };
    return std::equal(a._slots.begin(), a._slots.end(), b._slots.begin(),
                      [areEqual](const auto &one, const auto &other) {
                          return one.isBypassed == other.isBypassed && one.keys == other.keys
                              && std::equal(one.automations.begin(), one.automations.end(),
                                            other.automations.begin(), areEqual);
                      });
}

} // namespace zarn
