// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem/FileHandle.h>
#include <streams/Stream.h>

#include <zip.h>

#include <functional>
#include <memory>
#include <string>

namespace streams {

/// What libzip reads a stream through; null when there is no memory. The stream lives as long as
/// the source, which belongs to the caller until an archive has taken it over.
zip_source_t *zipSourceOf(std::unique_ptr<Stream> stream, zip_error_t *error);

/// Opens what a source reads, each time that it is read; null with the reason.
using StreamOpener = std::function<std::unique_ptr<Stream>(std::string *error)>;

/// The same for a stream that is open only while it is read. What goes wrong is told in `problem`,
/// which lives longer than the source, if nothing is told there yet.
zip_source_t *zipSourceOf(StreamOpener open, std::string &problem, zip_error_t *error);

/// What libzip writes an archive through, into a file that is open for writing and lives longer.
zip_source_t *zipTargetOf(filesystem::FileHandle &handle, zip_error_t *error);

} // namespace streams
