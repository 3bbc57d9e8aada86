// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>

#include <string>
#include <vector>

namespace filesystem {
class FileHandle;
}

namespace zarn {

namespace io {
class Exporter;
class Importer;
} // namespace io

/// Which formats can be read and written, in the order in which they were registered. Owns none.
class ZARNCORE_EXPORT FormatRegistry {
public:
    /// Raise `CoreException` for null.
    void add(io::Importer *importer);
    void add(io::Exporter *exporter);

    unsigned importersCount() const noexcept { return static_cast<unsigned>(_importers.size()); }
    unsigned exportersCount() const noexcept { return static_cast<unsigned>(_exporters.size()); }

    /// Raise `CoreException` past the end.
    const io::Importer &importer(unsigned index) const;
    const io::Exporter &exporter(unsigned index) const;

    // The first that fits; null when none does.

    /// Extensions have no dot and are compared exactly, case included.
    io::Importer *importerByExtension(const QString &extension) const;
    io::Exporter *exporterByExtension(const std::string &extension) const;
    io::Importer *importerByHandle(filesystem::FileHandle &handle) const;
    io::Importer *importerByHandleAndExtension(filesystem::FileHandle &handle,
                                               const QString &extension) const;

private:
    std::vector<io::Importer *> _importers;
    std::vector<io::Exporter *> _exporters;
};

} // namespace zarn
