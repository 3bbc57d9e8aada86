// SPDX-License-Identifier: MIT
#pragma once

namespace zarn::editor {

class Document;

/// Strikes a drum on the beat of the cursor, or takes it off. The digits are
/// those of a keyboard's row: 1 kick, 2 snare, 3 hi-hat, 4 open hi-hat, 5 pedal
/// hi-hat, 6 to 8 toms from high to low, 9 crash, 0 ride, as General MIDI
/// numbers them.
void enterDrum(Document &document, int digit);

} // namespace zarn::editor
