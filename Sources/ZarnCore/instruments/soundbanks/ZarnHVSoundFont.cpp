// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>

#include <ZarnCore/instruments/soundbanks/ZarnGuitarPickupSet.h>
#include <ZarnCore/utils/JsonMembers.h>

#include <QDir>
#include <QFileInfo>

namespace zarn {

namespace {

constexpr const char *parseFunction = "zarn::HVSoundFont::parse";

/// Samples lie in the folder of the bank or below it.
bool isInside(const QString &sample)
{
    return !sample.isEmpty() && QDir::isRelativePath(sample)
        && !QDir::cleanPath(sample).startsWith(QLatin1String(".."));
}

} // namespace

HVSoundFont HVSoundFont::parse(const rapidjson::Value &value, const std::string &path)
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

    const QDir folder = QFileInfo(QString::fromStdString(path)).dir();
    bool areThere = true;
    if (json.find("samples") != nullptr)
        json.forEach("samples", [&](const rapidjson::Value &element, unsigned) {
            const std::string sample(utils::jsonText(element, parseFunction));
            const QString name = QString::fromStdString(sample);
            if (!isInside(name))
                throw utils::JsonError({}, "is no path of a file in the bank's folder",
                                       parseFunction);
            areThere = areThere && QFileInfo(folder.filePath(name)).isFile();
            font._samples.push_back(sample);
        });
    font._usable = areThere && !font._samples.empty();
    return font;
}

} // namespace zarn
