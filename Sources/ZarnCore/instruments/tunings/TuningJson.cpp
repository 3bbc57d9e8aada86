// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/TuningJson.h>

#include <ZarnCore/ZarnAssert.h>

#include <rapidjson/document.h>

#include <string>

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
        return TuningData::clampedPitch(value.GetInt64());
    if (value.IsUint64())
        return GuitarTuning::maximumMidi;
    raiseBroken("\"midiNumbers\" has no whole number at index " + std::to_string(string));
}

} // namespace

TuningData tuningFromJson(const rapidjson::Value &value)
{
    if (!value.IsObject())
        raiseBroken("it is no object");
    TuningData read;
    read.name = textMember(value, "name");
    read.instrument = GuitarTuning::instrumentFromString(textMember(value, "instrument"));
    const auto *pitches = findMember(value, "midiNumbers");
    if (pitches == nullptr || !pitches->IsArray())
        raiseBroken("\"midiNumbers\" is missing or no array");
    read.midiNumbers.reserve(pitches->Size());
    for (const auto &pitch : pitches->GetArray()) {
        const int midi = pitchOf(pitch, read.midiNumbers.size());
        read.midiNumbers.push_back(midi);
        read.widenRange(midi);
    }
    if (const auto *offset = findMember(value, "offset")) {
        if (!offset->IsInt())
            raiseBroken("\"offset\" is no whole number");
        read.midiOffset = offset->GetInt();
        read.isFlat = read.midiOffset > 0;
    }
    const auto *drone = findMember(value, "shortDrone");
    read.hasShortDroneString = drone != nullptr && drone->IsTrue();
    return read;
}

} // namespace zarn
