// SPDX-License-Identifier: MIT
// Reading tunings from JSON, and their own line of text.
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/tunings/GuitarTuningData.h>

#include <rapidjson/document.h>

#include <algorithm>
#include <iomanip>
#include <istream>
#include <ostream>

namespace zarn {

namespace {

constexpr const char *parseFunction = "zarn::GuitarTuning::parse";

[[noreturn]] void raiseBroken(const std::string &what)
{
    ZARN_RAISE_IN(parseFunction, "Broken tuning: " + what);
}

/// A member of the object; null when it is missing.
const rapidjson::Value *findMember(const rapidjson::Value &object, const char *name)
{
    const auto member = object.FindMember(name);
    return member != object.MemberEnd() ? &member->value : nullptr;
}

std::string textMember(const rapidjson::Value &object, const char *name)
{
    const auto *member = findMember(object, name);
    if (member == nullptr || !member->IsString())
        raiseBroken(std::string("\"") + name + "\" is missing or no text");
    return std::string(member->GetString(), member->GetStringLength());
}

/// Pitch of a whole number of any size, clamped.
int pitchOf(const rapidjson::Value &value, std::size_t string)
{
    if (value.IsInt64())
        return static_cast<int>(std::clamp<std::int64_t>(
            value.GetInt64(), GuitarTuning::minimumMidi, GuitarTuning::maximumMidi));
    if (value.IsUint64())
        return GuitarTuning::maximumMidi;
    raiseBroken("\"midiNumbers\" has no whole number at index " + std::to_string(string));
}

} // namespace

void GuitarTuning::parse(const rapidjson::Value &value)
{
    if (!value.IsObject())
        raiseBroken("it is no object");
    Data read;
    read.id = _data->id;
    read.role = _data->role;
    read.name = textMember(value, "name");
    read.instrument = instrumentFromString(textMember(value, "instrument"));
    const auto *pitches = findMember(value, "midiNumbers");
    if (pitches == nullptr || !pitches->IsArray())
        raiseBroken("\"midiNumbers\" is missing or no array");
    read.midiNumbers.reserve(pitches->Size());
    for (const auto &pitch : pitches->GetArray()) {
        const int midi = pitchOf(pitch, read.midiNumbers.size());
        read.midiNumbers.push_back(midi);
        read.lowestMidi = std::min(read.lowestMidi, midi);
        read.highestMidi = std::max(read.highestMidi, midi);
    }
    if (const auto *offset = findMember(value, "offset")) {
        if (!offset->IsInt())
            raiseBroken("\"offset\" is no whole number");
        read.midiOffset = offset->GetInt();
        read.isFlat = read.midiOffset > 0;
    }
    const auto *drone = findMember(value, "shortDrone");
    read.hasShortDroneString = drone != nullptr && drone->IsTrue();
    *_data = std::move(read);
}

std::ostream &operator<<(std::ostream &stream, const GuitarTuning &tuning)
{
    const auto &data = *tuning._data;
    std::string text = "tuning";
    for (const std::int64_t number :
         {std::int64_t{data.instrument}, std::int64_t{data.role}, std::int64_t{data.isFlat},
          std::int64_t{data.hasShortDroneString}, std::int64_t{data.isLabelVisible},
          std::int64_t{data.midiOffset}, std::int64_t{data.lowestMidi},
          std::int64_t{data.highestMidi}})
        text += " " + std::to_string(number);
    stream << text << ' ' << std::quoted(data.name) << ' ' << std::quoted(data.label);
    text = " " + std::to_string(data.midiNumbers.size());
    for (const int midi : data.midiNumbers)
        text += " " + std::to_string(midi);
    return stream << text;
}

std::istream &operator>>(std::istream &stream, GuitarTuning &tuning)
{
    std::string tag;
    std::uint32_t instrument = 0;
    std::uint32_t role = 0;
    GuitarTuning read;
    auto &data = *read._data;
    const auto flags = stream.flags(std::ios_base::dec | std::ios_base::skipws);
    stream >> tag >> instrument >> role >> data.isFlat >> data.hasShortDroneString
        >> data.isLabelVisible >> data.midiOffset >> data.lowestMidi >> data.highestMidi
        >> std::quoted(data.name) >> std::quoted(data.label);
    std::size_t stringCount = 0;
    stream >> stringCount;
    // The count is only believed as far as numbers follow.
    for (int midi = 0; data.midiNumbers.size() < stringCount && stream >> midi;)
        data.midiNumbers.push_back(midi);
    stream.flags(flags);
    const bool isKnown = tag == "tuning" && instrument <= GuitarTuning::Contrabass
        && (role == GuitarTuning::NoRole || role == GuitarTuning::CoreRole
            || role == GuitarTuning::UserRole);
    if (!isKnown)
        stream.setstate(std::ios_base::failbit);
    if (!stream)
        return stream;
    data.instrument = static_cast<GuitarTuning::Instrument>(instrument);
    data.role = static_cast<GuitarTuning::Role>(role);
    data.id = tuning.id();
    tuning._data.swap(read._data);
    return stream;
}

} // namespace zarn
