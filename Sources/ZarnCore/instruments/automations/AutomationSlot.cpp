// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/automations/AutomationSlot.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>

namespace zarn {

using detail::iteratorAt;

namespace {

template <typename T>
void reserveForOne(std::vector<T> &values)
{
    if (values.size() == values.capacity())
        values.reserve(std::max<std::size_t>(8, values.size() * 2));
}

template <typename T>
void eraseBetween(std::vector<T> &values, std::size_t first, std::size_t end)
{
    values.erase(iteratorAt(values, first), iteratorAt(values, end));
}

} // namespace

AutomationSlot::Key AutomationSlot::keyOf(std::uint32_t bar, float position) noexcept
{
    // The bits of a float sort as a number does once the sign is turned; adding 0 makes -0 a 0.
    position += 0.0f;
    std::uint32_t bits = 0;
    std::memcpy(&bits, &position, sizeof bits);
    bits = (bits & 0x80000000) != 0 ? ~bits : bits | 0x80000000;
    return Key{bar} << 32 | bits;
}

std::size_t AutomationSlot::find(const Automation &automation) const
{
    const auto key = keyOf(automation);
    for (auto at = countBefore(key); isAt(at, key); ++at)
        if (_automations[at] == &automation)
            return at;
    return nowhere;
}

bool AutomationSlot::hasRoomFor(std::uint32_t at, std::uint32_t count) const noexcept
{
    return !reachesBar(at)
        || _keys.back() >> 32 <= std::numeric_limits<std::uint32_t>::max() - count;
}

void AutomationSlot::growIfFull()
{
    reserveForOne(_keys);
    reserveForOne(_automations);
}

void AutomationSlot::insert(Automation &automation)
{
    insert(countUpTo(keyOf(automation)), automation);
}

void AutomationSlot::insert(std::size_t at, Automation &automation)
{
    _automations.insert(iteratorAt(_automations, at), &automation);
    _keys.insert(iteratorAt(_keys, at), keyOf(automation));
}

void AutomationSlot::erase(std::size_t at)
{
    _automations.erase(iteratorAt(_automations, at));
    _keys.erase(iteratorAt(_keys, at));
}

void AutomationSlot::clear() noexcept
{
    _keys.clear();
    _automations.clear();
}

std::vector<Automation *>
AutomationSlot::takeIf(const std::function<bool(const Automation &)> &accepts)
{
    std::vector<Automation *> taken;
    for (auto *automation : _automations)
        if (accepts(*automation))
            taken.push_back(automation);
    std::size_t kept = 0;
    auto next = taken.begin();
    for (std::size_t i = 0; i < _automations.size(); ++i) {
        if (next != taken.end() && *next == _automations[i]) {
            ++next;
            continue;
        }
        _keys[kept] = _keys[i];
        _automations[kept++] = _automations[i];
    }
    _keys.resize(kept);
    _automations.resize(kept);
    return taken;
}

void AutomationSlot::sortAppended()
{
    if (_automations.size() == _keys.size())
        return;
    const auto isBefore = [](const Automation *a, const Automation *b) {
        return keyOf(*a) < keyOf(*b);
    };
    const auto appended = iteratorAt(_automations, _keys.size());
    std::stable_sort(appended, _automations.end(), isBefore);
    std::inplace_merge(_automations.begin(), appended, _automations.end(), isBefore);
    _keys.resize(_automations.size());
    std::transform(_automations.begin(), _automations.end(), _keys.begin(),
                   [](const Automation *automation) { return keyOf(*automation); });
}

void AutomationSlot::insertBars(std::uint32_t at, std::uint32_t count)
{
    shiftFrom(at == 0 ? countUpTo(keyOf(0, 0)) : countBeforeBar(at), count);
}

AutomationSlot::Erased AutomationSlot::eraseBars(std::uint32_t from, std::uint32_t to)
{
    const auto first = countBeforeBar(from);
    const auto end = countUpToBar(to);
    const auto afterGap = keyOf(to, 0) + (Key{1} << 32);
    const bool hasNextStart = std::binary_search(iteratorAt(_keys, end), _keys.end(), afterGap);
    Erased erased;
    if (from == 0 && end > 0 && _automations[0]->position() <= 0 && !hasNextStart)
        erased.kept = _automations[0];
    std::copy_if(iteratorAt(_automations, first), iteratorAt(_automations, end),
                 std::back_inserter(erased.removed),
                 [&](const Automation *automation) { return automation != erased.kept; });
    shiftFrom(end, std::int64_t{from} - to - 1);
    eraseBetween(_keys, first, end);
    eraseBetween(_automations, first, end);
    if (erased.kept != nullptr) {
        erased.barOfKept = erased.kept->_index;
        erased.kept->_index = 0;
        insert(*erased.kept);
    }
    return erased;
}

void AutomationSlot::shiftFrom(std::size_t at, std::int64_t barCount) noexcept
{
    const auto bars = static_cast<std::uint32_t>(barCount);
    for (; at < _keys.size(); ++at) {
        _keys[at] += Key{bars} << 32;
        _automations[at]->_index += bars;
    }
}

bool operator==(const AutomationSlot &a, const AutomationSlot &b)
{
    return a._isBypassed == b._isBypassed && a._keys == b._keys
        && std::equal(
               a._automations.begin(), a._automations.end(), b._automations.begin(),
               [](const Automation *one, const Automation *other) { return one->equals(*other); });
}

} // namespace zarn
