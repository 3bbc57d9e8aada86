// SPDX-License-Identifier: MIT
// What changes many automations of a container at once: clearing, and bars that come and go.
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/automations/AutomationKeys.h>

#include <algorithm>
#include <limits>

namespace zarn {

using detail::countBefore;
using detail::countUpTo;
using detail::iteratorAt;

void AutomationContainer::clearAutomations()
{
    for (auto &slot : _slots) {
        slot.keys.clear();
        slot.automations.clear();
    }
    _owned.clear();
}

void AutomationContainer::clearAutomations(Automation::Type type)
{
    auto &slot = slotOf(type);
    for (auto *automation : slot.automations)
        disown(*automation);
    slot.keys.clear();
    slot.automations.clear();
}

void AutomationContainer::clearAutomationsIf(
    const std::function<bool(const Automation &)> &predicate)
{
    for (auto &slot : _slots) {
        // Ask about all first: when the predicate throws, nothing has changed.
        const auto count = slot.automations.size();
        std::vector<char> goes(count);
        for (std::size_t i = 0; i < count; ++i)
            goes[i] = predicate(*slot.automations[i]) ? 1 : 0;
        std::size_t kept = 0;
        for (std::size_t i = 0; i < count; ++i) {
            if (goes[i] != 0) {
                disown(*slot.automations[i]);
                continue;
            }
            slot.keys[kept] = slot.keys[i];
            slot.automations[kept++] = slot.automations[i];
        }
        slot.keys.resize(kept);
        slot.automations.resize(kept);
    }
}

void AutomationContainer::insertBlocks(std::uint32_t at, std::uint32_t count)
{
    const auto room = std::numeric_limits<std::uint32_t>::max() - count;
    for (const auto &slot : _slots) {
        const bool fits =
            slot.keys.empty() || slot.keys.back() >> 32 < at || slot.keys.back() >> 32 <= room;
        ZARN_ASSERT_IN("zarn::AutomationContainer::insertBlocks", fits);
    }
    for (auto &slot : _slots) {
        const auto first =
            at == 0 ? countUpTo(slot.keys, keyOf(0, 0)) : countBefore(slot.keys, Key{at} << 32);
        shiftFrom(slot, first, count);
    }
}

AutomationContainer::ErasedBlocks AutomationContainer::eraseBlocks(std::uint32_t from,
                                                                   std::uint32_t to)
{
    ZARN_ASSERT_IN("zarn::AutomationContainer::eraseBlocks", from <= to);
    ErasedBlocks erased;
    erased.from = from;
    erased.to = to;
    for (auto &slot : _slots) {
        if (!slot.keys.empty() && slot.keys.back() >> 32 >= from)
            eraseBlocks(slot, erased);
    }
    return erased;
}

void AutomationContainer::eraseBlocks(Slot &slot, ErasedBlocks &erased)
{
    const auto first = countBefore(slot.keys, Key{erased.from} << 32);
    const auto end = countUpTo(slot.keys, Key{erased.to} << 32 | 0xFFFFFFFF);
    const auto afterGap = keyOf(erased.to, 0) + (Key{1} << 32);
    const bool hasNextStart =
        std::binary_search(iteratorAt(slot.keys, end), slot.keys.end(), afterGap);
    Automation *kept = nullptr;
    if (erased.from == 0 && end > 0 && slot.automations[0]->position() <= 0 && !hasNextStart)
        kept = slot.automations[0];

    erased.removed.reserve(erased.removed.size() + end - first);
    for (auto at = first; at < end; ++at) {
        if (slot.automations[at] != kept)
            erased.removed.push_back(disown(*slot.automations[at]));
    }
    shiftFrom(slot, end, std::int64_t{erased.from} - erased.to - 1);
    slot.keys.erase(iteratorAt(slot.keys, first), iteratorAt(slot.keys, end));
    slot.automations.erase(iteratorAt(slot.automations, first), iteratorAt(slot.automations, end));
    if (kept == nullptr)
        return;
    erased.kept.emplace_back(kept, kept->_index);
    kept->_index = 0;
    const auto key = keyOf(*kept);
    const auto at = countUpTo(slot.keys, key);
    slot.keys.insert(iteratorAt(slot.keys, at), key);
    slot.automations.insert(iteratorAt(slot.automations, at), kept);
}

void AutomationContainer::restoreBlocks(ErasedBlocks erased)
{
    for (auto &[automation, index] : erased.kept) {
        auto &slot = slotOf(automation->type());
        const auto at = find(slot, *automation);
        ZARN_ASSERT_IN("zarn::AutomationContainer::restoreBlocks", at != nowhere);
        erased.removed.push_back(takeAt(slot, at));
        automation->_index = index;
    }
    std::array<std::size_t, Automation::automationTypeCount> oldSizes{};
    for (std::size_t i = 0; i < _slots.size(); ++i) {
        auto &slot = _slots[i];
        shiftFrom(slot, countBefore(slot.keys, Key{erased.from} << 32),
                  std::int64_t{erased.to} - erased.from + 1);
        oldSizes[i] = slot.automations.size();
    }
    for (auto &automation : erased.removed) {
        slotOf(automation->type()).automations.push_back(automation.get());
        own(std::move(automation));
    }
    const auto isBefore = [](const Automation *a, const Automation *b) {
        return keyOf(*a) < keyOf(*b);
    };
    for (std::size_t i = 0; i < _slots.size(); ++i) {
        auto &[keys, automations, isBypassed] = _slots[i];
        if (automations.size() == oldSizes[i])
            continue;
        const auto returned = iteratorAt(automations, oldSizes[i]);
        std::stable_sort(returned, automations.end(), isBefore);
        std::inplace_merge(automations.begin(), returned, automations.end(), isBefore);
        keys.resize(automations.size());
        std::transform(automations.begin(), automations.end(), keys.begin(),
                       [](const Automation *automation) { return keyOf(*automation); });
    }
}

void AutomationContainer::shiftFrom(Slot &slot, std::size_t at, std::int64_t barCount) noexcept
{
    const auto bars = static_cast<std::uint32_t>(barCount);
    for (; at < slot.keys.size(); ++at) {
        slot.keys[at] += Key{bars} << 32;
        slot.automations[at]->_index += bars;
    }
}

} // namespace zarn
