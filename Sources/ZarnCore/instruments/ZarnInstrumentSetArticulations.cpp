// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/ZarnInstrumentSet.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace zarn {
namespace {

template <typename Key>
int numberAt(const std::unordered_map<Key, int> &numbers, const Key &key)
{
    const auto found = numbers.find(key);
    return found == numbers.end() ? -1 : found->second;
}

/// Number of the first that fits; -1 when none does.
template <typename Fits>
int indexOfFirst(const std::vector<InstrumentArticulation> &articulations, Fits fits)
{
    const auto found = std::find_if(articulations.begin(), articulations.end(), fits);
    return found == articulations.end() ? -1 : static_cast<int>(found - articulations.begin());
}

bool hasInput(const InstrumentArticulation &articulation, std::int32_t midi)
{
    const auto &inputs = articulation.inputMidiNumbers();
    return std::find(inputs.begin(), inputs.end(), midi) != inputs.end();
}

} // namespace

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
    _articulationOfName.clear();
    _articulationOfMidi.clear();
    for (int index = 0; index < static_cast<int>(_articulations.size()); ++index)
        indexArticulation(index);
}

void InstrumentSet::indexArticulation(int index)
{
    const InstrumentArticulation &articulation = _articulations[static_cast<std::size_t>(index)];
    _articulationOfName.emplace(articulation.name(), index);
    for (const std::int32_t midi : articulation.inputMidiNumbers())
        _articulationOfMidi.emplace(midi, index);
}

int InstrumentSet::indexOfArticulation(const InstrumentArticulation &articulation) const noexcept
{
    return indexOfFirst(_articulations, [&](const auto &own) { return own == articulation; });
}

int InstrumentSet::indexOfArticulationWithMidi(std::int32_t midi) const noexcept
{
    return numberAt(_articulationOfMidi, midi);
}

int InstrumentSet::indexOfArticulationWithName(const std::string &name) const
{
    return numberAt(_articulationOfName, name);
}

int InstrumentSet::indexOfArticulationWithNameAndStaffLine(const std::string &name,
                                                           std::int32_t staffLine) const noexcept
{
    return indexOfFirst(_articulations, [&](const auto &own) {
        return own.staffLine() == staffLine && own.name() == name;
    });
}

int InstrumentSet::indexOfArticulationWithStaffLineAndKey(std::int32_t staffLine,
                                                          std::int32_t key) const noexcept
{
    const int played = indexOfFirst(_articulations, [&](const auto &own) {
        return own.staffLine() == staffLine && own.outputMidiNumber() == key;
    });
    if (played >= 0)
        return played;
    return indexOfFirst(_articulations, [&](const auto &own) {
        return own.staffLine() == staffLine && hasInput(own, key);
    });
}

int InstrumentSet::indexOfFirstArticulationWithStaffLine(std::int32_t staffLine) const noexcept
{
    return indexOfFirst(_articulations,
                        [&](const auto &own) { return own.staffLine() == staffLine; });
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
    std::set<std::int32_t> lines;
    for (const InstrumentArticulation &articulation : _articulations)
        lines.insert(articulation.staffLine());
    return {lines.begin(), lines.end()};
}

std::int32_t InstrumentSet::nextLine(std::int32_t staffLine) const noexcept
{
    std::int32_t nearest = staffLine;
    for (const InstrumentArticulation &articulation : _articulations) {
        const std::int32_t line = articulation.staffLine();
        if (line > staffLine && (nearest == staffLine || line < nearest))
            nearest = line;
    }
    return nearest;
}

std::int32_t InstrumentSet::previousLine(std::int32_t staffLine) const noexcept
{
    std::int32_t nearest = staffLine;
    for (const InstrumentArticulation &articulation : _articulations) {
        const std::int32_t line = articulation.staffLine();
        if (line < staffLine && (nearest == staffLine || line > nearest))
            nearest = line;
    }
    return nearest;
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
    int index = indexOfFirst(_articulations, [&](const auto &own) {
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
    indexArticulation(index);
    return index;
}

bool operator==(const InstrumentSet &a, const InstrumentSet &b) noexcept
{
    return a._name == b._name && a._type == b._type && a._lineCount == b._lineCount
        && a._elements == b._elements && a._articulations == b._articulations;
}

} // namespace zarn
