// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTemporaryDir>

#include <string>
#include <string_view>

namespace fuzz {

/// A folder for readers that take files from the disk. It lies where TMPDIR says; `scripts/fuzz`
/// makes that a place in memory.
class ScratchFolder {
public:
    /// With the name of an environment variable, sets it to the folder.
    explicit ScratchFolder(const char *variable = nullptr);

    QString path(const char *name) const;

    void write(const QString &path, std::string_view bytes) const;
    std::string read(const QString &path) const;

private:
    QTemporaryDir _folder;
};

} // namespace fuzz
