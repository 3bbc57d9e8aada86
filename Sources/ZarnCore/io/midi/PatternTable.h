// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zarn::io {

/// Numbers sequences of whole numbers in the order in which they come first, so that what was found
/// for one of them can be looked up when it comes again: music repeats its rhythms. Keeps as many
/// as `mostPatterns`.
class PatternTable {
public:
    static constexpr std::size_t mostPatterns = 4096;
    static constexpr std::size_t longestPattern = 256;
    static constexpr std::size_t NotKept = SIZE_MAX;

    struct Found {
        std::size_t number; ///< `NotKept` for a new one when the table is full
        bool isNew;
    };

    Found find(const std::vector<std::uint64_t> &pattern);

private:
    struct Entry {
        std::uint64_t hash;
        std::size_t first; ///< in the numbers
        std::size_t count;
    };

    bool isEqual(const Entry &entry, std::uint64_t hash,
                 const std::vector<std::uint64_t> &pattern) const noexcept;
    std::size_t slotOf(std::uint64_t hash,
                       const std::vector<std::uint64_t> &pattern) const noexcept;
    void makeRoom();

    std::vector<std::uint32_t> _slots; ///< numbers of entries counted from 1, by their hashes
    std::vector<Entry> _entries;
    std::vector<std::uint64_t> _numbers; ///< of all patterns
};

} // namespace zarn::io
