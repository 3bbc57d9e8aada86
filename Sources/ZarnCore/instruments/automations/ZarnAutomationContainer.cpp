// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/automations/AutomationSlot.h>

#include <algorithm>

namespace zarn {
namespace {

constexpr std::size_t slotCount = Automation::automationTypeCount;

auto keyOf(std::uint32_t index, float position) noexcept
{
    return AutomationSlot::keyOf(index, position);
}

} // namespace

AutomationContainer::AutomationContainer() : _slots(std::make_unique<AutomationSlot[]>(slotCount))
{
}

AutomationContainer::AutomationContainer(const AutomationContainer &other) : AutomationContainer()
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
    return slotOf(type).automationAt(keyOf(index, position));
}

AutomationContainer::View AutomationContainer::automations(Automation::Type type) const
{
    const auto &all = slotOf(type).automations();
    return {all.data(), all.data() + all.size()};
}

AutomationContainer::View AutomationContainer::automations(Automation::Type type,
                                                           std::uint32_t fromIndex,
                                                           std::uint32_t toIndex) const
{
    const auto &slot = slotOf(type);
    const auto *all = slot.automations().data();
    const auto begin = slot.countBeforeBar(fromIndex);
    const auto end = slot.countUpToBar(toIndex);
    return {all + begin, all + std::max(begin, end)};
}

std::size_t AutomationContainer::automationCount() const noexcept
{
    return _owned.size();
}

std::size_t AutomationContainer::automationCount(Automation::Type type) const noexcept
{
    return slotOf(type).size();
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
    const auto at = slot.countUpTo(keyOf(index, position));
    return at < slot.size() ? slot[at] : nullptr;
}

Automation *AutomationContainer::previousAutomation(Automation::Type type, std::uint32_t index,
                                                    float position) const
{
    const auto &slot = slotOf(type);
    const auto at = slot.countBefore(keyOf(index, position));
    return at > 0 ? slot[at - 1] : nullptr;
}

