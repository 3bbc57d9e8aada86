// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <memory>

namespace zarn {

/// The tunings of one role, by the string count that each had when it was added and then by id.
class TuningStore {
public:
    using TuningPointer = std::shared_ptr<GuitarTuning>;

    static constexpr unsigned anyStringCount = 0xFFFFFFFF;

    void add(const TuningPointer &tuning);

    /// Takes a tuning out wherever it stands; false when it is not here.
    bool erase(unsigned id);
    void clear() noexcept { _tunings.clear(); }

    /// Null when there is none. With a string count, only where it was added with that.
    TuningPointer find(unsigned id) const;
    TuningPointer find(unsigned id, unsigned stringCount) const;

    /// Hands every tuning to the visitor until it answers false, those that were added with one
    /// string count first; whether it wants more.
    template <typename Visitor>
    bool visit(unsigned firstStringCount, Visitor &wantsMore) const
    {
        const auto visitStrings = [&](const Tunings::mapped_type &tunings) {
            for (const auto &entry : tunings)
                if (!wantsMore(entry.second))
                    return false;
            return true;
        };
        const auto first = _tunings.find(firstStringCount);
        if (first != _tunings.end() && !visitStrings(first->second))
            return false;
        for (auto strings = _tunings.begin(); strings != _tunings.end(); ++strings)
            if (strings != first && !visitStrings(strings->second))
                return false;
        return true;
    }

private:
    using Tunings = GuitarTuningLibrary::Store;

    Tunings _tunings;
};

/// The stores of a library.
struct TuningStores {
    TuningStore core;
    TuningStore user;

    /// Null for a role without a store.
    TuningStore *ofRole(unsigned role) noexcept
    {
        if (role == GuitarTuning::CoreRole)
            return &core;
        return role == GuitarTuning::UserRole ? &user : nullptr;
    }

    /// Asks the stores of a mask of roles in their order for a tuning; the first that is there.
    template <typename Find>
    std::shared_ptr<GuitarTuning> find(unsigned roles, Find findIn) const
    {
        std::shared_ptr<GuitarTuning> found;
        if ((roles & GuitarTuning::CoreRole) != 0)
            found = findIn(core);
        if (found == nullptr && (roles & GuitarTuning::UserRole) != 0)
            found = findIn(user);
        return found;
    }
};

} // namespace zarn
