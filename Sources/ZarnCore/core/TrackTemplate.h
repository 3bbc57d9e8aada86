// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

namespace zarn {

class Track;

/// Reads a native document, from the resources or the disk, that holds a score with one track, and
/// takes the track out of it. Raises `CoreException` with the path when that is not so.
std::shared_ptr<Track> readTrackTemplate(const QString &path);

} // namespace zarn
