// SPDX-License-Identifier: MIT
// Searches in the stores of tunings.
#include <ZarnCore/instruments/ZarnGuitarTuningLibrary.h>

#include <QCoreApplication>

#include <set>

namespace zarn {

namespace {

std::shared_ptr<GuitarTuning> firstOrNull(const GuitarTuningLibrary::Tunings &tunings)
{
    return tunings.empty() ? nullptr : tunings.front();
}

} // namespace

/// Hands every tuning of the stores to the visitor until it answers false.
template <typename Visitor>
void GuitarTuningLibrary::visit(unsigned roles, Visitor wantsMore) const
{
    for (const unsigned role : {GuitarTuning::CoreRole, GuitarTuning::UserRole}) {
        if ((roles & role) == 0)
            continue;
        for (const auto &strings : *storeOf(role)) {
            for (const auto &entry : strings.second) {
                if (!wantsMore(entry.second))
                    return;
            }
        }
    }
}

template <typename Predicate>
std::shared_ptr<GuitarTuning> GuitarTuningLibrary::firstOf(unsigned roles, Predicate accepts) const
{
    std::shared_ptr<GuitarTuning> found;
    visit(roles, [&](const std::shared_ptr<GuitarTuning> &tuning) {
        if (accepts(*tuning))
            found = tuning;
        return found == nullptr;
    });
    return found;
}

template <typename Predicate>
GuitarTuningLibrary::Tunings GuitarTuningLibrary::allOf(unsigned roles, Predicate accepts) const
{
    Tunings found;
    visit(roles, [&](const std::shared_ptr<GuitarTuning> &tuning) {
        if (accepts(*tuning))
            found.push_back(tuning);
        return true;
    });
    return found;
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(const std::string &name,
                                      const std::vector<int> &midiNumbers) const
{
    return firstOf(allRoles, [&](const GuitarTuning &candidate) {
        return candidate.midiNumbers() == midiNumbers && candidate.name() == name;
    });
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(const std::vector<int> &midiNumbers, unsigned stringCount,
                                      unsigned roles) const
{
    if (midiNumbers.size() != stringCount)
        return nullptr;
    return firstOf(roles, [&](const GuitarTuning &candidate) {
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
    const auto found = firstOf(roles & role, isLike);
    return found != nullptr ? found : firstOf(roles & ~role, isLike);
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
    return firstOf(roles, [&](const GuitarTuning &candidate) {
        return candidate.stringCount() == stringCount && candidate.instrument() == instrument
            && candidate.name() == name;
    });
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(unsigned roles) const
{
    return allOf(roles, [](const GuitarTuning &) { return true; });
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(unsigned stringCount,
                                                             unsigned roles) const
{
    return allOf(roles, [stringCount](const GuitarTuning &candidate) {
        return candidate.stringCount() == stringCount;
    });
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(GuitarTuning::Instrument instrument,
                                                             unsigned roles) const
{
    return allOf(roles, [instrument](const GuitarTuning &candidate) {
        return candidate.instrument() == instrument;
    });
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(GuitarTuning::Instrument instrument,
                                                             unsigned stringCount,
                                                             unsigned roles) const
{
    return allOf(roles, [=](const GuitarTuning &candidate) {
        return candidate.stringCount() == stringCount && candidate.instrument() == instrument;
    });
}

std::shared_ptr<GuitarTuning> GuitarTuningLibrary::defaultTuning(unsigned stringCount,
                                                                 unsigned roles) const
{
    return firstOrNull(getTunings(stringCount, roles));
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::defaultTuning(GuitarTuning::Instrument instrument, unsigned stringCount,
                                   unsigned roles) const
{
    return firstOrNull(getTunings(instrument, stringCount, roles));
}

std::vector<GuitarTuning::Instrument> GuitarTuningLibrary::instruments() const
{
    std::set<GuitarTuning::Instrument> found;
    visit(allRoles, [&](const auto &tuning) { return found.insert(tuning->instrument()), true; });
    return {found.begin(), found.end()};
}

std::vector<unsigned> GuitarTuningLibrary::stringCounts() const
{
    std::set<unsigned> found;
    visit(allRoles, [&](const auto &tuning) { return found.insert(tuning->stringCount()), true; });
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
