// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zarn {

class Beat;
class Note;

namespace sheet {

struct Glyphs;
class Legend;

/// The text of a note with the signs that stand around it in its row: "[7]", "<12>", "7b1", "5h".
/// `next` is the beat of the voice behind this one, null at the end.
QString withSigns(const QString &place, const Note &note, const Beat *next, const Glyphs &glyphs,
                  Legend &legend);

} // namespace sheet
} // namespace zarn
