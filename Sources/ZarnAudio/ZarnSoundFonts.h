// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioExport.h>

#include <string>
#include <vector>

namespace Halvec::audio {

/// Variable of the environment that names the sound font to take.
inline constexpr const char *soundFontVariable = "ZARN_SOUNDFONT";

/// Sound fonts (SF2 and SF3 files) of the usual folders, `sounds/sf2` and `sounds/sf3` below the
/// folders for data (XDG base directories): the user's first, in each folder the
/// system's default for General MIDI first, then by name. Each file stands there once, under the
/// first of its names.
ZARNAUDIO_EXPORT std::vector<std::string> installedSoundFonts();

/// The sound font to take: the one that is `named`, else the one of the environment, else the first
/// of the installed ones. Empty, and the reason in a sentence, when the one that is named is none
/// or there is none at all.
ZARNAUDIO_EXPORT std::string findSoundFont(const std::string &named, std::string *error);

/// Whether a file begins as a sound font does; else the reason, with its name.
ZARNAUDIO_EXPORT bool isSoundFont(const std::string &path, std::string *error);

} // namespace Halvec::audio
