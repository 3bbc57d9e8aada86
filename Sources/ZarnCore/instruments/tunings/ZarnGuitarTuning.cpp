// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <ZarnCore/instruments/tunings/GuitarTuningData.h>

#include <QMetaEnum>

#include <algorithm>
#include <array>
#include <atomic>

namespace zarn {

namespace {

struct ReferenceTuning {
    std::size_t stringCount;
    std::array<int, 8> pitches;
};

/// The usual tunings of guitars and basses. No two of one length have the same intervals.
constexpr std::array<ReferenceTuning, 10> referenceTunings{{
    {8, {30, 35, 40, 45, 50, 55, 59, 64}},
    {7, {33, 38, 45, 50, 55, 59, 64}},
    {7, {35, 40, 45, 50, 55, 59, 64}},
    {6, {38, 45, 50, 55, 59, 64}},
    {6, {40, 45, 50, 55, 59, 64}},
    {7, {18, 23, 28, 33, 38, 43, 48}},
    {6, {23, 28, 33, 38, 43, 48}},
    {5, {23, 28, 33, 38, 43}},
    {4, {26, 33, 38, 43}},
    {4, {28, 33, 38, 43}},
}};

constexpr int clampedPitch(std::int64_t midi)
{
    return static_cast<int>(
        std::clamp<std::int64_t>(midi, GuitarTuning::minimumMidi, GuitarTuning::maximumMidi));
}

} // namespace

GuitarTuning::Data::Data()
{
    static std::atomic<std::uint32_t> nextId{0};
    id = nextId++;
}

void GuitarTuning::Data::setRangeOf(const std::vector<int> &pitches) noexcept
{
    const auto range = std::minmax_element(pitches.begin(), pitches.end());
    lowestMidi = pitches.empty() ? maximumMidi : *range.first;
    highestMidi = pitches.empty() ? minimumMidi : *range.second;
}

GuitarTuning::GuitarTuning() : _data(std::make_unique<Data>()) { }

GuitarTuning::GuitarTuning(unsigned stringCount) : GuitarTuning()
{
    _data->midiNumbers.resize(stringCount);
}

GuitarTuning::GuitarTuning(const std::vector<unsigned> &pitches)
    : GuitarTuning(static_cast<unsigned>(pitches.size()))
{
    for (std::size_t i = 0; i < pitches.size(); ++i) {
        _data->midiNumbers[i] = clampedPitch(pitches[i]);
        widenRange(_data->midiNumbers[i]);
    }
}

GuitarTuning::GuitarTuning(std::initializer_list<unsigned> pitches)
    : GuitarTuning(std::vector<unsigned>(pitches))
{
}

GuitarTuning::GuitarTuning(Instrument instrument, unsigned stringCount) : GuitarTuning(stringCount)
{
    _data->instrument = instrument;
}

GuitarTuning::GuitarTuning(Instrument instrument, std::initializer_list<unsigned> pitches)
    : GuitarTuning(pitches)
{
    _data->instrument = instrument;
}

GuitarTuning::GuitarTuning(const GuitarTuning &other) : GuitarTuning()
{
    *this = other;
}

GuitarTuning &GuitarTuning::operator=(const GuitarTuning &other)
{
    if (&other == this)
        return *this;
    const auto id = _data->id;
    const auto &source = *other._data;
    *_data = source;
    _data->id = id;
    // Strings that were never set have pitch 0 and no part in the range.
    auto counted = source.midiNumbers;
    if (source.lowestMidi > 0)
        counted.erase(std::remove(counted.begin(), counted.end(), 0), counted.end());
    _data->setRangeOf(counted);
    return *this;
}

GuitarTuning::~GuitarTuning() = default;

std::uint32_t GuitarTuning::id() const noexcept
{
    return _data->id;
}

GuitarTuning::Instrument GuitarTuning::instrument() const noexcept
{
    return _data->instrument;
}

void GuitarTuning::setInstrument(Instrument instrument) noexcept
{
    _data->instrument = instrument;
}

bool GuitarTuning::isFlat() const noexcept
{
    return _data->isFlat;
}

void GuitarTuning::setFlat(bool flat) noexcept
{
    _data->isFlat = flat;
}

int GuitarTuning::highestMidi() const noexcept
{
    return _data->highestMidi;
}

int GuitarTuning::lowestMidi() const noexcept
{
    return _data->lowestMidi;
}

const std::string &GuitarTuning::name() const noexcept
{
    return _data->name;
}

void GuitarTuning::setName(const std::string &name)
{
    _data->name = name;
}

int GuitarTuning::midiOffset() const noexcept
{
    const auto &pitches = _data->midiNumbers;
    for (const auto &reference : referenceTunings) {
        if (reference.stringCount != pitches.size())
            continue;
        const auto offset = std::int64_t{reference.pitches[0]} - pitches[0];
        if (std::equal(pitches.begin(), pitches.end(), reference.pitches.begin(),
                       [offset](int pitch, int usual) { return pitch + offset == usual; }))
            return static_cast<int>(offset);
    }
    return 0;
}

int GuitarTuning::storedMidiOffset() const noexcept
{
    return _data->midiOffset;
}

void GuitarTuning::setMidiOffset(int offset) noexcept
{
    _data->midiOffset = offset;
}

GuitarTuning::Role GuitarTuning::role() const noexcept
{
    return _data->role;
}

void GuitarTuning::setRole(Role role) noexcept
{
    _data->role = role;
}

const std::vector<int> &GuitarTuning::midiNumbers() const noexcept
{
    return _data->midiNumbers;
}

void GuitarTuning::setMidiNumbers(const std::vector<int> &midiNumbers)
{
    _data->midiNumbers = midiNumbers;
    _data->setRangeOf(midiNumbers);
}

bool GuitarTuning::hasShortDroneString() const noexcept
{
    return _data->hasShortDroneString;
}

void GuitarTuning::setShortDroneString(bool hasDrone) noexcept
{
    _data->hasShortDroneString = hasDrone;
}

const std::string &GuitarTuning::label() const noexcept
{
    return _data->label;
}

void GuitarTuning::setLabel(const std::string &label)
{
    _data->label = label;
}

bool GuitarTuning::labelVisible() const noexcept
{
    return _data->isLabelVisible;
}

void GuitarTuning::setLabelVisible(bool visible) noexcept
{
    _data->isLabelVisible = visible;
}

std::string GuitarTuning::displayedLabel() const
{
    if (!_data->isLabelVisible)
        return {};
    return _data->label.empty() ? _data->name : _data->label;
}

unsigned GuitarTuning::stringCount() const noexcept
{
    return static_cast<unsigned>(_data->midiNumbers.size());
}

int GuitarTuning::tuning(unsigned string) const noexcept
{
    return string < stringCount() ? _data->midiNumbers[string] : 0;
}

void GuitarTuning::setTuning(unsigned string, int midi) noexcept
{
    if (string >= stringCount())
        return;
    _data->midiNumbers[string] = clampedPitch(midi);
    widenRange(_data->midiNumbers[string]);
}

bool GuitarTuning::differentTunings(const GuitarTuning &a, const GuitarTuning &b, unsigned options)
{
    const auto &one = *a._data;
    const auto &other = *b._data;
    const auto differsOn = [options](CompareOption option, const auto &left, const auto &right) {
        return (options & option) != 0 && left != right;
    };
    return differsOn(CompareInstruments, one.instrument, other.instrument)
        || differsOn(ComparePitches, one.midiNumbers, other.midiNumbers)
        || differsOn(CompareStringCount, one.midiNumbers.size(), other.midiNumbers.size())
        || differsOn(CompareDrones, one.hasShortDroneString, other.hasShortDroneString)
        || differsOn(CompareNames, one.name, other.name)
        || differsOn(CompareRoles, one.role, other.role)
        || differsOn(CompareFlat, one.isFlat, other.isFlat)
        || differsOn(CompareLabel, one.label, other.label)
        || differsOn(CompareLabelVisible, one.isLabelVisible, other.isLabelVisible);
}

bool GuitarTuning::sameTunings(const GuitarTuning &a, const GuitarTuning &b, unsigned options)
{
    return !differentTunings(a, b, options);
}

bool GuitarTuning::operator==(const GuitarTuning &other) const noexcept
{
    return !differentTunings(*this, other, CompareAll)
        && _data->highestMidi == other._data->highestMidi
        && _data->lowestMidi == other._data->lowestMidi
        && _data->midiOffset == other._data->midiOffset;
}

std::string GuitarTuning::instrumentToString(Instrument instrument)
{
    const char *key = QMetaEnum::fromType<Instrument>().valueToKey(static_cast<int>(instrument));
    return key != nullptr ? key : "Undefined";
}

GuitarTuning::Instrument GuitarTuning::instrumentFromString(const std::string &text)
{
    static const auto instruments = QMetaEnum::fromType<Instrument>();
    for (int i = 0; i < instruments.keyCount(); ++i) {
        if (text == instruments.key(i))
            return static_cast<Instrument>(instruments.value(i));
    }
    return Undefined;
}

void GuitarTuning::widenRange(int midi) noexcept
{
    _data->lowestMidi = std::min(_data->lowestMidi, midi);
    _data->highestMidi = std::max(_data->highestMidi, midi);
}

} // namespace zarn
