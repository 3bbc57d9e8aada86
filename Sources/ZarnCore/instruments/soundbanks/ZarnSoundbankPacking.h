// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <string>

namespace filesystem {
class FileSystem;
}

namespace zarn {

/// Packs the bank of a folder (its description and the samples that it names, as they stand) into
/// one archive, whose bytes depend on nothing else. The description is "bank.json", else the only
/// "*.zarn7bank" of the folder. Raises `CoreException` that says what is wrong or missing; an old
/// file stays whole then.
ZARNCORE_EXPORT void packSoundbank(filesystem::FileSystem &files, const std::string &folder,
                                   const std::string &file);

/// Unpacks an archive into a folder that is new or empty; packing that folder gives the archive's
/// content again. Every file is checked before the first one is written. Raises `CoreException`.
ZARNCORE_EXPORT void unpackSoundbank(filesystem::FileSystem &files, const std::string &file,
                                     const std::string &folder);

} // namespace zarn
