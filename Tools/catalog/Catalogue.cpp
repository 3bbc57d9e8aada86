// SPDX-License-Identifier: MIT
#include "catalog/Catalogue.h"

#include "common/Arguments.h"
#include "common/Failure.h"
#include "common/NearestWord.h"

#include <algorithm>

namespace zarn::tool {

namespace {

bool isSame(const QString &left, const QString &right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

QString suggestion(const QString &typed, const QStringList &words, const QString &otherwise)
{
    const QString nearest = nearestWord(typed, words);
    return nearest.isEmpty() ? otherwise : QStringLiteral("did you mean \"%1\"?").arg(nearest);
}

/// Every value that an option can have, once.
QStringList valuesOf(const Catalogue &catalogue, const QString &option)
{
    QStringList values;
    for (const CatalogueEntry &entry : catalogue.entries) {
        const auto found = entry.properties.find(option);
        if (found != entry.properties.end() && !values.contains(found->second))
            values.append(found->second);
    }
    return values;
}

void requireProperty(const Catalogue &catalogue, const QString &option, const QString &value)
{
    const QStringList values = valuesOf(catalogue, option);
    if (values.isEmpty())
        throw UsageError{
            QStringLiteral("--%1 says nothing about %2").arg(option, catalogue.things)};
    if (!values.contains(value, Qt::CaseInsensitive))
        throw UsageError{
            QStringLiteral("--%1: there are no %2 for \"%3\"; %4")
                .arg(option, catalogue.things, value,
                     suggestion(value, values,
                                QStringLiteral("there are ") + values.join(QStringLiteral(", "))))};
}

bool fits(const CatalogueEntry &entry, const CatalogueSearch &search)
{
    for (const auto &[option, value] : search.properties) {
        const auto found = entry.properties.find(option);
        if (found == entry.properties.end() || !isSame(found->second, value))
            return false;
    }
    if (!entry.cells.first().contains(search.name, Qt::CaseInsensitive))
        return false;
    return std::all_of(search.words.begin(), search.words.end(), [&](const QString &word) {
        return !entry.cells.filter(word, Qt::CaseInsensitive).isEmpty();
    });
}

[[noreturn]] void failEmpty(const Catalogue &all, const CatalogueSearch &search)
{
    QStringList names;
    for (const CatalogueEntry &entry : all.entries)
        names << entry.key << entry.cells.first();
    names.removeAll(QString());
    const QString typed =
        search.words.isEmpty() ? search.name : search.words.join(QLatin1Char(' '));
    throw Failure(
        QStringLiteral("there are no such %1; %2")
            .arg(all.things, suggestion(typed, names, QStringLiteral("ask for less at a time")))
            .toStdString());
}

} // namespace

void narrow(Catalogue &catalogue, const CatalogueSearch &search)
{
    for (const auto &[option, value] : search.properties)
        requireProperty(catalogue, option, value);
    std::vector<CatalogueEntry> left;
    std::copy_if(catalogue.entries.begin(), catalogue.entries.end(), std::back_inserter(left),
                 [&](const CatalogueEntry &entry) { return fits(entry, search); });
    if (left.empty())
        failEmpty(catalogue, search);
    const auto exact = std::find_if(left.begin(), left.end(), [&](const CatalogueEntry &entry) {
        return search.words.contains(entry.key, Qt::CaseInsensitive);
    });
    if (exact != left.end())
        left = {*exact};
    catalogue.entries = std::move(left);
}

} // namespace zarn::tool
