// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace zarn {
namespace {

/// Sorts entries and keeps the first that was added under each key.
template <typename Entries>
void sortEntries(Entries &entries)
{
    std::stable_sort(entries.begin(), entries.end(),
                     [](const auto &a, const auto &b) { return a.key < b.key; });
    const auto end = std::unique(entries.begin(), entries.end(),
                                 [](const auto &a, const auto &b) { return a.key == b.key; });
    entries.erase(end, entries.end());
}

template <typename Entries, typename Key>
auto firstNotBelow(const Entries &entries, const Key &key)
{
    return std::lower_bound(
        entries.begin(), entries.end(), key,
        [](const auto &entry, const Key &wanted) { return entry.key < wanted; });
}

/// The number under a key; -1 when there is none.
template <typename Entries, typename Key>
int numberAt(const Entries &entries, const Key &key)
{
    const auto found = firstNotBelow(entries, key);
    return found != entries.end() && found->key == key ? found->index : -1;
}

template <typename Key>
int numberOf(const std::unordered_map<Key, int> &numbers, const Key &key)
{
    const auto found = numbers.find(key);
    return found != numbers.end() ? found->second : -1;
}

/// Number of the first from `first` on that fits; -1 when none does, or when `first` is -1.
template <typename Fits>
int indexOfFirst(const std::vector<InstrumentArticulation> &articulations, int first, Fits fits)
{
    if (first < 0)
        return -1;
    const auto found = std::find_if(articulations.begin() + first, articulations.end(), fits);
    return found == articulations.end() ? -1 : static_cast<int>(found - articulations.begin());
}

} // namespace

InstrumentSet::InstrumentSet(const InstrumentSet &other)
    : _name(other._name), _type(other._type), _lineCount(other._lineCount),
      _elements(other._elements), _articulations(other._articulations)
{
    indexArticulations();
}

InstrumentSet &InstrumentSet::operator=(const InstrumentSet &other)
{
    return *this = InstrumentSet(other);
}

void InstrumentSet::setElements(std::vector<InstrumentSetElement> elements)
{
    _elements = std::move(elements);
}

void InstrumentSet::setArticulations(std::vector<InstrumentArticulation> articulations)
{
    _articulations = std::move(articulations);
    indexArticulations();
}

void InstrumentSet::indexArticulations()
{
    _ofName.clear();
    _ofMidi.clear();
    _ofLineAndKey.clear();
    _ofLine.clear();
    _ofName.reserve(_articulations.size());
    _ofMidi.reserve(_articulations.size());
    _ofLineAndKey.reserve(2 * _articulations.size());
    _ofLine.reserve(_articulations.size());
    int index = 0;
    for (const InstrumentArticulation &articulation : _articulations) {
        const auto line = articulation.staffLine();
        _ofName.emplace(articulation.name(), index);
        _ofLine.push_back({line, index});
        _ofLineAndKey.push_back({{line, articulation.outputMidiNumber()}, index});
        for (const std::int32_t midi : articulation.inputMidiNumbers())
            _ofMidi.emplace(midi, index);
        ++index;
    }
    // Keys that enter an articulation count behind those that play one.
    index = 0;
    for (const InstrumentArticulation &articulation : _articulations) {
        for (const std::int32_t midi : articulation.inputMidiNumbers())
            _ofLineAndKey.push_back({{articulation.staffLine(), midi}, index});
        ++index;
    }
    sortEntries(_ofLineAndKey);
    sortEntries(_ofLine);
}

int InstrumentSet::indexOfArticulation(const InstrumentArticulation &articulation) const
{
    return indexOfFirst(_articulations, indexOfArticulationWithName(articulation.name()),
                        [&](const auto &own) { return own == articulation; });
}

int InstrumentSet::indexOfArticulationWithMidi(std::int32_t midi) const noexcept
{
    return numberOf(_ofMidi, midi);
}

int InstrumentSet::indexOfArticulationWithName(const std::string &name) const
{
    return numberOf(_ofName, std::string_view(name));
}

int InstrumentSet::indexOfArticulationWithNameAndStaffLine(const std::string &name,
                                                           std::int32_t staffLine) const
{
    return indexOfFirst(_articulations, indexOfArticulationWithName(name), [&](const auto &own) {
        return own.staffLine() == staffLine && own.name() == name;
    });
}

