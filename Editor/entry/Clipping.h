// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/clip/ZarnClip.h>

namespace zarn {
class Score;
}

namespace zarn::editor {

class Document;

/// What is selected, or the beat of the cursor, as a copy.
Clip clipOf(const Document &document);

/// Takes away what is selected: columns go when bars of all tracks are; else rests stay.
bool removeSelected(const Document &document, Score &score);

/// Pastes so many times in a row, from the selection's begin or the cursor on, as one step. The
/// cursor goes behind it, where the next thing is pasted or written. False where it does not fit.
bool pasteClip(Document &document, const Clip &clip, PasteMode mode, unsigned times = 1);

} // namespace zarn::editor
