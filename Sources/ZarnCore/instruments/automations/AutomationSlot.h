// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/automations/AutomationKeys.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace zarn {

/// The automations of one type of a container in the order of their places, and whether playback
/// bypasses them. It does not own them. Their places stand beside them, so that a search touches
/// only these.
class AutomationSlot {
public:
    /// A place as a number that sorts in the same way.
    using Key = std::uint64_t;

    static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

    static Key keyOf(std::uint32_t bar, float position) noexcept;
    static Key keyOf(const Automation &automation) noexcept
    {
        return keyOf(automation.index(), automation.position());
    }

    bool isBypassed() const noexcept { return _isBypassed; }
    void setBypassed(bool bypassed) noexcept { _isBypassed = bypassed; }

    const std::vector<Automation *> &automations() const noexcept { return _automations; }
    std::size_t size() const noexcept { return _automations.size(); }
    Automation *operator[](std::size_t at) const noexcept { return _automations[at]; }

    // How many, from the first, stand before a place or bar, or up to it.

    std::size_t countBefore(Key key) const { return detail::countBefore(_keys, key); }
    std::size_t countUpTo(Key key) const { return detail::countUpTo(_keys, key); }
    std::size_t countBeforeBar(std::uint32_t bar) const { return countBefore(Key{bar} << 32); }
    std::size_t countUpToBar(std::uint32_t bar) const
    {
        return countUpTo(Key{bar} << 32 | 0xFFFFFFFF);
    }

    /// Whether there is one with this number and it stands at a place.
    bool isAt(std::size_t at, Key key) const noexcept
    {
        return at < _keys.size() && _keys[at] == key;
    }

    /// The first at a place; null when there is none.
    Automation *automationAt(Key key) const
    {
        const auto at = countBefore(key);
        return isAt(at, key) ? _automations[at] : nullptr;
    }

    /// Number of an automation; `nowhere` when it is not here.
    std::size_t find(const Automation &automation) const;

    bool reachesBar(std::uint32_t bar) const noexcept
    {
        return !_keys.empty() && _keys.back() >> 32 >= bar;
    }

    /// Whether no bar index overflows when bars come in front of a bar.
    bool hasRoomFor(std::uint32_t at, std::uint32_t count) const noexcept;

    /// Makes the next insertion one that cannot fail.
    void growIfFull();

    /// Where its place belongs, behind what stands there.
    void insert(Automation &automation);
    void insert(std::size_t at, Automation &automation);
    void erase(std::size_t at);
    void clear() noexcept;

    /// Takes those out that a predicate accepts. It is asked about all before anything changes.
    std::vector<Automation *> takeIf(const std::function<bool(const Automation &)> &accepts);

    /// Puts others in place of all automations, which stand at the same places.
    template <typename Replacement>
    void replaceAll(Replacement replacementOf)
    {
        for (auto *&automation : _automations)
            automation = replacementOf(*automation);
    }

    /// Adds automations wherever they stand; to be followed by `sortAppended`.
    void append(Automation &automation) { _automations.push_back(&automation); }
    void sortAppended();

    /// Makes room for bars; what stands at the start of bar 0 stays there.
    void insertBars(std::uint32_t at, std::uint32_t count);

    /// What `eraseBars` took out.
    struct Erased {
        std::vector<Automation *> removed;

        /// Starting value that stays; null for none.
        Automation *kept = nullptr;
        std::uint32_t barOfKept = 0;
    };

    /// Closes the gap of the bars `from` to `to` inclusive. See `AutomationContainer::eraseBlocks`
    /// for what stays.
    Erased eraseBars(std::uint32_t from, std::uint32_t to);

    /// Moves all from a number on to other bars.
    void shiftFrom(std::size_t at, std::int64_t barCount) noexcept;

    /// Equal automations at the same places, and the same bypassing.
    friend bool operator==(const AutomationSlot &a, const AutomationSlot &b);

private:
    std::vector<Key> _keys;
    std::vector<Automation *> _automations;
    bool _isBypassed = false;
};

} // namespace zarn
