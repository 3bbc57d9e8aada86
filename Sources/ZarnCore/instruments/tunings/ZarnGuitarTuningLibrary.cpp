// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/UserFile.h>

#include <rapidjson/document.h>

#include <utility>

namespace zarn {

namespace {

constexpr const char *parseFunction = "zarn::GuitarTuningLibrary::parse";

/// Takes a tuning out by its id, wherever it stands; whether it was there.
bool erase(GuitarTuningLibrary::Store &store, unsigned id)
{
    for (auto strings = store.begin(); strings != store.end(); ++strings) {
        if (strings->second.erase(id) == 0)
            continue;
        if (strings->second.empty())
            store.erase(strings);
        return true;
    }
    return false;
}

} // namespace

GuitarTuningLibrary::GuitarTuningLibrary()
    : _userFile(std::make_unique<UserFile>("GuitarTuningLibrary", userTuningsPath))
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
    for (auto &tuning : read) {
        tuning->setRole(GuitarTuning::CoreRole);
        // Nobody has these yet, and their ids are the highest.
        auto &strings = _coreTunings[tuning->stringCount()];
        strings.emplace_hint(strings.end(), tuning->id(), std::move(tuning));
    }
}

void GuitarTuningLibrary::addTuning(const std::shared_ptr<GuitarTuning> &tuning,
                                    GuitarTuning::Role role)
{
    if (tuning == nullptr)
        return;
    // A tuning stands where its own role says, unless somebody else changed that.
    const bool wasUsers = erase(_userTunings, tuning->id());
    erase(_coreTunings, tuning->id());
    tuning->setRole(role);
    if (Store *store = storeOf(role))
        (*store)[tuning->stringCount()][tuning->id()] = tuning;
    if (wasUsers || role == GuitarTuning::UserRole)
        saveUserTunings();
}

void GuitarTuningLibrary::removeTuning(unsigned id, unsigned role)
{
    Store *store = storeOf(role);
    if (store != nullptr && erase(*store, id) && store == &_userTunings)
        saveUserTunings();
}

const GuitarTuningLibrary::Store *GuitarTuningLibrary::storeOf(unsigned role) const noexcept
{
    if (role == GuitarTuning::CoreRole)
        return &_coreTunings;
    return role == GuitarTuning::UserRole ? &_userTunings : nullptr;
}

GuitarTuningLibrary::Store *GuitarTuningLibrary::storeOf(unsigned role) noexcept
{
    return const_cast<Store *>(std::as_const(*this).storeOf(role));
}

} // namespace zarn
