// SPDX-License-Identifier: MIT
// Searches in the stores of tunings.
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <QCoreApplication>

#include <set>

namespace zarn {

namespace {

bool acceptsAll(const GuitarTuning &)
{
    return true;
}

auto isFor(GuitarTuning::Instrument instrument)
{
    return [instrument](const GuitarTuning &tuning) { return tuning.instrument() == instrument; };
}

} // namespace

/// Hands every tuning of the stores to the visitor until it answers false; in each store those of
/// one string count first.
template <typename Visitor>
void GuitarTuningLibrary::visit(unsigned roles, unsigned firstStringCount, Visitor wantsMore) const
{
    const auto visitStrings = [&](const Store::mapped_type &tunings) {
        for (const auto &entry : tunings) {
            if (!wantsMore(entry.second))
                return false;
        }
        return true;
    };
    for (const unsigned role : {GuitarTuning::CoreRole, GuitarTuning::UserRole}) {
        if ((roles & role) == 0)
            continue;
        const Store &store = *storeOf(role);
        const auto first = store.find(firstStringCount);
        if (first != store.end() && !visitStrings(first->second))
            return;
        for (auto strings = store.begin(); strings != store.end(); ++strings) {
            if (strings != first && !visitStrings(strings->second))
                return;
        }
    }
}

template <typename Predicate>
std::shared_ptr<GuitarTuning> GuitarTuningLibrary::firstOf(unsigned roles, unsigned stringCount,
                                                           Predicate accepts) const
{
    std::shared_ptr<GuitarTuning> found;
    visit(roles, stringCount, [&](const std::shared_ptr<GuitarTuning> &tuning) {
        const bool fits = stringCount == anyStringCount || tuning->stringCount() == stringCount;
        if (fits && accepts(*tuning))
            found = tuning;
        return found == nullptr;
    });
    return found;
}

template <typename Predicate>
GuitarTuningLibrary::Tunings GuitarTuningLibrary::allOf(unsigned roles, unsigned stringCount,
                                                        Predicate accepts) const
{
    Tunings found;
    visit(roles, stringCount, [&](const std::shared_ptr<GuitarTuning> &tuning) {
        const bool fits = stringCount == anyStringCount || tuning->stringCount() == stringCount;
        if (fits && accepts(*tuning))
            found.push_back(tuning);
        return true;
    });
    return found;
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(const std::string &name,
                                      const std::vector<int> &midiNumbers) const
{
    return firstOf(allRoles, static_cast<unsigned>(midiNumbers.size()),
                   [&](const GuitarTuning &candidate) {
                       return candidate.midiNumbers() == midiNumbers && candidate.name() == name;
                   });
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(const std::vector<int> &midiNumbers, unsigned stringCount,
                                      unsigned roles) const
{
    if (midiNumbers.size() != stringCount)
        return nullptr;
    return firstOf(roles, stringCount, [&](const GuitarTuning &candidate) {
        return candidate.midiNumbers() == midiNumbers;
    });
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(const GuitarTuning &tuning, unsigned options, unsigned roles,
                                      GuitarTuning::ComparisonMode mode,
                                      GuitarTuning::Role role) const
{
    const auto isLike = [&](const GuitarTuning &candidate) {
        switch (mode) {
        case GuitarTuning::DifferentTuningsComparator:
            return !GuitarTuning::differentTunings(candidate, tuning, options);
        case GuitarTuning::SameTuningsComparator:
            return GuitarTuning::sameTunings(candidate, tuning, options);
        }
        return candidate == tuning;
    };
    const bool countsStrings =
        (options & (GuitarTuning::ComparePitches | GuitarTuning::CompareStringCount)) != 0;
    const auto stringCount = countsStrings ? tuning.stringCount() : anyStringCount;
    const auto found = firstOf(roles & role, stringCount, isLike);
    return found != nullptr ? found : firstOf(roles & ~role, stringCount, isLike);
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(unsigned id, unsigned stringCount, unsigned roles) const
{
    for (const unsigned role : {GuitarTuning::CoreRole, GuitarTuning::UserRole}) {
        if ((roles & role) == 0)
            continue;
        const Store &store = *storeOf(role);
        if (const auto strings = store.find(stringCount); strings != store.end()) {
            if (const auto found = strings->second.find(id); found != strings->second.end())
                return found->second;
        }
    }
    // Not where it was added: perhaps it has that many strings by now.
    const auto found = findGuitarTuning(id, roles);
    return found != nullptr && found->stringCount() == stringCount ? found : nullptr;
}

std::shared_ptr<GuitarTuning> GuitarTuningLibrary::findGuitarTuning(unsigned id,
                                                                    unsigned roles) const
{
    for (const unsigned role : {GuitarTuning::CoreRole, GuitarTuning::UserRole}) {
        if ((roles & role) == 0)
            continue;
        for (const auto &strings : *storeOf(role)) {
            if (const auto found = strings.second.find(id); found != strings.second.end())
                return found->second;
        }
    }
    return nullptr;
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(const std::string &name, GuitarTuning::Instrument instrument,
                                      unsigned stringCount, unsigned roles) const
{
    return firstOf(roles, stringCount, [&](const GuitarTuning &candidate) {
        return candidate.instrument() == instrument && candidate.name() == name;
    });
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(unsigned roles) const
{
    return allOf(roles, anyStringCount, acceptsAll);
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(unsigned stringCount,
                                                             unsigned roles) const
{
    return allOf(roles, stringCount, acceptsAll);
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(GuitarTuning::Instrument instrument,
                                                             unsigned roles) const
{
    return allOf(roles, anyStringCount, isFor(instrument));
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(GuitarTuning::Instrument instrument,
                                                             unsigned stringCount,
                                                             unsigned roles) const
{
    return allOf(roles, stringCount, isFor(instrument));
}

std::shared_ptr<GuitarTuning> GuitarTuningLibrary::defaultTuning(unsigned stringCount,
                                                                 unsigned roles) const
{
    return firstOf(roles, stringCount, acceptsAll);
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::defaultTuning(GuitarTuning::Instrument instrument, unsigned stringCount,
                                   unsigned roles) const
{
    return firstOf(roles, stringCount, isFor(instrument));
}

std::vector<GuitarTuning::Instrument> GuitarTuningLibrary::instruments() const
{
    std::set<GuitarTuning::Instrument> found;
    visit(allRoles, anyStringCount, [&](const auto &tuning) {
        found.insert(tuning->instrument());
        return true;
    });
    return {found.begin(), found.end()};
}

std::vector<unsigned> GuitarTuningLibrary::stringCounts() const
{
    std::set<unsigned> found;
    visit(allRoles, anyStringCount, [&](const auto &tuning) {
        found.insert(tuning->stringCount());
        return true;
    });
    return {found.begin(), found.end()};
}

QString GuitarTuningLibrary::tuningDisplayName(const GuitarTuning &tuning) const
{
    constexpr unsigned options = GuitarTuning::ComparePitches | GuitarTuning::CompareInstruments;
    for (const unsigned roles : {GuitarTuning::CoreRole, GuitarTuning::UserRole}) {
        const auto found =
            findGuitarTuning(tuning, options, roles, GuitarTuning::DifferentTuningsComparator,
                             GuitarTuning::CoreRole);
        if (found != nullptr)
            return QString::fromStdString(found->name());
    }
    static const QString custom = QCoreApplication::translate("GuitarTuningLibrary", "Custom");
    return custom;
}

} // namespace zarn
