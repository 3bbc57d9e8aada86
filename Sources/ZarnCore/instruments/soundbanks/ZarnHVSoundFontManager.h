// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <memory>
#include <string>

namespace streams {
class BankArchive;
}

namespace zarn {

class HVSoundFont;
class Soundbank;

/// Reads bank files. May be used from any thread.
class ZARNCORE_EXPORT HVSoundFontManager {
public:
    /// Folder of the built-in banks in the library's resources. They describe banks of which no
    /// samples are shipped; an installed bank of the same id takes the place of such a one.
    static constexpr const char *builtInFolder = ":/soundbanks";

    /// The bank of a file on the disk or in the resources, a description or an archive; `path` is
    /// UTF-8. A file that cannot be read or is damaged gives nothing, and a warning on
    /// "zarn.core.sounfonts" with the file and the reason. Does not throw for what is in the file.
    std::shared_ptr<Soundbank> soundbank(const std::string &path) const;

    /// What the description of a bank says, never null. Raises `CoreException` with the place of
    /// what is wrong.
    static std::shared_ptr<const HVSoundFont> readSoundFont(const streams::BankArchive &archive);
};

} // namespace zarn
