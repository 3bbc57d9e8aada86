// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/TrackText.h>

namespace zarn::tool {

// Tracks are named as over the pages.
using sheet::titleLines;
using sheet::trackText;
using sheet::transpositionText;
using sheet::tuningText;

} // namespace zarn::tool
