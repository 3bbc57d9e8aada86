// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sounds/ZarnOrkaSound.h>

#include <optional>
#include <string>

namespace zarn {

/// The line of text that holds a sampled sound; empty for a fresh one.
std::string textOfSound(const OrkaSound &sound);

/// Reads what `textOfSound` wrote; nothing for anything else.
std::optional<OrkaSound> soundFromText(const std::string &text);

} // namespace zarn
