// SPDX-License-Identifier: MIT
#pragma once

#include <streams/StreamsExport.h>

#include <string_view>

namespace streams {

/// Whether a relative path leads to a file below the folder or archive that it starts from, on
/// every system: no root, no drive, no "..", no empty name, nothing that a terminal would obey.
STREAMS_EXPORT bool staysInside(std::string_view path) noexcept;

} // namespace streams
