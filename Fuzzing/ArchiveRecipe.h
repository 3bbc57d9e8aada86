// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace fuzz {

/// The zip archive that a text describes line by line:
///
///     @ META-INF/container.xml      begins a file
///     * 1000 <note/>                a line so many times, up to two megabytes in all
///     ! 30 255                      in the archive, the byte at an offset becomes this
///
/// Every other line is one of the file that was begun last.
std::string archiveOf(std::string_view recipe);

} // namespace fuzz
