// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentArticulation.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zarn {

/// The numbers of a set's articulations under all that they are looked up by. Where several fit,
/// the first counts; -1 stands for none.
class ArticulationIndex {
public:
    ArticulationIndex() = default;
    explicit ArticulationIndex(const std::vector<InstrumentArticulation> &articulations);

    int ofName(const std::string &name) const { return numberOf(_ofName, name); }

    /// By a key that enters it.
    int ofMidi(std::int32_t midi) const noexcept { return numberOf(_ofMidi, midi); }

    /// By the place on the staff and the key that plays it, or else one that enters it.
    int ofLineAndKey(std::int32_t line, std::int32_t key) const noexcept
    {
        return numberAt(_ofLineAndKey, LineAndKey(line, key));
    }
    int ofLine(std::int32_t line) const noexcept { return numberAt(_ofLine, line); }

    /// Places on the staff, each once, from the lowest up.
    std::vector<std::int32_t> lines() const;

    /// The nearest place above or below; the same one where there is none.
    std::int32_t lineAbove(std::int32_t line) const noexcept;
    std::int32_t lineBelow(std::int32_t line) const noexcept;

private:
    template <typename Key>
    struct Entry {
        Key key;
        int number;
    };
    using LineAndKey = std::pair<std::int32_t, std::int32_t>;

    template <typename Key>
    static int numberOf(const std::unordered_map<Key, int> &numbers, const Key &key)
    {
        const auto found = numbers.find(key);
        return found != numbers.end() ? found->second : -1;
    }

    template <typename Key>
    static auto firstNotBelow(const std::vector<Entry<Key>> &entries, const Key &key)
    {
        return std::lower_bound(
            entries.begin(), entries.end(), key,
            [](const auto &entry, const Key &wanted) { return entry.key < wanted; });
    }

    template <typename Key>
    static int numberAt(const std::vector<Entry<Key>> &entries, const Key &key)
    {
        const auto found = firstNotBelow(entries, key);
        return found != entries.end() && found->key == key ? found->number : -1;
    }

    template <typename Key>
    static void sort(std::vector<Entry<Key>> &entries);

    std::unordered_map<std::string, int> _ofName;
    std::unordered_map<std::int32_t, int> _ofMidi;

    // Sorted, with one entry for each key.
    std::vector<Entry<LineAndKey>> _ofLineAndKey;
    std::vector<Entry<std::int32_t>> _ofLine;
};

} // namespace zarn
