// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/TuningStore.h>

#include <memory>
#include <set>
#include <vector>

namespace zarn {

/// A search through the stores of some roles, in their order, for tunings that have a number of
/// strings by now. It only looks while the stores are there.
class TuningSearch {
public:
    using Tunings = GuitarTuningLibrary::Tunings;

    static constexpr unsigned anyStringCount = TuningStore::anyStringCount;

    TuningSearch(const TuningStores &stores, unsigned roles,
                 unsigned stringCount = anyStringCount) noexcept
        : _stores(stores), _roles(roles), _stringCount(stringCount)
    {
    }

    /// The first that a predicate accepts, or null.
    template <typename Predicate>
    std::shared_ptr<GuitarTuning> first(Predicate accepts) const
    {
        std::shared_ptr<GuitarTuning> found;
        visit([&](const std::shared_ptr<GuitarTuning> &tuning) {
            if (accepts(*tuning))
                found = tuning;
            return found == nullptr;
        });
        return found;
    }

    template <typename Predicate>
    Tunings all(Predicate accepts) const
    {
        Tunings found;
        visit([&](const std::shared_ptr<GuitarTuning> &tuning) {
            if (accepts(*tuning))
                found.push_back(tuning);
            return true;
        });
        return found;
    }

    /// What all tunings have of something, each once, ascending.
    template <typename Value>
    std::vector<Value> values(Value (GuitarTuning::*valueOf)() const noexcept) const
    {
        std::set<Value> found;
        visit([&](const std::shared_ptr<GuitarTuning> &tuning) {
            found.insert(((*tuning).*valueOf)());
            return true;
        });
        return {found.begin(), found.end()};
    }

private:
    template <typename Visitor>
    void visit(Visitor wantsMore) const
    {
        auto look = [&](const std::shared_ptr<GuitarTuning> &tuning) {
            const bool fits =
                _stringCount == anyStringCount || tuning->stringCount() == _stringCount;
            return !fits || wantsMore(tuning);
        };
        bool goesOn = true;
        if ((_roles & GuitarTuning::CoreRole) != 0)
            goesOn = _stores.core.visit(_stringCount, look);
        if (goesOn && (_roles & GuitarTuning::UserRole) != 0)
            _stores.user.visit(_stringCount, look);
    }

    const TuningStores &_stores;
    unsigned _roles;
    unsigned _stringCount;
};

} // namespace zarn
