// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/tunings/TuningSearch.h>
#include <ZarnCore/instruments/tunings/TuningStore.h>
#include <ZarnCore/instruments/tunings/UserTunings.h>

#include <QCoreApplication>
#include <QStandardPaths>

#include <rapidjson/document.h>

#include <utility>

namespace zarn {
namespace {

constexpr const char *parseFunction = "zarn::GuitarTuningLibrary::parse";

bool acceptsAll(const GuitarTuning &)
{
    return true;
}

auto isFor(GuitarTuning::Instrument instrument)
{
    return [instrument](const GuitarTuning &tuning) { return tuning.instrument() == instrument; };
}

} // namespace

GuitarTuningLibrary::GuitarTuningLibrary()
    : _stores(std::make_unique<TuningStores>()),
      _userTunings(std::make_unique<UserTunings>(_stores->user, userTuningsPath))
{
}

GuitarTuningLibrary::~GuitarTuningLibrary() = default;

void GuitarTuningLibrary::parse(const rapidjson::Value &tunings)
{
    if (!tunings.IsArray())
        ZARN_RAISE_IN(parseFunction, "tunings: it is no array");
    Tunings read;
    read.reserve(tunings.Size());
    for (const auto &value : tunings.GetArray()) {
        auto tuning = std::make_shared<GuitarTuning>();
        try {
            tuning->parse(value);
        } catch (const CoreException &error) {
            ZARN_RAISE_IN(parseFunction,
                          "tunings[" + std::to_string(read.size()) + "]: " + error.message());
        }
        read.push_back(std::move(tuning));
    }
    for (const auto &tuning : read) {
        tuning->setRole(GuitarTuning::CoreRole);
        _stores->core.add(tuning);
    }
}

void GuitarTuningLibrary::addTuning(const std::shared_ptr<GuitarTuning> &tuning,
                                    GuitarTuning::Role role)
{
    if (tuning == nullptr)
        return;
    // A tuning stands where its own role says, unless somebody else changed that.
    const bool wasUsers = _stores->user.erase(tuning->id());
    _stores->core.erase(tuning->id());
    tuning->setRole(role);
    if (TuningStore *store = _stores->ofRole(role))
        store->add(tuning);
    if (wasUsers || role == GuitarTuning::UserRole)
        saveUserTunings();
}

void GuitarTuningLibrary::removeTuning(unsigned id, unsigned role)
{
    TuningStore *const store = _stores->ofRole(role);
    if (store != nullptr && store->erase(id) && store == &_stores->user)
        saveUserTunings();
}

QString GuitarTuningLibrary::userTuningsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QLatin1String("/userTuningLibrary.xml");
}

void GuitarTuningLibrary::loadUserTunings()
{
    _userTunings->load();
}

void GuitarTuningLibrary::saveUserTunings()
{
    _userTunings->save();
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(const std::string &name,
                                      const std::vector<int> &midiNumbers) const
{
    return TuningSearch(*_stores, allRoles, static_cast<unsigned>(midiNumbers.size()))
        .first([&](const GuitarTuning &candidate) {
            return candidate.midiNumbers() == midiNumbers && candidate.name() == name;
        });
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(const std::vector<int> &midiNumbers, unsigned stringCount,
                                      unsigned roles) const
{
    if (midiNumbers.size() != stringCount)
        return nullptr;
    return TuningSearch(*_stores, roles, stringCount).first([&](const GuitarTuning &candidate) {
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
    const auto stringCount = countsStrings ? tuning.stringCount() : TuningSearch::anyStringCount;
    const auto found = TuningSearch(*_stores, roles & role, stringCount).first(isLike);
    return found != nullptr ? found
                            : TuningSearch(*_stores, roles & ~role, stringCount).first(isLike);
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(unsigned id, unsigned stringCount, unsigned roles) const
{
    const auto added =
        _stores->find(roles, [=](const TuningStore &store) { return store.find(id, stringCount); });
    if (added != nullptr)
        return added;
    // Not where it was added: perhaps it has that many strings by now.
    const auto found = findGuitarTuning(id, roles);
    return found != nullptr && found->stringCount() == stringCount ? found : nullptr;
}

std::shared_ptr<GuitarTuning> GuitarTuningLibrary::findGuitarTuning(unsigned id,
                                                                    unsigned roles) const
{
    return _stores->find(roles, [id](const TuningStore &store) { return store.find(id); });
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::findGuitarTuning(const std::string &name, GuitarTuning::Instrument instrument,
                                      unsigned stringCount, unsigned roles) const
{
    return TuningSearch(*_stores, roles, stringCount).first([&](const GuitarTuning &candidate) {
        return candidate.instrument() == instrument && candidate.name() == name;
    });
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(unsigned roles) const
{
    return TuningSearch(*_stores, roles).all(acceptsAll);
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(unsigned stringCount,
                                                             unsigned roles) const
{
    return TuningSearch(*_stores, roles, stringCount).all(acceptsAll);
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(GuitarTuning::Instrument instrument,
                                                             unsigned roles) const
{
    return TuningSearch(*_stores, roles).all(isFor(instrument));
}

GuitarTuningLibrary::Tunings GuitarTuningLibrary::getTunings(GuitarTuning::Instrument instrument,
                                                             unsigned stringCount,
                                                             unsigned roles) const
{
    return TuningSearch(*_stores, roles, stringCount).all(isFor(instrument));
}

std::shared_ptr<GuitarTuning> GuitarTuningLibrary::defaultTuning(unsigned stringCount,
                                                                 unsigned roles) const
{
    return TuningSearch(*_stores, roles, stringCount).first(acceptsAll);
}

std::shared_ptr<GuitarTuning>
GuitarTuningLibrary::defaultTuning(GuitarTuning::Instrument instrument, unsigned stringCount,
                                   unsigned roles) const
{
    return TuningSearch(*_stores, roles, stringCount).first(isFor(instrument));
}

std::vector<GuitarTuning::Instrument> GuitarTuningLibrary::instruments() const
{
    return TuningSearch(*_stores, allRoles).values(&GuitarTuning::instrument);
}

std::vector<unsigned> GuitarTuningLibrary::stringCounts() const
{
    return TuningSearch(*_stores, allRoles).values(&GuitarTuning::stringCount);
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
