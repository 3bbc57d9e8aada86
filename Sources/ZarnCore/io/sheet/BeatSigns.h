// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/Sheet.h>

#include <vector>

namespace zarn {

class Beat;

namespace sheet {

struct Glyphs;
class Legend;

/// The signs that stand together at a beat, between its rhythm and its notes: articulations, taps,
/// strokes of the picking hand, tremolos.
QString signsOf(const Beat &beat, const Glyphs &glyphs, Legend &legend);

/// Words over a beat that say how it is played, such as "turn", "bar dip -1" or "P.H.".
QStringList techniquesOf(const Beat &beat, const Glyphs &glyphs, Legend &legend);

/// What is written once for a run of beats, as "PM" with a line.
struct RunKind {
    /// Empty where the beat has none of it.
    QString (*words)(const Beat &beat, const Glyphs &glyphs);

    /// Whether a beat goes on with the run of the beats before, when it has the same words; null
    /// for always.
    bool (*goesOn)(const Beat &beat);

    Stretch::Style style;

    /// What the legend says, empty for words that say it themselves.
    const char *explanation;
};

const std::vector<RunKind> &runKinds();

} // namespace sheet
} // namespace zarn
