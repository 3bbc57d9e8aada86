// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>
#include <QStringList>

#include <memory>

namespace filesystem {
class FileHandle;
}

namespace zarn {
class Score;
class ScoreModel;
} // namespace zarn

namespace zarn::io {

class ImportReport;

/// Reads the documents of one format. Has no state of its own, so one importer serves all threads.
class ZARNCORE_EXPORT Importer {
public:
    Importer() = default;
    Importer(const Importer &) = delete;
    Importer &operator=(const Importer &) = delete;
    virtual ~Importer();

    /// Name of the format for a user, such as "MusicXML".
    virtual QString description() const = 0;

    /// Suffixes without a dot, in lower case, of all files that the format may have.
    virtual QStringList extensions() const = 0;

    /// The suffixes to offer in a file dialog.
    virtual QStringList visibleExtensions() const;

    /// Whether the content looks like this format; names count for nothing. Leaves the handle at
    /// the start of the file. Never raises.
    virtual bool acceptsHandle(filesystem::FileHandle &handle) const = 0;

    /// Whether both content and suffix (without a dot, any case) fit.
    bool acceptsHandleAndExtension(filesystem::FileHandle &handle, const QString &extension) const;

    /// Reads the whole file, from its start, into a model of its own: nothing that exists is
    /// touched. What was repaired, left out or is doubtful stands in the report.
    /// Raises `ImportException` for a document that is refused.
    virtual std::shared_ptr<ScoreModel> read(filesystem::FileHandle &handle,
                                             ImportReport &report) const = 0;

    /// The same into a score, which keeps its listeners and forgets its commands. Unless the whole
    /// document was read, the score stays as it was.
    void importScore(filesystem::FileHandle &handle, Score &score, ImportReport &report) const;
};

} // namespace zarn::io
