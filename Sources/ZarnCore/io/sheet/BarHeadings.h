// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/Sheet.h>

namespace zarn {

class MasterBar;
class MasterTrack;

namespace sheet {

struct Glyphs;

/// What stands over and around one bar column for all staves: sections, tempo, key, feel,
/// directions, repeats and endings. The first bar shown says what holds there, later ones only
/// what changes.
void addBarHeadings(const MasterTrack &master, unsigned bar, bool isFirstShown,
                    const Glyphs &glyphs, SheetBar &into);

/// Whether a bar shows its time signature: it differs from the one before.
bool showsTimeSignature(const MasterTrack &master, unsigned bar, bool isFirstShown);

} // namespace sheet
} // namespace zarn
