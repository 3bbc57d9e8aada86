// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/utils/JsonMembers.h>

#include <algorithm>
#include <atomic>
#include <utility>

namespace zarn {
namespace {

std::atomic<const InstrumentSetLibrary *> installedLibrary{nullptr};

template <typename Key>
std::shared_ptr<const InstrumentSet> setAt(const std::unordered_map<Key, std::size_t> &places,
                                           const Key &key, const InstrumentSetLibrary::Sets &sets)
{
    const auto found = places.find(key);
    return found == places.end() ? nullptr : sets[found->second];
}

} // namespace

InstrumentSetLibrary::~InstrumentSetLibrary()
{
    const auto *self = this;
    installedLibrary.compare_exchange_strong(self, nullptr);
}

void InstrumentSetLibrary::parse(const rapidjson::Value &array)
{
    Sets sets;
    utils::JsonMembers::forEachIn(array, "instrumentSets", "zarn::InstrumentSetLibrary::parse",
                                  [&sets](const rapidjson::Value &value, unsigned) {
                                      auto set = std::make_shared<InstrumentSet>();
                                      set->parse(value);
                                      sets.push_back(std::move(set));
                                  });
    add(std::move(sets));
}

void InstrumentSetLibrary::setInstrumentSets(Sets sets)
{
    const bool hasNoGap =
        std::all_of(sets.begin(), sets.end(), [](const auto &set) { return set != nullptr; });
    ZARN_ASSERT_IN("zarn::InstrumentSetLibrary::setInstrumentSets", hasNoGap);
    _sets.clear();
    _placeOfName.clear();
    _placeOfType.clear();
    add(std::move(sets));
}

void InstrumentSetLibrary::add(Sets sets)
{
    _sets.reserve(_sets.size() + sets.size());
    for (auto &set : sets) {
        _placeOfName.emplace(set->name(), _sets.size());
        _placeOfType.emplace(set->type(), _sets.size());
        _sets.push_back(std::move(set));
    }
}

std::shared_ptr<const InstrumentSet>
InstrumentSetLibrary::findInstrumentSetWithName(const std::string &name) const
{
    return setAt(_placeOfName, name, _sets);
}

std::shared_ptr<const InstrumentSet>
InstrumentSetLibrary::findInstrumentSetWithType(InstrumentSet::Type type) const noexcept
{
    return setAt(_placeOfType, std::uint32_t{type}, _sets);
}

void InstrumentSetLibrary::install(const InstrumentSetLibrary *library) noexcept
{
    installedLibrary.store(library, std::memory_order_release);
}

const InstrumentSetLibrary *InstrumentSetLibrary::installed() noexcept
{
    return installedLibrary.load(std::memory_order_acquire);
}

} // namespace zarn
