// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/JsonDocument.h>

#include <QByteArray>
#include <QString>

#include <functional>

namespace zarn {

/// The bytes of a file that belongs to the library. When it cannot be opened, raises a
/// `CoreException` with the message "Assertion failed: success", the function and line given and
/// the source file "ZarnCore", by which applications know this failure; the log says which file
/// and why.
QByteArray readBuiltInFile(const QString &path, const char *function, int line);

/// Parses JSON in UTF-8 and hands it to a reader. Raises `CoreException` that begins with the path:
/// with line and column for what is no JSON, with what the reader says otherwise.
void parseJson(const QByteArray &bytes, const QString &path,
               const std::function<void(const rapidjson::Value &)> &read,
               utils::JsonSource source = utils::JsonSource::Outside);

/// Reads a catalogue, a JSON object in UTF-8, and hands one member of it to a reader. Raises as
/// the two above, and for a document without that member.
ZARNCORE_EXPORT void readCatalogue(const QString &path, const char *member,
                                   const std::function<void(const rapidjson::Value &)> &read);

} // namespace zarn
