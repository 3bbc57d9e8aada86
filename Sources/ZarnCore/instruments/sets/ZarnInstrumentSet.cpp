// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <ZarnCore/instruments/sets/ArticulationIndex.h>
#include <ZarnCore/instruments/sets/InstrumentTypeNames.h>
#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>
#include <ZarnCore/instruments/sets/KitMix.h>
#include <ZarnCore/instruments/sets/SoundCategories.h>
#include <ZarnCore/utils/JsonMembers.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace zarn {
namespace {

constexpr const char *parseFunction = "zarn::InstrumentSet::parse";

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
    _index = std::make_shared<const ArticulationIndex>(_articulations);
}

const ArticulationIndex &InstrumentSet::articulationIndex() const noexcept
{
    static const ArticulationIndex nothing;
    return _index ? *_index : nothing;
}

void InstrumentSet::parse(const rapidjson::Value &value)
{
    using utils::JsonMembers;
    const JsonMembers members(value, parseFunction);
    InstrumentSet read;
    read._name = members.text("name");
    read._lineCount = members.count("lineCount");
    read._type = typeFromString(std::string(members.text("type")));
    std::size_t articulationCount = 0;
    members.forEach("elements", [&](const rapidjson::Value &object, unsigned) {
        articulationCount += JsonMembers(object, parseFunction).sizeOf("articulations");
    });
    read._elements.reserve(members.sizeOf("elements"));
    read._articulations.reserve(articulationCount);
    members.forEach("elements", [&read](const rapidjson::Value &object, unsigned index) {
        const JsonMembers element(object, parseFunction);
        read._elements.emplace_back(
            std::string(element.text("name")), std::string(element.textOr("orkaSoundBank", {})),
            Instrument::typeFromString(std::string(element.text("type"))), index);
        element.forEach("articulations", [&read](const rapidjson::Value &articulation, unsigned) {
            InstrumentArticulation &added = read._articulations.emplace_back();
            added.setElement(read._elements.back());
            added.parse(articulation);
        });
    });
    read.indexArticulations();
    *this = std::move(read);
}

int InstrumentSet::indexOfArticulation(const InstrumentArticulation &articulation) const
{
    return indexOfFirst(_articulations, indexOfArticulationWithName(articulation.name()),
                        [&](const auto &own) { return own == articulation; });
}

int InstrumentSet::indexOfArticulationWithMidi(std::int32_t midi) const noexcept
{
    return articulationIndex().ofMidi(midi);
}

int InstrumentSet::indexOfArticulationWithName(const std::string &name) const
{
    return articulationIndex().ofName(name);
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
    return articulationIndex().ofLineAndKey(staffLine, key);
}

int InstrumentSet::indexOfFirstArticulationWithStaffLine(std::int32_t staffLine) const noexcept
{
    return articulationIndex().ofLine(staffLine);
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
    return articulationIndex().lines();
}

std::int32_t InstrumentSet::nextLine(std::int32_t staffLine) const noexcept
{
    return articulationIndex().lineAbove(staffLine);
}

std::int32_t InstrumentSet::previousLine(std::int32_t staffLine) const noexcept
{
    return articulationIndex().lineBelow(staffLine);
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

ZarnVolumePan InstrumentSet::volumePanFromElement(const InstrumentSetElement &element) const
{
    return isPercussionKit() ? placeInKitMix(_elements, element) : ZarnVolumePan();
}

std::string InstrumentSet::typeToString(Type type)
{
    return textOfInstrumentType(type);
}

InstrumentSet::Type InstrumentSet::typeFromString(const std::string &text)
{
    return instrumentTypeFromText(text);
}

std::string InstrumentSet::typeName(Type type)
{
    return nameOfInstrumentType(type);
}

unsigned InstrumentSet::compatibilityLevel(Type a, Type b) noexcept
{
    return detail::compatibilityOfTypes(a, b);
}

std::string InstrumentSet::soundCategoryFallback(Type type)
{
    return soundCategoryOf(type);
}

ZarnIconID InstrumentSet::soundCategoryToIconID(const std::string &path)
{
    return iconOfSoundCategory(path);
}

bool operator==(const InstrumentSet &a, const InstrumentSet &b) noexcept
{
    return a._name == b._name && a._type == b._type && a._lineCount == b._lineCount
        && a._elements == b._elements && a._articulations == b._articulations;
}

} // namespace zarn