int InstrumentSet::indexOfArticulationWithStaffLineAndKey(std::int32_t staffLine,
                                                          std::int32_t key) const noexcept
{
    return numberAt(_ofLineAndKey, LineAndKey(staffLine, key));
}

int InstrumentSet::indexOfFirstArticulationWithStaffLine(std::int32_t staffLine) const noexcept
{
    return numberAt(_ofLine, staffLine);
}

int InstrumentSet::nextIndexOfArticulationWithSharedElement(int index) const noexcept
{
    return stepInElement(index, 1);
}

int InstrumentSet::previousIndexOfArticulationWithSharedElement(int index) const noexcept
{
    return stepInElement(index, -1);
}

int InstrumentSet::stepInElement(int index, int step) const noexcept
{
    const int count = static_cast<int>(_articulations.size());
    if (index < 0 || index >= count)
        return -1;
    const auto &element = _articulations[static_cast<std::size_t>(index)].element();
    int at = index;
    do
        at = (at + step + count) % count;
    while (_articulations[static_cast<std::size_t>(at)].element() != element);
    return at;
}

std::vector<InstrumentArticulation>
InstrumentSet::articulationsWithElement(const InstrumentSetElement &element) const
{
    std::vector<InstrumentArticulation> articulations;
    std::copy_if(_articulations.begin(), _articulations.end(), std::back_inserter(articulations),
                 [&](const auto &own) { return own.element() == element; });
    return articulations;
}

std::vector<std::int32_t> InstrumentSet::staffLines() const
{
    std::vector<std::int32_t> lines;
    for (const auto &entry : _ofLine)
        lines.push_back(entry.key);
    return lines;
}

std::int32_t InstrumentSet::nextLine(std::int32_t staffLine) const noexcept
{
    auto above = firstNotBelow(_ofLine, staffLine);
    if (above != _ofLine.end() && above->key == staffLine)
        ++above;
    return above == _ofLine.end() ? staffLine : above->key;
}

std::int32_t InstrumentSet::previousLine(std::int32_t staffLine) const noexcept
{
    const auto from = firstNotBelow(_ofLine, staffLine);
    return from == _ofLine.begin() ? staffLine : std::prev(from)->key;
}

unsigned InstrumentSet::mergeInstrumentElement(const InstrumentSetElement &element)
{
    const auto own = std::find_if(_elements.begin(), _elements.end(), [&](const auto &candidate) {
        return candidate.name() == element.name() && candidate.type() == element.type();
    });
    const auto index = static_cast<unsigned>(own - _elements.begin());
    if (own == _elements.end()) {
        _elements.push_back(element);
        _elements.back().setIndex(index);
    } else if (own->soundbankName().empty() && !element.soundbankName().empty()) {
        const InstrumentSetElement before = *own;
        own->setSoundbankName(element.soundbankName());
        for (InstrumentArticulation &articulation : _articulations)
            if (articulation.element() == before)
                articulation.setElement(*own);
    }
    return index;
}

int InstrumentSet::mergeInstrumentArticulation(const InstrumentArticulation &articulation)
{
    // The articulation may be one of this very set, whose vectors grow.
    InstrumentArticulation merged = articulation;
    merged.setElement(_elements[mergeInstrumentElement(articulation.element())]);
    int index = indexOfFirst(_articulations, 0, [&](const auto &own) {
        return own.element() == merged.element() && own.name() == merged.name()
            && own.staffLine() == merged.staffLine();
    });
    if (index < 0) {
        index = static_cast<int>(_articulations.size());
        _articulations.push_back(std::move(merged));
    } else {
        auto &own = _articulations[static_cast<std::size_t>(index)];
        auto inputs = own.inputMidiNumbers();
        for (const std::int32_t midi : merged.inputMidiNumbers())
            if (indexOfArticulationWithMidi(midi) < 0)
                inputs.push_back(midi);
        own.setInputMidiNumbers(inputs);
    }
    indexArticulations();
    return index;
}

bool operator==(const InstrumentSet &a, const InstrumentSet &b) noexcept
{
    return a._name == b._name && a._type == b._type && a._lineCount == b._lineCount
        && a._elements == b._elements && a._articulations == b._articulations;
}

} // namespace zarn
