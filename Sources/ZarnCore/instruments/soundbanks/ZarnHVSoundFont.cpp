// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>

#include <ZarnCore/instruments/soundbanks/ZarnGuitarPickupSet.h>
#include <ZarnCore/utils/JsonMembers.h>
#include <streams/MemberName.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <set>

namespace zarn {

namespace {

constexpr const char *parseFunction = "zarn::HVSoundFont::parse";

constexpr int highestRate = 768'000;
constexpr int mostChannels = 64;

/// The path of a sample; it lies in the folder of the bank or below it.
std::string sampleName(std::string_view name)
{
    if (!streams::staysInside(name))
        throw utils::JsonError({}, "is no path of a file in the bank's folder", parseFunction);
    return std::string(name);
}

RawSampleFormat readRawFormat(const utils::JsonMembers &json)
{
    RawSampleFormat format;
    const auto encoding = rawEncodingFromString(json.text("encoding"));
    if (!encoding)
        json.raise("member \"encoding\" is no encoding of samples, such as \"s16le\"");
    format.encoding = *encoding;
    format.rate = json.integer("rate");
    if (format.rate < 1 || format.rate > highestRate)
        json.raise("member \"rate\" is no number from 1 to 768000");
    format.channels = json.integerOr("channels", 1);
    if (format.channels < 1 || format.channels > mostChannels)
        json.raise("member \"channels\" is no number from 1 to 64");
    return format;
}

} // namespace

HVSoundFont HVSoundFont::parse(const rapidjson::Value &value, const std::string &path)
{
    const QDir folder = QFileInfo(QString::fromStdString(path)).dir();
    return parse(value, path, [&folder](const std::string &sample) {
        return QFileInfo(folder.filePath(QString::fromStdString(sample))).isFile();
    });
}

HVSoundFont HVSoundFont::parse(const rapidjson::Value &value, const std::string &path,
                               const std::function<bool(const std::string &)> &hasSample)
{
    const utils::JsonMembers json(value, parseFunction);
    HVSoundFont font;
    font._path = path;
    font._id = json.text("id");
    if (font._id.empty())
        json.raise("member \"id\" is empty");
    font._name = json.text("name");
    font._description = json.textOr("description", {});
    font._instrument = json.text("instrument");
    font._instrumentType = Instrument::typeFromString(font._instrument);
    if (const auto *velocity = json.find("velocity")) {
        if (!velocity->IsNumber())
            json.raise("member \"velocity\" is no number");
        font._velocity = velocity->GetDouble();
    }
    if (const auto *pickups = json.find("pickupSet"))
        json.object("pickupSet", [&](const utils::JsonMembers &) {
            font._guitarPickupSet =
                std::make_shared<const GuitarPickupSet>(GuitarPickupSet::parse(*pickups));
        });

    font.readSamples(value);
    font.readRegions(value);
    font._usable = !font._samples.empty()
        && std::all_of(font._samples.begin(), font._samples.end(), hasSample);
    return font;
}

void HVSoundFont::readSamples(const rapidjson::Value &value)
{
    const utils::JsonMembers json(value, parseFunction);
    if (json.find("samples") == nullptr)
        return;
    std::set<std::string> known;
    json.forEach("samples", [&](const rapidjson::Value &element, unsigned) {
        std::string name;
        if (element.IsObject()) {
            const utils::JsonMembers sample(element, parseFunction);
            name = sampleName(sample.text("file"));
            _rawFormats[name] = readRawFormat(sample);
        } else {
            name = sampleName(utils::jsonText(element, parseFunction));
        }
        if (!known.insert(name).second)
            throw utils::JsonError({}, "is there already", parseFunction);
        _samples.push_back(std::move(name));
    });
}

void HVSoundFont::readRegions(const rapidjson::Value &value)
{
    const utils::JsonMembers json(value, parseFunction);
    if (json.find("regions") == nullptr)
        return;
    const bool areListed = json.find("samples") != nullptr;
    std::set<std::string> known(_samples.begin(), _samples.end());
    json.forEach("regions", [&](const rapidjson::Value &element, unsigned) {
        auto region = SoundbankRegion::parse(element);
        if (known.insert(sampleName(region.sample)).second) {
            if (areListed)
                throw utils::JsonError("sample", "is none of the bank's samples", parseFunction);
            _samples.push_back(region.sample);
        }
        _regions.push_back(std::move(region));
    });
}

const RawSampleFormat *HVSoundFont::rawFormat(const std::string &sample) const
{
    const auto found = _rawFormats.find(sample);
    return found == _rawFormats.end() ? nullptr : &found->second;
}

} // namespace zarn
