// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/Texts.h>

namespace zarn::tool {

// The program says what it shows, and reads it, in the words of the pages.
using sheet::dynamicText;
using sheet::keyText;
using sheet::pitchClassText;
using sheet::pitchText;
using sheet::quartersText;
using sheet::RhythmLetter;
using sheet::rhythmLetters;
using sheet::rhythmText;
using sheet::Signs;
using sheet::spelledInKey;
using sheet::tupletText;

} // namespace zarn::tool
