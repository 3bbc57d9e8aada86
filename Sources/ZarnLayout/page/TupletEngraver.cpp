// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/TupletEngraver.h>

#include <ZarnCore/model/form/ZarnTupletGroup.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

/// The chords of one bracket.
struct Bracket {
    TupletGroup group;
    std::size_t first = 0;
    std::size_t last = 0;
};

std::vector<Bracket> bracketsOf(const RowDraft &row, TupletLevel level)
{
    std::vector<Bracket> brackets;
    bool isOpen = false;
    for (std::size_t i = 0; i < row.chords.size(); ++i) {
        const PlacedChord &chord = row.chords[i];
        const RhythmValue &rhythm = chord.beat().rhythm;
        if (chord.beat().isGrace())
            continue;
        if (!TupletGroup::ratioOf(rhythm, level)) {
            isOpen = false;
            continue;
        }
        const bool goesOn = isOpen && brackets.back().group.takes(rhythm)
            && row.chords[brackets.back().last].chord->voice == chord.chord->voice
            && row.chords[brackets.back().first].shownBar == chord.shownBar;
        if (!goesOn)
            brackets.push_back({TupletGroup(rhythm, level, chord.beat().onset), i, i});
        brackets.back().group.add(rhythm);
        brackets.back().last = i;
        isOpen = !brackets.back().group.isFull();
    }
    return brackets;
}

/// Two notes that a tremolo joins last as long as one: the strokes say so, not a number.
bool isTremolo(const RowDraft &row, const Bracket &bracket)
{
    for (std::size_t i = bracket.first; i <= bracket.last; ++i)
        if (row.chords[i].beat().marks.tremoloToNext() == 0
            && (i == bracket.first || row.chords[i - 1].beat().marks.tremoloToNext() == 0))
            return false;
    return true;
}

/// Whether the first number of a ratio says enough: triplets, quintuplets and so on, and those in
/// the time of three, as in 6/8.
bool isUsual(unsigned notes, unsigned inTimeOf)
{
    const unsigned plain = notes < 4 ? 2 : notes < 8 ? 4 : 8;
    const bool isInThree = (notes == 2 || notes == 4) && inTimeOf == 3;
    return (notes != 2 && inTimeOf == plain) || isInThree;
}

bool isOneBeam(const RowDraft &row, const Bracket &bracket)
{
    for (std::size_t i = bracket.first; i <= bracket.last; ++i) {
        const PlacedChord &chord = row.chords[i];
        if (chord.chord->isRest() || !chord.chord->isBeamed)
            return false;
        if (i < bracket.last && !chord.beat().isBeamedOn)
            return false;
    }
    const bool startsBeam = bracket.first == 0 || !row.chords[bracket.first - 1].beat().isBeamedOn
        || row.chords[bracket.first - 1].chord->voice != row.chords[bracket.first].chord->voice;
    return startsBeam && !row.chords[bracket.last].beat().isBeamedOn;
}

} // namespace

void addTuplets(RowDraft &row, const SystemDraft &draft)
{
    if (row.row->notation == Notation::Tablature && !row.row->hasRhythm)
        return;
    for (const TupletLevel level : {TupletLevel::Inner, TupletLevel::Outer}) {
        SideItems items;
        for (const Bracket &bracket : bracketsOf(row, level)) {
            if (isTremolo(row, bracket))
                continue;
            const unsigned notes = bracket.group.ratio().first;
            const unsigned inTimeOf = bracket.group.ratio().second;
            const PlacedChord &first = row.chords[bracket.first];
            const PlacedChord &last = row.chords[bracket.last];
            int up = 0;
            for (std::size_t i = bracket.first; i <= bracket.last; ++i)
                if (!row.chords[i].chord->isRest())
                    up += row.chords[i].chord->isStemUp ? 1 : -1;
            const bool isAbove = up >= 0 || !first.chord->hasStem;
            const bool isBare = isOneBeam(row, bracket) && level == TupletLevel::Outer;
            const double left = std::min(first.x, first.x + first.chord->stemX) - 0.1;
            const double right = std::max(rightOf(last), last.stemX()) + 0.1;
            const bool isPlain = isUsual(notes, inTimeOf);
            const std::string number = isPlain || notes == inTimeOf
                ? std::to_string(notes)
                : std::to_string(notes) + ":" + std::to_string(inTimeOf);
            double centre = (left + right) / 2;
            if (isBare)
                centre = (first.stemX() + last.stemX()) / 2;
            SideItem item;
            item.side = isAbove ? Side::Above : Side::Below;
            item.gap = 0.35;
            Ink text = draft.pen.text(MarkKind::Tuplet, TextRole::Tuplet, number, centre, 0,
                                      Pen::Align::Centre);
            const double middle = (text.box.top + text.box.bottom) / 2;
            if (!isBare) {
                const double hook = isAbove ? 0.7 : -0.7;
                item.inks.push_back(
                    draft.pen.polyline(MarkKind::Tuplet,
                                       {{left, middle + hook},
                                        {left, middle},
                                        {std::max(left, text.box.left - 0.3), middle}},
                                       0.13));
                item.inks.push_back(
                    draft.pen.polyline(MarkKind::Tuplet,
                                       {{std::min(right, text.box.right + 0.3), middle},
                                        {right, middle},
                                        {right, middle + hook}},
                                       0.13));
            }
            item.inks.push_back(std::move(text));
            for (Ink &ink : item.inks)
                ink.place = placeOf(row, first);
            items.push_back(std::move(item));
        }
        place(row, std::move(items));
    }
}

} // namespace zarn::engraving
