// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/TupletEngraver.h>

#include <ZarnLayout/page/NumberedSlurs.h>

#include <algorithm>
#include <optional>

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
        const bool isElsewhere = level == TupletLevel::Outer && chord.hasTupletElsewhere;
        if (isElsewhere || !TupletGroup::ratioOf(rhythm, level)) {
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

/// Less than half of a tuplet, whose other notes are on another staff: the number stands there.
bool isRemainder(const RowDraft &row, const Bracket &bracket)
{
    const PlacedChord &first = row.chords[bracket.first];
    const std::size_t count = bracket.last - bracket.first + 1;
    const auto firstChord = row.chords.begin() + static_cast<std::ptrdiff_t>(bracket.first);
    const bool areEqual = std::all_of(
        firstChord, firstChord + static_cast<std::ptrdiff_t>(count),
        [&](const PlacedChord &chord) { return chord.beat().length == first.beat().length; });
    if (!areEqual || 2 * count >= bracket.group.ratio().first)
        return false;
    const auto &voices = first.source->voices;
    const auto voice = std::find_if(voices.begin(), voices.end(), [&](const VoiceSource &each) {
        return each.number == first.chord->voice;
    });
    if (voice == voices.end())
        return false;
    const std::size_t before = first.beat().index;
    const std::size_t behind = row.chords[bracket.last].beat().index + std::size_t{1};
    return (before > 0 && voice->beats[before - 1].isPlaceHolder)
        || (behind < voice->beats.size() && voice->beats[behind].isPlaceHolder);
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
        if (chord.beat().isGrace())
            continue;
        if (chord.chord->isRest() || !chord.chord->isBeamed)
            return false;
        if (i < bracket.last && !chord.beat().isBeamedOn)
            return false;
    }
    std::size_t first = bracket.first;
    while (first > 0 && row.chords[first - 1].beat().isGrace())
        --first;
    const bool startsBeam = first == 0 || !row.chords[first - 1].beat().isBeamedOn
        || row.chords[first - 1].chord->voice != row.chords[bracket.first].chord->voice;
    return startsBeam && !row.chords[bracket.last].beat().isBeamedOn;
}

/// Brackets keep off slurs that begin or end at their chords and lead to another staff: they go to
/// the other side. Nothing where there is no such slur.
std::optional<bool> isAboveOffSlurs(const RowDraft &row, const Bracket &bracket,
                                    const std::vector<NumberedSlur> &slurs)
{
    for (const NumberedSlur &slur : slurs) {
        if (!slur.firstRow || !slur.lastRow || slur.firstRow == slur.lastRow)
            continue;
        const bool isFirst = slur.firstRow == &row;
        if (!isFirst && slur.lastRow != &row)
            continue;
        const std::size_t chord = isFirst ? slur.first : slur.last;
        if (chord >= bracket.first && chord <= bracket.last)
            return row.number < (isFirst ? slur.lastRow : slur.firstRow)->number;
    }
    return std::nullopt;
}

} // namespace

std::string tupletText(const TupletGroup::Ratio &ratio)
{
    const auto [notes, inTimeOf] = ratio;
    return isUsual(notes, inTimeOf) || notes == inTimeOf
        ? std::to_string(notes)
        : std::to_string(notes) + ":" + std::to_string(inTimeOf);
}

void addTuplets(RowDraft &row, const SystemDraft &draft)
{
    if (row.row->notation == Notation::Tablature && !row.row->hasRhythm)
        return;
    const std::vector<NumberedSlur> slurs = numberedSlurs(draft, row.row->track);
    for (const TupletLevel level : {TupletLevel::Inner, TupletLevel::Outer}) {
        SideItems items;
        for (const Bracket &bracket : bracketsOf(row, level)) {
            if (isTremolo(row, bracket) || isRemainder(row, bracket))
                continue;
            const PlacedChord &first = row.chords[bracket.first];
            const PlacedChord &last = row.chords[bracket.last];
            int up = 0;
            for (std::size_t i = bracket.first; i <= bracket.last; ++i)
                if (!row.chords[i].chord->isRest())
                    up += row.chords[i].chord->isStemUp ? 1 : -1;
            const bool isBare = isOneBeam(row, bracket) && level == TupletLevel::Outer;
            bool isAbove = up >= 0 || !first.chord->hasStem;
            if (!isBare)
                isAbove = isAboveOffSlurs(row, bracket, slurs).value_or(isAbove);
            const double left = std::min(first.x, first.x + first.chord->stemX) - 0.1;
            const double right = std::max(rightOf(last), last.stemX()) + 0.1;
            isAbove =
                openSide(row, isAbove ? Side::Above : Side::Below, left, right) == Side::Above;
            double centre = (left + right) / 2;
            if (isBare)
                centre = (first.stemX() + last.stemX()) / 2;
            SideItem item;
            item.side = isAbove ? Side::Above : Side::Below;
            item.gap = 0.35;
            Ink text =
                draft.pen.text(MarkKind::Tuplet, TextRole::Tuplet,
                               tupletText(bracket.group.ratio()), centre, 0, Pen::Align::Centre);
            const double middle = (text.box.top + text.box.bottom) / 2;
            // A number as wide as its notes needs no bracket, and leaves it no room.
            constexpr double gap = 0.3;
            constexpr double leastArm = 0.3;
            const double leftArm = text.box.left - gap - left;
            const double rightArm = right - text.box.right - gap;
            if (!isBare && std::min(leftArm, rightArm) > leastArm) {
                const double hook = isAbove ? 0.7 : -0.7;
                item.inks.push_back(draft.pen.polyline(
                    MarkKind::Tuplet,
                    {{left, middle + hook}, {left, middle}, {left + leftArm, middle}}, 0.13));
                item.inks.push_back(draft.pen.polyline(
                    MarkKind::Tuplet,
                    {{right - rightArm, middle}, {right, middle}, {right, middle + hook}}, 0.13));
            }
            item.inks.push_back(std::move(text));
            keepOnLine(item.inks, draft);
            for (Ink &ink : item.inks)
                ink.place = placeOf(row, first);
            items.push_back(std::move(item));
        }
        place(row, std::move(items));
    }
}

} // namespace zarn::engraving
