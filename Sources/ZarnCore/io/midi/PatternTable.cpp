// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/PatternTable.h>

#include <algorithm>

namespace zarn::io {

namespace {

constexpr std::size_t firstSlots = 64; // always a power of two

std::uint64_t hashOf(const std::vector<std::uint64_t> &pattern) noexcept
{
    // The finalizer of splitmix64 over what was mixed before.
    std::uint64_t hash = pattern.size();
    for (const std::uint64_t number : pattern) {
        hash = (hash ^ number) * 0xBF58476D1CE4E5B9u;
        hash ^= hash >> 29;
    }
    return hash;
}

} // namespace

bool PatternTable::isEqual(const Entry &entry, std::uint64_t hash,
                           const std::vector<std::uint64_t> &pattern) const noexcept
{
    return entry.hash == hash && entry.count == pattern.size()
        && std::equal(pattern.begin(), pattern.end(),
                      _numbers.begin() + static_cast<std::ptrdiff_t>(entry.first));
}

/// The slot of a pattern, or the free one where it belongs.
std::size_t PatternTable::slotOf(std::uint64_t hash,
                                 const std::vector<std::uint64_t> &pattern) const noexcept
{
    std::size_t slot = hash & (_slots.size() - 1);
    while (_slots[slot] != 0 && !isEqual(_entries[_slots[slot] - 1], hash, pattern))
        slot = (slot + 1) & (_slots.size() - 1);
    return slot;
}

/// Half of the slots are free at least.
void PatternTable::makeRoom()
{
    if (2 * _entries.size() < _slots.size())
        return;
    _slots.assign(std::max(firstSlots, 2 * _slots.size()), 0);
    for (std::size_t number = 0; number < _entries.size(); ++number) {
        std::size_t slot = _entries[number].hash & (_slots.size() - 1);
        while (_slots[slot] != 0)
            slot = (slot + 1) & (_slots.size() - 1);
        _slots[slot] = static_cast<std::uint32_t>(number + 1);
    }
}

PatternTable::Found PatternTable::find(const std::vector<std::uint64_t> &pattern)
{
    if (pattern.size() > longestPattern)
        return {NotKept, true};
    makeRoom();
    const std::uint64_t hash = hashOf(pattern);
    const std::size_t slot = slotOf(hash, pattern);
    if (_slots[slot] != 0)
        return {_slots[slot] - 1, false};
    if (_entries.size() == mostPatterns)
        return {NotKept, true};
    _entries.push_back({hash, _numbers.size(), pattern.size()});
    _numbers.insert(_numbers.end(), pattern.begin(), pattern.end());
    _slots[slot] = static_cast<std::uint32_t>(_entries.size());
    return {_entries.size() - 1, true};
}

} // namespace zarn::io
