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

/// Pastes at the selection's begin, or at the cursor. False where it does not fit.
bool pasteClip(const Document &document, Score &score, const Clip &clip, PasteMode mode);

} // namespace zarn::editor
