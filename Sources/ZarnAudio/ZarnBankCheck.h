// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioDecoder.h>
#include <ZarnAudio/ZarnAudioExport.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace filesystem {
class FileSystem;
}

namespace streams {
class BankArchive;
}

namespace zarn {
class HVSoundFont;
}

namespace Halvec::audio {

/// Opens a sample of a bank, in the format that its description gives; null with the reason.
ZARNAUDIO_EXPORT std::unique_ptr<AudioDecoder> openBankSample(const streams::BankArchive &archive,
                                                              const zarn::HVSoundFont &bank,
                                                              const std::string &sample,
                                                              std::string *error);

/// What a bank has, and what is wrong with it.
struct BankCheck {
    struct Sample {
        std::string name;
        std::int64_t frames = 0;
        int channels = 0;
        int rate = 0;
        float peak = 0; ///< highest value of a frame, 1.0 for full scale
    };

    std::shared_ptr<const zarn::HVSoundFont> bank; ///< null when the description cannot be read
    bool isPacked = false;
    std::vector<Sample> samples;       ///< those that could be opened
    std::vector<std::string> errors;   ///< what keeps the bank from being played as it says
    std::vector<std::string> warnings; ///< what is most likely an oversight
};

/// Reads a bank as `streams::BankArchive::open` does, and every sample to its end. Does not raise
/// for what is in the files.
ZARNAUDIO_EXPORT BankCheck checkBank(filesystem::FileSystem &files, const std::string &path);

} // namespace Halvec::audio
