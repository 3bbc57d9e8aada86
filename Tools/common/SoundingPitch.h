// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/SoundingPitch.h>

namespace zarn::tool {

// Pitches are named as on the pages.
using sheet::SoundingPitch;

} // namespace zarn::tool
