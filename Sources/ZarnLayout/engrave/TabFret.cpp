// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/TabFret.h>

namespace zarn::engraving {

std::string fretText(const NoteSource &note)
{
    if (note.marks.isDead())
        return "X";
    return note.fret < 0 ? "?" : std::to_string(note.fret);
}

FretBrackets fretBrackets(const NoteSource &note)
{
    if (note.marks.isTied() || note.marks.isGhost())
        return {"(", ")"};
    if (note.marks.harmonic().type == HarmonicType::Natural)
        return {"\u2039", "\u203A"};
    return {};
}

double fretWidth(const std::vector<NoteSource> &notes, const Head &head, const BeatSource &beat,
                 const Pen &pen)
{
    if (beat.noteCount == 0)
        return pen.fonts().box(Sign::NoteheadXBlack).right;
    return pen.fonts().textBox(fretText(notes[head.note]), TextRole::Fret).right;
}

void addFret(Inks &inks, const NoteSource &note, const Head &head, double scale,
             const MarkPlace &place, const Pen &pen)
{
    const double base = head.y + pen.fonts().capHeight(TextRole::Fret) * scale / 2;
    const FretBrackets brackets = fretBrackets(note);
    constexpr double gap = 0.08;
    const auto add = [&](Ink ink) {
        ink.place = place;
        inks.push_back(std::move(ink));
    };
    if (*brackets.before != '\0')
        add(pen.text(MarkKind::Enclosure, TextRole::Fret, brackets.before, head.x - gap, base,
                     Pen::Align::End, scale));
    add(pen.text(MarkKind::Fret, TextRole::Fret, fretText(note), head.x, base, Pen::Align::Begin,
                 scale));
    if (*brackets.behind != '\0')
        add(pen.text(MarkKind::Enclosure, TextRole::Fret, brackets.behind,
                     head.x + head.width + gap, base, Pen::Align::Begin, scale));
}

} // namespace zarn::engraving
