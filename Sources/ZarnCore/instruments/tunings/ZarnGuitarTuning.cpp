// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <ZarnCore/instruments/tunings/FrettedString.h>
#include <ZarnCore/instruments/tunings/ReferenceTunings.h>
#include <ZarnCore/instruments/tunings/TuningData.h>
#include <ZarnCore/instruments/tunings/TuningJson.h>
#include <ZarnCore/instruments/tunings/TuningText.h>
#include <ZarnCore/music/ZarnTone.h>

#include <QMetaEnum>
#include <QStringList>

#include <algorithm>
#include <istream>
#include <ostream>

namespace zarn {
namespace {

QStringList toneNames(const GuitarTuning &tuning, bool preferSharp)
{
    QStringList names;
    for (const int midi : tuning.midiNumbers())
        names.append(Tone(midi).toString(preferSharp));
    return names;
}

} // namespace

GuitarTuning::GuitarTuning() : _data(std::make_unique<TuningData>()) { }

GuitarTuning::GuitarTuning(unsigned stringCount) : GuitarTuning()
{
    _data->midiNumbers.resize(stringCount);
}

GuitarTuning::GuitarTuning(const std::vector<unsigned> &pitches)
    : GuitarTuning(static_cast<unsigned>(pitches.size()))
{
    for (std::size_t i = 0; i < pitches.size(); ++i) {
        _data->midiNumbers[i] = TuningData::clampedPitch(pitches[i]);
        _data->widenRange(_data->midiNumbers[i]);
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
    return offsetFromReferenceTuning(_data->midiNumbers);
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
    _data->midiNumbers[string] = TuningData::clampedPitch(midi);
    _data->widenRange(_data->midiNumbers[string]);
}

FrettedString GuitarTuning::stringAt(unsigned string) const noexcept
{
    const bool isDrone = _data->hasShortDroneString && string == 0;
    return {tuning(string), isDrone ? droneFret : 0};
}

int GuitarTuning::midi(unsigned string, int fret) const noexcept
{
    return stringAt(string).midi(fret);
}

Tone GuitarTuning::tone(unsigned string, int fret) const noexcept
{
    return Tone(midi(string, fret));
}

int GuitarTuning::fret(unsigned string, int midi, int lastFret) const noexcept
{
    return string < stringCount() ? stringAt(string).fret(midi, lastFret) : -1;
}

int GuitarTuning::fret(unsigned string, const Tone &tone, unsigned firstFret,
                       int lastFret) const noexcept
{
    return string < stringCount() ? stringAt(string).fret(tone, firstFret, lastFret) : -1;
}

void GuitarTuning::frets(unsigned string, const Tone &tone, int lastFret,
                         std::list<int> &frets) const
{
    frets = string < stringCount() ? stringAt(string).frets(tone, lastFret) : std::list<int>();
}

bool GuitarTuning::firstStringAndFret(int midi, unsigned lowestString, int lastFret,
                                      unsigned &string, int &fret) const noexcept
{
    for (auto candidate = stringCount(); candidate > lowestString; --candidate) {
        const int found = this->fret(candidate - 1, midi, lastFret);
        if (found < 0)
            continue;
        string = candidate - 1;
        fret = found;
        return true;
    }
    return false;
}

QString GuitarTuning::toString(bool preferSharp) const
{
    return toneNames(*this, preferSharp).join(QString());
}

QString GuitarTuning::defaultNameFromTuning(bool preferSharp, bool hasDrone) const
{
    auto names = toneNames(*this, preferSharp);
    if (hasDrone && !names.isEmpty())
        names[0] = tone(0, droneFret).toString(preferSharp);
    return names.join(QLatin1Char(' '));
}

QString GuitarTuning::nameWithNotes(bool preferSharp, bool hasDrone) const
{
    return QString::fromStdString(name()) + QLatin1Char(' ')
        + defaultNameFromTuning(preferSharp, hasDrone);
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

void GuitarTuning::parse(const rapidjson::Value &value)
{
    TuningData read = tuningFromJson(value);
    read.id = _data->id;
    read.role = _data->role;
    *_data = std::move(read);
}

std::ostream &operator<<(std::ostream &stream, const GuitarTuning &tuning)
{
    writeTuning(stream, *tuning._data);
    return stream;
}

std::istream &operator>>(std::istream &stream, GuitarTuning &tuning)
{
    TuningData read;
    readTuning(stream, read);
    if (!stream)
        return stream;
    read.id = tuning.id();
    *tuning._data = std::move(read);
    return stream;
}

} // namespace zarn
