// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <list>
#include <string>

namespace filesystem {
class FileHandle;
}

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class ExportReport;

/// Writes documents of one format. Has no state of its own, so one exporter serves all threads.
class ZARNCORE_EXPORT Exporter {
public:
    Exporter() = default;
    Exporter(const Exporter &) = delete;
    Exporter &operator=(const Exporter &) = delete;
    virtual ~Exporter();

    /// Name of the format for a user.
    virtual std::string description() const = 0;

    /// Suffixes without a dot, in lower case; the first one is the usual one.
    virtual std::list<std::string> extensions() const = 0;

    /// Writes the model and closes the handle, which makes the new file take the old one's place.
    /// What the format cannot hold stands in the report.
    /// Raises `CoreException` when that fails; the old file is then whole.
    virtual void write(const ScoreModel &model, filesystem::FileHandle &handle,
                       ExportReport &report) const = 0;

    /// The same, for those who do not ask what was lost.
    void write(const ScoreModel &model, filesystem::FileHandle &handle) const;
};

} // namespace zarn::io
