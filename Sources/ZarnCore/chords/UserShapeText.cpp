// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/UserShapeText.h>

#include <ZarnCore/utils/JsonDocument.h>
#include <ZarnCore/utils/JsonMembers.h>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace zarn::chord {

namespace {

constexpr const char *readFunction = "zarn::chord::FingeringLibrary::loadUserShapes";

/// Of the form of the file. A file of a later one is not read.
constexpr int formVersion = 1;

constexpr int highestMidi = 127;
constexpr int lowestFret = -1; // not played
constexpr int highestFret = 127;
constexpr int highestFinger = 5;
constexpr int highestFirstFret = 255;

template <typename Number>
std::vector<Number> numbers(const utils::JsonMembers &shape, const char *name, int least, int most)
{
    std::vector<Number> read;
    shape.forEach(name, [&](const rapidjson::Value &value, unsigned) {
        const int number = utils::jsonInteger(value, readFunction);
        if (number < least || number > most)
            throw utils::JsonError({}, std::to_string(number) + " is out of range", readFunction);
        read.push_back(static_cast<Number>(number));
    });
    return read;
}

/// A text that is written as it is read: sound UTF-8, without a mark of the byte order.
std::string soundText(std::string_view text)
{
    QString sound = QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    while (sound.startsWith(QChar(QChar::ByteOrderMark)))
        sound.remove(0, 1);
    return sound.toStdString();
}

UserShape shapeOf(const rapidjson::Value &value)
{
    const utils::JsonMembers members(value, readFunction);
    UserShape shape;
    shape.openPitches = numbers<int>(members, "strings", 0, highestMidi);
    shape.hasShortDroneString = members.flagOr("shortDrone", false);
    shape.diagram.name = soundText(members.text("name"));
    const int firstFret = members.integerOr("firstFret", 1);
    if (firstFret < 0 || firstFret > highestFirstFret)
        members.raise("\"firstFret\" is out of range");
    shape.diagram.firstFret = static_cast<std::uint8_t>(firstFret);
    shape.diagram.frets = numbers<std::int8_t>(members, "frets", lowestFret, highestFret);
    if (members.find("fingers") != nullptr)
        shape.diagram.fingers = numbers<std::uint8_t>(members, "fingers", 0, highestFinger);
    if (!isSound(shape))
        members.raise("frets and fingers do not fit the strings");
    return shape;
}

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

template <typename Numbers>
void writeNumbers(Writer &writer, const char *name, const Numbers &numbers)
{
    writer.Key(name);
    writer.StartArray();
    for (const auto number : numbers)
        writer.Int(number);
    writer.EndArray();
}

void writeShape(Writer &writer, const UserShape &shape)
{
    writer.StartObject();
    writer.Key("name");
    const std::string name = soundText(shape.diagram.name);
    writer.String(name.data(), static_cast<rapidjson::SizeType>(name.size()));
    writeNumbers(writer, "strings", shape.openPitches);
    if (shape.hasShortDroneString) {
        writer.Key("shortDrone");
        writer.Bool(true);
    }
    writer.Key("firstFret");
    writer.Int(shape.diagram.firstFret);
    writeNumbers(writer, "frets", shape.diagram.frets);
    if (!shape.diagram.fingers.empty())
        writeNumbers(writer, "fingers", shape.diagram.fingers);
    writer.EndObject();
}

} // namespace

bool isSound(const UserShape &shape)
{
    const auto areWithin = [](const auto &numbers, int least, int most) {
        return std::all_of(numbers.begin(), numbers.end(),
                           [=](int number) { return number >= least && number <= most; });
    };
    const std::size_t stringCount = shape.openPitches.size();
    const ChordDiagram &diagram = shape.diagram;
    return stringCount > 0 && stringCount <= GuitarTuning::maximumStringCount
        && diagram.frets.size() == stringCount
        && (diagram.fingers.empty() || diagram.fingers.size() == stringCount)
        && areWithin(shape.openPitches, 0, highestMidi)
        && areWithin(diagram.frets, lowestFret, highestFret)
        && areWithin(diagram.fingers, 0, highestFinger);
}

QByteArray userShapeText(const std::vector<UserShape> &shapes)
{
    QByteArray text = "{\"version\": " + QByteArray::number(formVersion) + ", \"shapes\": [";
    const char *separator = "\n  ";
    for (const UserShape &shape : shapes) {
        rapidjson::StringBuffer buffer;
        Writer writer(buffer);
        writeShape(writer, shape);
        text.append(separator);
        text.append(buffer.GetString(), static_cast<int>(buffer.GetSize()));
        separator = ",\n  ";
    }
    return text.append("\n]}\n");
}

UserShapeDocument::UserShapeDocument(const QByteArray &text)
{
    const auto report = [this](const CoreException &error) {
        if (_fault.isEmpty())
            _fault = QString::fromStdString(error.message());
    };
    try {
        const auto document = utils::jsonDocument(
            {text.constData(), static_cast<std::size_t>(text.size())}, "userChordShapes.json");
        const utils::JsonMembers root(document, readFunction);
        const int version = root.integer("version");
        if (version != formVersion)
            root.raise("the form of the file has the version " + std::to_string(version) + ", and "
                       + std::to_string(formVersion) + " is known here");
        root.forEach("shapes", [&](const rapidjson::Value &value, unsigned index) {
            try {
                _shapes.push_back(shapeOf(value));
            } catch (const utils::JsonError &error) {
                report(error.within("shapes[" + std::to_string(index) + "]"));
            }
        });
        _isList = true;
    } catch (const CoreException &error) {
        _shapes.clear();
        report(error);
    }
}

} // namespace zarn::chord