bool AutomationContainer::insertAutomation(Automation *automation)
{
    if (automation == nullptr)
        return false;
    auto &slot = slotOf(automation->type());
    if (slot.find(*automation) == AutomationSlot::nowhere) {
        auto *holder = automation->parent();
        auto taken = holder != nullptr ? holder->takeAutomation(automation) : nullptr;
        if (taken == nullptr)
            taken.reset(automation);
        return insertAutomation(std::move(taken));
    }
    // It stands at its place already; others that it was moved onto make way.
    const auto key = AutomationSlot::keyOf(*automation);
    for (auto at = slot.countBefore(key); slot.isAt(at, key);) {
        if (slot[at] == automation)
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
    const auto key = AutomationSlot::keyOf(*automation);
    auto at = slot.countUpTo(key);
    while (at > 0 && slot.isAt(at - 1, key))
        takeAt(slot, --at);
    if (at > 0 && slot[at - 1]->equals(*automation))
        return false;
    insertAt(slot, at, std::move(automation));
    return true;
}

void AutomationContainer::restoreAutomation(std::unique_ptr<Automation> automation)
{
    if (automation == nullptr)
        return;
    auto &slot = slotOf(automation->type());
    const auto at = slot.countUpTo(AutomationSlot::keyOf(*automation));
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
    const auto at = slot.find(*automation);
    return at != AutomationSlot::nowhere ? takeAt(slot, at) : nullptr;
}

void AutomationContainer::copyAutomations(const AutomationContainer &other)
{
    if (&other == this)
        return;
    // The copies are complete before anything of this container goes.
    std::vector<std::unique_ptr<Automation>> copies;
    copies.reserve(other._owned.size());
    const auto copyOf = [&](const Automation &original) {
        copies.push_back(original.cloneAutomation());
        auto &copy = *copies.back();
        copy._parent = this;
        copy._ownedAt = copies.size() - 1;
        return &copy;
    };
    auto slots = std::make_unique<AutomationSlot[]>(slotCount);
    for (std::size_t i = 0; i < slotCount; ++i) {
        slots[i] = other._slots[i];
        slots[i].setBypassed(_slots[i].isBypassed());
        slots[i].replaceAll(copyOf);
    }
    _slots.swap(slots);
    _owned.swap(copies);
}

void AutomationContainer::copyFrom(const AutomationContainer &other)
{
    copyAutomations(other);
    for (std::size_t i = 0; i < slotCount; ++i)
        _slots[i].setBypassed(other._slots[i].isBypassed());
}

void AutomationContainer::bypassType(Automation::Type type, bool bypassed) noexcept
{
    slotOf(type).setBypassed(bypassed);
}

bool AutomationContainer::isTypeBypassed(Automation::Type type) const noexcept
{
    return slotOf(type).isBypassed();
}

void AutomationContainer::clearAutomations()
{
    std::for_each(_slots.get(), _slots.get() + slotCount, [](auto &slot) { slot.clear(); });
    _owned.clear();
}

void AutomationContainer::clearAutomations(Automation::Type type)
{
    auto &slot = slotOf(type);
    for (auto *automation : slot.automations())
        disown(*automation);
    slot.clear();
}

void AutomationContainer::clearAutomationsIf(
    const std::function<bool(const Automation &)> &predicate)
{
    for (std::size_t i = 0; i < slotCount; ++i)
        for (auto *automation : _slots[i].takeIf(predicate))
            disown(*automation);
}

void AutomationContainer::insertBlocks(std::uint32_t at, std::uint32_t count)
{
    for (std::size_t i = 0; i < slotCount; ++i) {
        const bool fits = _slots[i].hasRoomFor(at, count);
        ZARN_ASSERT_IN("zarn::AutomationContainer::insertBlocks", fits);
    }
    for (std::size_t i = 0; i < slotCount; ++i)
        _slots[i].insertBars(at, count);
}

AutomationContainer::ErasedBlocks AutomationContainer::eraseBlocks(std::uint32_t from,
                                                                   std::uint32_t to)
{
    ZARN_ASSERT_IN("zarn::AutomationContainer::eraseBlocks", from <= to);
    ErasedBlocks erased;
    erased.from = from;
    erased.to = to;
    for (std::size_t i = 0; i < slotCount; ++i) {
        if (!_slots[i].reachesBar(from))
            continue;
        const auto gone = _slots[i].eraseBars(from, to);
        erased.removed.reserve(erased.removed.size() + gone.removed.size());
        for (auto *automation : gone.removed)
            erased.removed.push_back(disown(*automation));
        if (gone.kept != nullptr)
            erased.kept.emplace_back(gone.kept, gone.barOfKept);
    }
    return erased;
}

void AutomationContainer::restoreBlocks(ErasedBlocks erased)
{
    for (auto &[automation, index] : erased.kept) {
        auto &slot = slotOf(automation->type());
        const auto at = slot.find(*automation);
        constexpr auto nowhere = AutomationSlot::nowhere;
        ZARN_ASSERT_IN("zarn::AutomationContainer::restoreBlocks", at != nowhere);
        erased.removed.push_back(takeAt(slot, at));
        automation->_index = index;
    }
    for (std::size_t i = 0; i < slotCount; ++i)
        _slots[i].shiftFrom(_slots[i].countBeforeBar(erased.from),
                            std::int64_t{erased.to} - erased.from + 1);
    for (auto &automation : erased.removed) {
        slotOf(automation->type()).append(*automation);
        own(std::move(automation));
    }
    for (std::size_t i = 0; i < slotCount; ++i)
        _slots[i].sortAppended();
}

AutomationSlot &AutomationContainer::slotOf(Automation::Type type) noexcept
{
    return _slots[Automation::typeId(type)];
}

const AutomationSlot &AutomationContainer::slotOf(Automation::Type type) const noexcept
{
    return _slots[Automation::typeId(type)];
}

void AutomationContainer::insertAt(AutomationSlot &slot, std::size_t at,
                                   std::unique_ptr<Automation> automation)
{
    slot.growIfFull();
    auto &inserted = *automation;
    own(std::move(automation));
    slot.insert(at, inserted);
}

std::unique_ptr<Automation> AutomationContainer::takeAt(AutomationSlot &slot, std::size_t at)
{
    auto &automation = *slot[at];
    slot.erase(at);
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
    const auto from = slot.find(automation);
    automation._index = index;
    automation._position = position;
    if (from == AutomationSlot::nowhere)
        return;
    slot.erase(from);
    slot.insert(automation);
}

bool operator==(const AutomationContainer &a, const AutomationContainer &b)
{
    return std::equal(a._slots.get(), a._slots.get() + slotCount, b._slots.get());
}

} // namespace zarn
