// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/engrave/Pen.h>

namespace zarn::engraving {

/// What stands on a string: the fret, "X" for a dead note, "?" where nobody knows.
std::string fretText(const NoteSource &note);

/// What stands before and behind it: parentheses of what is held or barely heard, angle brackets
/// of a natural harmonic. They do not move the number.
struct FretBrackets {
    const char *before = "";
    const char *behind = "";
};
FretBrackets fretBrackets(const NoteSource &note);

/// Width of the number alone.
double fretWidth(const std::vector<NoteSource> &notes, const Head &head, const BeatSource &beat,
                 const Pen &pen);

/// Adds the number of a head, whose place is known, and what is around it.
void addFret(Inks &inks, const NoteSource &note, const Head &head, double scale,
             const MarkPlace &place, const Pen &pen);

} // namespace zarn::engraving
