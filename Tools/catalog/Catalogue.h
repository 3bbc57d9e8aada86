// SPDX-License-Identifier: MIT
#pragma once

#include "common/TextTable.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <map>
#include <string>
#include <vector>

namespace zarn::tool {

/// One thing of a catalogue.
struct CatalogueEntry {
    QString key;       ///< the word that stands for it alone, such as "drumKit"; may be empty
    QStringList cells; ///< what the table shows; the free words of a search are looked for here
    std::map<QString, QString> properties; ///< what the options of a search ask for, by option
    QJsonObject object;                    ///< the same for programs
};

/// A catalogue as a user looks through it.
struct Catalogue {
    QString things; ///< what it holds, for messages: "tunings"
    std::vector<TextTable::Column> columns;
    std::vector<CatalogueEntry> entries;
};

/// What to look for.
struct CatalogueSearch {
    std::map<QString, QString> properties; ///< by option: entries that have exactly this
    QString name;                          ///< part of what the first column says
    QStringList words;                     ///< each stands somewhere in the entry
};

/// Leaves what a search fits, letters of either case. When a word is the key of an entry, only
/// that one is left. Raises `UsageError` for an option that the catalogue does not have or a value
/// that no entry has, `Failure` when nothing is left; both offer what may have been meant.
void narrow(Catalogue &catalogue, const CatalogueSearch &search);

Catalogue tuningCatalogue();
Catalogue instrumentCatalogue();
Catalogue programCatalogue();
Catalogue patchCatalogue();
Catalogue bankCatalogue();

/// What there is to say of one entry beside its row, as a further table; empty for nothing.
TextTable instrumentDetails(const QString &category);
TextTable patchDetails(const QString &id);
TextTable bankDetails(const QString &id);

} // namespace zarn::tool
