// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/TupletEngraver.h>

#include <algorithm>

namespace zarn::engraving {

using utils::rational;

namespace {

enum class Level { Outer, Inner };

struct Ratio {
    unsigned notes = 0;
    unsigned inTimeOf = 0;

    bool isSet() const noexcept { return notes != 0; }
    bool operator==(const Ratio &other) const noexcept
    {
        return notes == other.notes && inTimeOf == other.inTimeOf;
    }
};

Ratio ratioOf(const RhythmValue &rhythm, Level level)
{
    if (!rhythm.hasPrimaryTuplet() || (level == Level::Inner && !rhythm.hasSecondaryTuplet()))
        return {};
    const auto pair =
        level == Level::Outer ? rhythm.getPrimaryTupletRatio() : rhythm.getSecondaryTupletRatio();
    return {pair.first, pair.second};
}

/// The chords of one bracket. Equal values fill it when they are as many as the ratio names; mixed
/// ones are grouped by whole quarters.
struct TupletGroup {
    Ratio ratio;
    std::size_t first = 0;
    std::size_t last = 0;
    rational length; ///< as its values count inside of it
    rational unit;
    rational lastLength;
    bool isUniform = true;

    void add(std::size_t number, const RhythmValue &rhythm)
    {
        const rational inside =
            rhythm.getLength() * rational(ratio.notes) / rational(ratio.inTimeOf);
        const rational value = RhythmValue::noteValueToTimeUnit(rhythm.getNoteValue());
        isUniform = isUniform && (length.isZero() || inside == lastLength);
        unit = length.isZero() ? value : std::min(unit, value);
        length += inside;
        lastLength = inside;
        last = number;
    }
    bool isFull() const
    {
        if (!(length / (unit * rational(ratio.notes))).isInteger())
            return false;
        const rational time = length * rational(ratio.inTimeOf) / rational(ratio.notes);
        return isUniform ? length != lastLength : time.isInteger();
    }
};

std::vector<TupletGroup> groupsOf(const RowDraft &row, Level level)
{
    std::vector<TupletGroup> groups;
    bool isOpen = false;
    for (std::size_t i = 0; i < row.chords.size(); ++i) {
        const PlacedChord &chord = row.chords[i];
        if (chord.beat().isGrace())
            continue;
        const Ratio ratio = ratioOf(chord.beat().rhythm, level);
        const bool goesOn = isOpen && ratio == groups.back().ratio
            && row.chords[groups.back().last].chord->voice == chord.chord->voice
            && row.chords[groups.back().first].shownBar == chord.shownBar;
        if (!ratio.isSet()) {
            isOpen = false;
            continue;
        }
        if (!goesOn) {
            groups.push_back({});
            groups.back().ratio = ratio;
            groups.back().first = i;
        }
        groups.back().add(i, chord.beat().rhythm);
        isOpen = !groups.back().isFull();
    }
    return groups;
}

bool isOneBeam(const RowDraft &row, const TupletGroup &group)
{
    for (std::size_t i = group.first; i <= group.last; ++i) {
        const PlacedChord &chord = row.chords[i];
        if (chord.chord->isRest() || !chord.chord->isBeamed)
            return false;
        if (i < group.last && !chord.beat().isBeamedOn)
            return false;
    }
    const bool startsBeam = group.first == 0 || !row.chords[group.first - 1].beat().isBeamedOn
        || row.chords[group.first - 1].chord->voice != row.chords[group.first].chord->voice;
    return startsBeam && !row.chords[group.last].beat().isBeamedOn;
}

} // namespace

void addTuplets(RowDraft &row, const SystemDraft &draft)
{
    if (row.row->notation == Notation::Tablature && !row.row->hasRhythm)
        return;
    for (const Level level : {Level::Inner, Level::Outer}) {
        SideItems items;
        for (const TupletGroup &group : groupsOf(row, level)) {
            const PlacedChord &first = row.chords[group.first];
            const PlacedChord &last = row.chords[group.last];
            int up = 0;
            for (std::size_t i = group.first; i <= group.last; ++i)
                if (!row.chords[i].chord->isRest())
                    up += row.chords[i].chord->isStemUp ? 1 : -1;
            const bool isAbove = up >= 0 || !first.chord->hasStem;
            const bool isBare = isOneBeam(row, group) && level == Level::Outer;
            const double left = std::min(first.x, first.x + first.chord->stemX) - 0.1;
            const double right = std::max(rightOf(last), last.stemX()) + 0.1;
            const bool isPlain = group.ratio.inTimeOf
                == (group.ratio.notes < 4       ? 2U
                        : group.ratio.notes < 8 ? 4U
                                                : 8U);
            const std::string number = isPlain || group.ratio.notes == group.ratio.inTimeOf
                ? std::to_string(group.ratio.notes)
                : std::to_string(group.ratio.notes) + ":" + std::to_string(group.ratio.inTimeOf);
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
