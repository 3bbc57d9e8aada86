// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zarn {

class AutomationSlot;

/// The automations of a track or of the master track: for each type, its automations in the
/// order of their places, and whether playback bypasses them.
///
/// Owns its automations. All types that are none of the known ones share one slot. A const
/// container hands out its automations for change; only commands make use of that.
class ZARNCORE_EXPORT AutomationContainer {
public:
    /// A look at automations of one type, in order; void once the container changes.
    class View {
    public:
        View(Automation *const *begin, Automation *const *end) noexcept : _begin(begin), _end(end)
        {
        }
        Automation *const *begin() const noexcept { return _begin; }
        Automation *const *end() const noexcept { return _end; }
        std::size_t size() const noexcept { return static_cast<std::size_t>(_end - _begin); }
        bool empty() const noexcept { return _begin == _end; }
        Automation *operator[](std::size_t i) const noexcept { return _begin[i]; }
        Automation *front() const noexcept { return *_begin; }
        Automation *back() const noexcept { return _end[-1]; }

    private:
        Automation *const *_begin;
        Automation *const *_end;
    };

    /// What `eraseBlocks` took away and changed; `restoreBlocks` needs it.
    struct ErasedBlocks {
        std::uint32_t from = 0;
        std::uint32_t to = 0;
        std::vector<std::unique_ptr<Automation>> removed;
        /// Automations that were kept as starting values, with the bars where they stood.
        std::vector<std::pair<Automation *, std::uint32_t>> kept;
    };

    AutomationContainer();
    /// Copies are deep.
    AutomationContainer(const AutomationContainer &other);
    AutomationContainer &operator=(const AutomationContainer &other);
    virtual ~AutomationContainer();

    /// The automation exactly at a place; null when there is none.
    Automation *automation(Automation::Type type, std::uint32_t index, float position) const;

    View automations(Automation::Type type) const;
    /// Those in the bars from `fromIndex` to `toIndex`, both included.
    View automations(Automation::Type type, std::uint32_t fromIndex, std::uint32_t toIndex) const;

    std::size_t automationCount() const noexcept;
    std::size_t automationCount(Automation::Type type) const noexcept;
    bool hasAutomation(Automation::Type type, std::uint32_t index, float position) const;
    bool hasAutomations() const noexcept;
    bool hasAutomations(Automation::Type type) const noexcept;
    bool hasMoreThanOneAutomation(Automation::Type type) const noexcept;

    /// The first automation after a place; null when there is none.
    Automation *nextAutomation(Automation::Type type, std::uint32_t index, float position) const;
    /// The last automation before a place; null when there is none.
    Automation *previousAutomation(Automation::Type type, std::uint32_t index,
                                   float position) const;

    /// Takes an automation over and puts it at its place, instead of one of its type that stands
    /// there. One that equals its predecessor would change nothing: it is destroyed instead.
    /// One that a container holds already is moved; null is ignored.
    /// True when the container holds the automation afterwards.
    bool insertAutomation(Automation *automation);
    bool insertAutomation(std::unique_ptr<Automation> automation);

    /// Puts back what `takeAutomation` took: nothing is replaced, nothing left out.
    void restoreAutomation(std::unique_ptr<Automation> automation);

    /// Destroys an automation of this container; false when it is not one.
    bool eraseAutomation(Automation *automation);

    /// Hands an automation out, detached; empty when it is not one of this container.
    std::unique_ptr<Automation> takeAutomation(Automation *automation);

    void clearAutomations();
    void clearAutomations(Automation::Type type);
    void clearAutomationsIf(const std::function<bool(const Automation &)> &predicate);

    /// Deep copies of the other's automations instead of the own ones; bypassing stays.
    void copyAutomations(const AutomationContainer &other);
    /// Copies automations and bypassing.
    void copyFrom(const AutomationContainer &other);

    /// Makes room for new bars in front of a bar: what stands at or after it moves on with its
    /// music. At bar 0, position 0 a type's automation stays, so that a score keeps its start.
    /// Raises a `CoreException`, and changes nothing, when a bar index would overflow.
    void insertBlocks(std::uint32_t at, std::uint32_t count);

    /// Closes the gap of erased bars, both included: their automations go, later ones move back.
    /// Erasing from bar 0 keeps the first automation of each type, when it stands at the start
    /// of an erased bar, for the bar that follows, unless that has one at its start.
    ErasedBlocks eraseBlocks(std::uint32_t from, std::uint32_t to);

    /// Undoes `eraseBlocks` on the container as it left it; the very automations come back.
    void restoreBlocks(ErasedBlocks erased);

    /// Whether playback leaves a type out; the automations stay as they are.
    void bypassType(Automation::Type type, bool bypassed) noexcept;
    bool isTypeBypassed(Automation::Type type) const noexcept;

    friend ZARNCORE_EXPORT bool operator==(const AutomationContainer &a,
                                           const AutomationContainer &b);

private:
    friend class Automation;

    AutomationSlot &slotOf(Automation::Type type) noexcept;
    const AutomationSlot &slotOf(Automation::Type type) const noexcept;
    void insertAt(AutomationSlot &slot, std::size_t at, std::unique_ptr<Automation> automation);
    std::unique_ptr<Automation> takeAt(AutomationSlot &slot, std::size_t at);
    void own(std::unique_ptr<Automation> automation);
    std::unique_ptr<Automation> disown(Automation &automation) noexcept;
    void move(Automation &automation, std::uint32_t index, float position);

    std::unique_ptr<AutomationSlot[]> _slots; ///< by `Automation::typeId`
    std::vector<std::unique_ptr<Automation>> _owned;
};

/// Same automations at the same places, and the same bypassing.
ZARNCORE_EXPORT bool operator==(const AutomationContainer &a, const AutomationContainer &b);
inline bool operator!=(const AutomationContainer &a, const AutomationContainer &b)
{
    return !(a == b);
}

} // namespace zarn
