// SPDX-License-Identifier: MIT
#include "GeneralMidiTable.h"

#include <ZarnCore/ZarnAssert.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <set>

namespace zarn::resources {

namespace {

constexpr unsigned highestNumber = 127;

/// An object of the table and the place where it stands there.
class Entry {
public:
    Entry(QJsonObject object, QString place) : _object(std::move(object)), _place(std::move(place))
    {
    }

    [[noreturn]] void refuse(const QString &reason) const
    {
        ZARN_RAISE_IN("zarn::resources::readGeneralMidiTable",
                      (_place + QStringLiteral(": ") + reason).toStdString());
    }

    bool has(const char *key) const { return _object.contains(QLatin1String(key)); }

    QString text(const char *key) const
    {
        const QString text = _object.value(QLatin1String(key)).toString();
        if (text.isEmpty())
            refuseMember(key, "is missing or no text");
        return text;
    }

    int number(const char *key, int least, int most) const
    {
        const int none = least - 1;
        const int number = _object.value(QLatin1String(key)).toInt(none);
        if (number < least || number > most)
            refuseMember(key,
                         "is missing or no whole number from " + std::to_string(least) + " to "
                             + std::to_string(most));
        return number;
    }

    std::vector<Entry> entries(const char *key) const
    {
        const QJsonArray array = _object.value(QLatin1String(key)).toArray();
        if (array.isEmpty())
            refuseMember(key, "is missing or holds nothing");
        std::vector<Entry> entries;
        for (const QJsonValue &value : array)
            entries.emplace_back(value.toObject(),
                                 QStringLiteral("%1/%2/%3")
                                     .arg(_place, QLatin1String(key))
                                     .arg(static_cast<int>(entries.size())));
        return entries;
    }

    void allowOnly(const QStringList &keys) const
    {
        for (const QString &key : _object.keys())
            if (!keys.contains(key))
                refuse(QStringLiteral("\"%1\" means nothing here").arg(key));
    }

    [[noreturn]] void refuseMember(const char *key, const std::string &reason) const
    {
        refuse(QStringLiteral("\"%1\" %2").arg(QLatin1String(key), QString::fromStdString(reason)));
    }

private:
    QJsonObject _object;
    QString _place;
};

TemplateRow readRow(const Entry &entry)
{
    entry.allowOnly({QStringLiteral("number"), QStringLiteral("name"), QStringLiteral("type"),
                     QStringLiteral("short"), QStringLiteral("staves"),
                     QStringLiteral("transposition"), QStringLiteral("icon"),
                     QStringLiteral("tuning"), QStringLiteral("patch")});
    TemplateRow row;
    row.number = static_cast<unsigned>(entry.number("number", 0, highestNumber));
    row.name = entry.text("name").toStdString();
    row.shortName = entry.text("short").toStdString();
    row.type = InstrumentSet::typeFromString(entry.text("type").toStdString());
    if (row.type == InstrumentSet::unknown)
        entry.refuseMember("type", "is no instrument category");
    if (entry.has("staves"))
        row.staves = static_cast<unsigned>(entry.number("staves", 1, 2));
    if (entry.has("transposition"))
        row.transposition = entry.number("transposition", -36, 36);
    if (entry.has("icon")) {
        const std::string icon = entry.text("icon").toStdString();
        row.icon = iconIDFromString(icon);
        if (iconIDToString(*row.icon) != icon)
            entry.refuseMember("icon", "is no icon");
    }
    if (entry.has("tuning"))
        row.tuning = entry.text("tuning").toStdString();
    if (entry.has("patch"))
        row.patch = entry.text("patch").toStdString();
    return row;
}

std::uint32_t readColor(const Entry &entry)
{
    const QString text = entry.text("color");
    bool isNumber = false;
    const std::uint32_t color = text.midRef(1).toUInt(&isNumber, 16);
    if (!isNumber || text.size() != 7 || text.at(0) != QLatin1Char('#'))
        entry.refuseMember("color", "is no color such as \"#4C6FA5\"");
    return color;
}

TemplateFamily readFamily(const Entry &entry)
{
    entry.allowOnly({QStringLiteral("folder"), QStringLiteral("color"),
                     QStringLiteral("percussion"), QStringLiteral("rows")});
    TemplateFamily family;
    family.folder = entry.text("folder");
    family.color = readColor(entry);
    family.isPercussion = entry.has("percussion");
    for (const Entry &row : entry.entries("rows"))
        family.rows.push_back(readRow(row));
    return family;
}

} // namespace

std::vector<TemplateFamily> readGeneralMidiTable(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        Entry({}, path).refuse(file.errorString());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError)
        Entry({}, path).refuse(
            QStringLiteral("byte %1: %2").arg(error.offset).arg(error.errorString()));
    const Entry root(document.object(), path);
    root.allowOnly({QStringLiteral("about"), QStringLiteral("families")});
    std::vector<TemplateFamily> families;
    std::set<std::pair<bool, unsigned>> numbers;
    for (const Entry &entry : root.entries("families")) {
        families.push_back(readFamily(entry));
        for (const TemplateRow &row : families.back().rows)
            if (!numbers.emplace(families.back().isPercussion, row.number).second)
                entry.refuse(QStringLiteral("number %1 is there twice").arg(row.number));
    }
    return families;
}

} // namespace zarn::resources
