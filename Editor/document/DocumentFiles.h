// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnLayout/session/ZarnFirstLayout.h>
#include <ZarnLayout/session/ZarnScoreLayout.h>

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace zarn {
class ScoreModel;
}

namespace zarn::editor {

/// What work raised, in the words for a user; empty when it raised nothing. For any thread.
QString reasonOf(const std::function<void()> &work);

/// A file that was read. Without a model `error` says why.
struct LoadedFile {
    QString path;
    std::shared_ptr<ScoreModel> model;
    io::ImportReport report;
    /// Whether saving to the same path keeps all of it: it is a document of this program's own.
    bool isNative = false;
    /// The model, laid out as a new window shows it, for the first one to take.
    std::shared_ptr<layout::FirstLayout> layout;
    QString error;
};

/// How a window shows a score first: as the document says.
layout::LayoutOptions usualOptions(const ScoreModel &model);

/// Reads a file in whatever format that the core knows, and lays it out. Raises nothing; for any
/// thread.
LoadedFile loadFile(const QString &path);

/// The same for a document that is in memory, such as a test's.
LoadedFile loadedModel(std::shared_ptr<ScoreModel> model);

/// How saving ended: without an error all is written.
struct SavedFile {
    io::ExportReport report;
    QString error;
};

/// Writes a model in the format of its path's suffix; the old file stays whole unless all of the
/// new one is written. Raises nothing.
SavedFile saveFile(const ScoreModel &model, const QString &path);

/// Suffix of documents of this program's own, without a dot.
QString nativeSuffix();

/// For file dialogs: "All scores (*.zarn *.mxl ...);;MusicXML (*.musicxml ...)".
QString openFilters();
/// Names and suffixes of what a score can be exported to, the first suffix of each the usual one.
QStringList exportFilters();

/// What a report tells a reader, a line each; empty when there is nothing to tell.
QStringList linesOf(const io::FormatReport &report, const std::string &partWord);

} // namespace zarn::editor
