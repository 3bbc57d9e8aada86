// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Searching the sorted places of a slot of automations.
namespace zarn::detail {

template <typename T>
auto iteratorAt(std::vector<T> &values, std::size_t at)
{
    return values.begin() + static_cast<std::ptrdiff_t>(at);
}

inline std::size_t countUpTo(const std::vector<std::uint64_t> &keys, std::uint64_t key)
{
    // Places mostly come in order: look at the end first.
    if (keys.empty() || keys.back() <= key)
        return keys.size();
    return static_cast<std::size_t>(std::upper_bound(keys.begin(), keys.end(), key) - keys.begin());
}

inline std::size_t countBefore(const std::vector<std::uint64_t> &keys, std::uint64_t key)
{
    return static_cast<std::size_t>(std::lower_bound(keys.begin(), keys.end(), key) - keys.begin());
}

} // namespace zarn::detail
