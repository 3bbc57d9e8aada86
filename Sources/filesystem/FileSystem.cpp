// SPDX-License-Identifier: MIT
#include <filesystem/FileSystem.h>

namespace filesystem {

FileSystem::~FileSystem() = default;

} // namespace filesystem
