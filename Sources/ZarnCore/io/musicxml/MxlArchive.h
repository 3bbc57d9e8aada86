// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace filesystem {
class FileHandle;
}

namespace zarn::io {

class ImportReport;

/// Whether bytes are the start of a zip archive.
bool isZipArchive(const std::string &start);

/// The score inside a compressed MusicXML file: the first root file of META-INF/container.xml that
/// is MusicXML (MusicXML 4.0, container.xsd); without a container the only score there is.
///
/// Nothing is written to disk. Raises `ImportException` for a damaged archive, a missing root
/// file, a path that leaves the archive, and for content that unpacks to too much.
std::string unpackMxl(const std::string &document, const std::string &bytes, ImportReport &report);

/// Writes a compressed MusicXML file of one score: "mimetype" first and stored, the container, the
/// score (MusicXML 4.0). All times in it are the same, so that the same score gives the same bytes.
/// Leaves the handle open; raises `CoreException`.
void packMxl(const std::string &score, filesystem::FileHandle &handle);

} // namespace zarn::io
