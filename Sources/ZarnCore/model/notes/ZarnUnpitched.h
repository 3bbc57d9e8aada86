// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

namespace zarn {

class Note;
class Track;

/// Whether a note is one of percussion: it has a place on the staff instead of a pitch, or no
/// spelling on a track of unpitched instruments.
ZARNCORE_EXPORT bool isUnpitchedNote(const Note &note, const Track &track) noexcept;

} // namespace zarn
