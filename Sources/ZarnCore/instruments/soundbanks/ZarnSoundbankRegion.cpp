// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankRegion.h>

#include <ZarnCore/utils/JsonMembers.h>

#include <algorithm>
#include <array>

namespace zarn {

namespace {

constexpr const char *parseFunction = "zarn::SoundbankRegion::parse";
constexpr int highestKey = 127;
constexpr int highestGroup = 65535;

/// A member that is a number within bounds.
struct NumberField {
    const char *name;
    double SoundbankRegion::*member;
    double least;
    double most;
};

constexpr std::array<NumberField, 4> numberFields = {{
    {"tune", &SoundbankRegion::tune, -2400, 2400},
    {"gain", &SoundbankRegion::gain, -96, 24},
    {"pan", &SoundbankRegion::pan, -1, 1},
    {"release", &SoundbankRegion::release, 0, 60},
}};

struct GroupField {
    const char *name;
    int SoundbankRegion::*member;
};

constexpr std::array<GroupField, 2> groupFields = {{
    {"roundRobin", &SoundbankRegion::roundRobin},
    {"chokeGroup", &SoundbankRegion::chokeGroup},
}};

std::string outside(const char *name, double least, double most)
{
    const auto number = [](double value) { return std::to_string(static_cast<int>(value)); };
    return std::string("member \"") + name + "\" is no number from " + number(least) + " to "
        + number(most);
}

void readNumbers(const utils::JsonMembers &json, SoundbankRegion &region)
{
    for (const auto &field : numberFields)
        if (const auto *value = json.find(field.name)) {
            if (!value->IsNumber() || !(value->GetDouble() >= field.least)
                || !(value->GetDouble() <= field.most))
                json.raise(outside(field.name, field.least, field.most));
            region.*field.member = value->GetDouble();
        }
    for (const auto &field : groupFields) {
        const int group = json.integerOr(field.name, 0);
        if (group < 0 || group > highestGroup)
            json.raise(outside(field.name, 0, highestGroup));
        region.*field.member = group;
    }
}

/// A number, or an array of the first and the last.
RegionRange readRange(const utils::JsonMembers &json, const char *name, int least, int most)
{
    const auto *const value = json.find(name);
    if (value == nullptr)
        return {least, most};
    RegionRange range{least - 1, least - 1};
    if (value->IsInt())
        range = {value->GetInt(), value->GetInt()};
    else if (value->IsArray() && value->Size() == 2 && (*value)[0].IsInt() && (*value)[1].IsInt())
        range = {(*value)[0].GetInt(), (*value)[1].GetInt()};
    if (range.first < least || range.last > most || range.first > range.last)
        json.raise(outside(name, least, most) + ", and no pair of them with the lower one first");
    return range;
}

std::int64_t readFrame(const utils::JsonMembers &json, const char *name)
{
    const auto *const value = json.find(name);
    if (value == nullptr || !value->IsInt64() || value->GetInt64() < 0)
        json.raise(std::string("member \"") + name + "\" is missing or no whole number from 0 up");
    return value->GetInt64();
}

SoundbankRegion::Loop readLoop(const utils::JsonMembers &json)
{
    const SoundbankRegion::Loop loop{readFrame(json, "start"), readFrame(json, "end")};
    if (loop.start >= loop.end)
        json.raise("the loop has no frame");
    return loop;
}

} // namespace

SoundbankRegion SoundbankRegion::parse(const rapidjson::Value &value)
{
    const utils::JsonMembers json(value, parseFunction);
    SoundbankRegion region;
    region.sample = json.text("sample");
    region.keys = readRange(json, "keys", 0, highestKey);
    region.velocities = readRange(json, "velocities", 1, highestKey);
    // A sample of one key was most likely recorded there.
    const bool isOneKey = region.keys.first == region.keys.last;
    region.rootKey = json.integerOr("rootKey", isOneKey ? region.keys.first : 60);
    if (region.rootKey < 0 || region.rootKey > highestKey)
        json.raise(outside("rootKey", 0, highestKey));
    if (json.find("loop") != nullptr)
        json.object("loop", [&](const utils::JsonMembers &loop) { region.loop = readLoop(loop); });
    region.isOneShot = json.flagOr("oneShot", false);
    readNumbers(json, region);
    return region;
}

} // namespace zarn
