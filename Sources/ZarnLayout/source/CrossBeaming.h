// SPDX-License-Identifier: MIT
#pragma once

namespace zarn::engraving {

struct BarSource;

/// Marks the beats of two neighbouring staves of a track that hang on beams over both, in bars
/// whose staves have their own beams already. A beam leads to the other staff from a note that
/// says so itself and has free time behind it, to the note that begins there at its end and has
/// free time in front: that is how a voice changes staves. Stems point as all notes of a beam say;
/// where they do not agree, the beam lies between the staves.
///
/// The beams are numbered in the order of the bar; `used` numbers are taken already. Answers how
/// many are taken then.
unsigned setBeamsAcross(BarSource &upper, BarSource &lower, unsigned used);

} // namespace zarn::engraving
