// SPDX-License-Identifier: MIT
#pragma once

#include "catalog/Catalogue.h"
#include "common/Arguments.h"

#include <vector>

namespace zarn::tool {

/// What sounds: the audio library brings those of half a desktop along, which would double the time
/// that any other command takes to start.
struct AudioPart {
    std::vector<Subcommand> commands;
    Catalogue (*fonts)();
};

/// Loads it. Raises `Failure`, which says what this machine lacks.
const AudioPart &audioPart();

/// The function by which the loaded library hands it out; as `audioPart` otherwise.
inline constexpr const char *audioPartFunction = "zarnAudioPart";
using AudioPartFunction = const AudioPart *(*)();

} // namespace zarn::tool
