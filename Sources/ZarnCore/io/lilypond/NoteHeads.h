// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesNotation.h>

#include <string>

namespace zarn::lilypond {

/// "cross": LilyPond's style for a head, the nearest one where it lacks it; empty for the usual.
std::string headStyle(NoteHead head);

} // namespace zarn::lilypond
