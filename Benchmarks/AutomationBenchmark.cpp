// SPDX-License-Identifier: MIT
// Automations against a sorted vector with binary search: 10,000 are inserted in random order and
// looked up.
#include "RatioReport.h"

#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

namespace {

using namespace zarn;

constexpr std::size_t automationCount = 10000;

struct Place {
    std::uint32_t index;
    float position;
};

bool isBefore(const Place &a, const Place &b)
{
    return a.index != b.index ? a.index < b.index : a.position < b.position;
}

/// Places of automations in random order, four to the bar, no two the same.
std::vector<Place> randomPlaces(unsigned seed)
{
    std::vector<Place> places;
    for (std::size_t i = 0; i < automationCount; ++i)
        places.push_back({static_cast<std::uint32_t>(i / 4), static_cast<float>(i % 4)});
    std::shuffle(places.begin(), places.end(), std::mt19937(seed));
    return places;
}

std::unique_ptr<Automation> automationAt(const Place &place, float value)
{
    auto automation = std::make_unique<TempoAutomation>();
    automation->setIndex(place.index);
    automation->setPosition(place.position);
    automation->setValue(value);
    return automation;
}

/// The reference: the same automations, owned by a vector that is kept sorted.
class SortedVector {
public:
    void insert(std::unique_ptr<Automation> automation)
    {
        _automations.insert(firstNotBefore({automation->index(), automation->position()}),
                            std::move(automation));
    }

    const Automation *find(const Place &place)
    {
        const auto found = firstNotBefore(place);
        const bool isThere = found != _automations.end() && (*found)->index() == place.index
            && (*found)->position() == place.position;
        return isThere ? found->get() : nullptr;
    }

private:
    using Automations = std::vector<std::unique_ptr<Automation>>;

    Automations::iterator firstNotBefore(const Place &place)
    {
        return std::lower_bound(_automations.begin(), _automations.end(), place,
                                [](const std::unique_ptr<Automation> &a, const Place &b) {
                                    return isBefore({a->index(), a->position()}, b);
                                });
    }

    Automations _automations;
};

/// A harder reference: bare records without owners, moved by one memmove.
class SortedRecords {
public:
    struct Record {
        Place place;
        float value;
    };

    void insert(const Record &record) { _records.insert(firstNotBefore(record.place), record); }

    const Record *find(const Place &place)
    {
        const auto found = firstNotBefore(place);
        return found != _records.end() && !isBefore(place, found->place) ? &*found : nullptr;
    }

private:
    std::vector<Record>::iterator firstNotBefore(const Place &place)
    {
        return std::lower_bound(
            _records.begin(), _records.end(), place,
            [](const Record &a, const Place &b) { return isBefore(a.place, b); });
    }

    std::vector<Record> _records;
};

void insert(SortedVector &values, const Place &place, float value)
{
    values.insert(automationAt(place, value));
}

void insert(SortedRecords &values, const Place &place, float value)
{
    values.insert({place, value});
}

void insert(AutomationContainer &values, const Place &place, float value)
{
    values.insertAutomation(automationAt(place, value));
}

template <typename Container>
const void *find(Container &values, const Place &place)
{
    return values.find(place);
}

const void *find(AutomationContainer &values, const Place &place)
{
    return values.automation(Automation::Tempo, place.index, place.position);
}

template <typename Container>
void fill(Container &container, const std::vector<Place> &places)
{
    float value = 0;
    for (const auto &place : places)
        insert(container, place, ++value);
}

template <typename Container>
void lookUp(Container &container, const std::vector<Place> &places)
{
    for (const auto &place : places)
        benchmark::DoNotOptimize(find(container, place));
}

template <typename Container>
void insertAndLookUp(benchmark::State &state)
{
    const auto inserted = randomPlaces(1);
    const auto lookedUp = randomPlaces(2);
    for (auto _ : state) {
        Container container;
        fill(container, inserted);
        lookUp(container, lookedUp);
    }
}

template <typename Container>
void lookUpOnly(benchmark::State &state)
{
    const auto lookedUp = randomPlaces(2);
    Container container;
    fill(container, randomPlaces(1));
    for (auto _ : state)
        lookUp(container, lookedUp);
}

} // namespace

int main(int argc, char **argv)
{
    bench::RatioReport report;
    report.compare("automations: 10,000 inserted and looked up", 1.5, insertAndLookUp<SortedVector>,
                   insertAndLookUp<AutomationContainer>);
    report.compare("automations: look-ups alone", 1.5, lookUpOnly<SortedVector>,
                   lookUpOnly<AutomationContainer>);
    report.compare("automations: look-ups against bare records", 1.5, lookUpOnly<SortedRecords>,
                   lookUpOnly<AutomationContainer>);
    report.compare("automations: inserted and looked up, bare records", 1.5,
                   insertAndLookUp<SortedRecords>, insertAndLookUp<AutomationContainer>);
    return report.run(argc, argv);
}
