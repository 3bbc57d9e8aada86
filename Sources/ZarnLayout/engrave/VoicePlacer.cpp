// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/VoicePlacer.h>

#include <ZarnLayout/engrave/ChordInks.h>
#include <ZarnLayout/engrave/HeadCluster.h>
#include <ZarnLayout/engrave/TabFret.h>

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace zarn::engraving {

namespace {

/// Whether chords of two voices stand on one stem, as if they were one chord.
bool shareStem(const Chord &left, const Chord &right)
{
    const auto isPlain = [](const Chord &chord) {
        return chord.beat->flagCount() == 0 && chord.beat->noteCount > 0 && !chord.isSlash
            && chord.beat->marks.tremolo() == 0;
    };
    return isPlain(left) && isPlain(right) && left.isStemUp == right.isStemUp
        && left.scale == right.scale && left.beat->rhythm == right.beat->rhythm;
}

/// What a voice of a bar is among the others: where its stems point, and how high it lies.
struct VoiceSide {
    int stemsUp = 0; ///< without those downwards
    double sum = 0;  ///< of the heights of its heads, downwards
    int heads = 0;

    void add(const Chord &chord)
    {
        if (chord.isRest())
            return;
        stemsUp += !chord.hasStem ? 0 : chord.isStemUp ? 1 : -1;
        for (const Head &head : chord.heads)
            sum += head.y;
        heads += static_cast<int>(chord.heads.size());
    }
    int side() const noexcept { return stemsUp > 0 ? 1 : stemsUp < 0 ? -1 : 0; }
};

/// Rests stand on the side of their voice: where its stems point and those of others do not, else
/// where its notes lie. The number tells of voices that rest throughout.
void chooseSidesOfRests(std::vector<Chord> &chords)
{
    if (std::none_of(chords.begin(), chords.end(), [](const Chord &c) { return c.isRest(); }))
        return;
    std::map<unsigned, VoiceSide> voices;
    VoiceSide all;
    for (const Chord &chord : chords)
        if (!chord.beat->isGrace()) {
            voices[chord.voice].add(chord);
            all.add(chord);
        }
    for (Chord &chord : chords) {
        if (!chord.isRest())
            continue;
        const VoiceSide &own = voices[chord.voice];
        const VoiceSide others = {all.stemsUp - own.stemsUp, all.sum - own.sum,
                                  all.heads - own.heads};
        if (own.heads == 0 || others.heads == 0)
            chord.isAbove = chord.voice % 2 == 0;
        else if (own.side() != others.side())
            chord.isAbove = own.side() > others.side();
        else
            chord.isAbove = own.sum * others.heads < others.sum * own.heads;
    }
}

using OnStem = ChordsOnStem;

/// A box of what chords take, around their origin.
struct Part {
    Box box;
    bool isStem;
};
using Parts = Few<Part, 6>;

Parts partsOf(const OnStem &chords, const Fonts &fonts)
{
    Parts parts;
    for (const Chord *chord : chords) {
        const auto shape = chordShape(*chord, fonts);
        // The stem is behind the heads.
        for (std::size_t i = 0; i < shape.size(); ++i)
            parts.push_back({shape[i], chord->hasStem && i == chord->heads.size()});
    }
    return parts;
}

/// How far to the right chords stand clear of what is there.
double freePlace(const OnStem &chords, const Parts &parts, const Parts &taken)
{
    constexpr int mostTries = 8;
    constexpr double stemGap = 0.2; ///< stems side by side are to be two lines to the eye
    const bool hasStemInFront = chords.front()->hasStem && !chords.front()->isStemUp;
    double x = 0;
    for (int tries = 0; tries < mostTries; ++tries) {
        bool isClear = true;
        double next = x;
        for (const Part &other : taken) {
            const double gap = other.isStem && hasStemInFront ? stemGap : 0;
            for (const Part &part : parts)
                if (part.box.movedBy(x, 0).meets(other.box, -0.02)) {
                    isClear = false;
                    next = std::max(next, other.box.right + gap - part.box.left);
                }
        }
        if (isClear)
            break;
        x = next + (next == x ? 0.2 : 0);
    }
    return x;
}

bool isDotted(const OnStem &chords)
{
    return chords.front()->beat->rhythm.getAugmentationDot() > 0;
}

/// Whether heads of some chords stand where others would be read as on their stem: between their
/// heads, or along the stem if they have none of their own.
bool reachAround(const OnStem &outer, const OnStem &inner)
{
    if (!outer.front()->hasStem)
        return false;
    double top = outer.front()->top();
    double bottom = outer.front()->bottom();
    for (const Chord *chord : outer) {
        const double end = inner.front()->hasStem ? chord->top() : chord->stemTip;
        top = std::min({top, chord->top(), end});
        bottom = std::max({bottom, chord->bottom(), end});
    }
    return std::any_of(inner.begin(), inner.end(), [&](const Chord *chord) {
        return std::any_of(chord->heads.begin(), chord->heads.end(),
                           [&](const Head &head) { return top < head.y && head.y < bottom; });
    });
}

/// Whether heads of two stems may stand below one another: those of one value, others where they
/// are not mixed.
bool mayInterleave(const OnStem &left, const OnStem &right)
{
    return left.front()->beat->rhythm == right.front()->beat->rhythm
        || (!reachAround(left, right) && !reachAround(right, left));
}

/// Whether the second of two stems may stand in front of the first.
bool mayTurn(const OnStem &left, const OnStem &right)
{
    const Chord &a = *left.front();
    const Chord &b = *right.front();
    return a.scale == b.scale && (a.isStemUp != b.isStemUp || !a.hasStem || !b.hasStem);
}

/// Whether a stem upwards and one downwards share heads: each note that is close to one of the
/// other stem is the same. A small note is not seen on a large one that is black.
bool shareHeads(const OnStem &left, const OnStem &right, const BarSource &source)
{
    const Chord &a = *left.front();
    const Chord &b = *right.front();
    if (!a.hasStem || !b.hasStem || a.isStemUp == b.isStemUp
        || a.beat->rhythm.getAugmentationDot() != b.beat->rhythm.getAugmentationDot()
        || !mayInterleave(left, right))
        return false;
    if (a.scale != b.scale
        && (a.beat->rhythm.getNoteValue() < RhythmValue::NoteValue::Quarter || left.size() > 1
            || right.size() > 1 || a.heads.size() > 1 || b.heads.size() > 1))
        return false;
    const auto keyOf = [&](const Chord &chord, const Head &head) {
        constexpr int none = -1;
        return chord.isSlash || chord.beat->noteCount == 0 ? none : source.notes[head.note].midi;
    };
    bool isAny = false;
    for (const Chord *chord : left)
        for (const Head &head : chord->heads)
            for (const Chord *rival : right)
                for (const Head &other : rival->heads) {
                    if (std::abs(head.line - other.line) > 1)
                        continue;
                    if (head.line != other.line || head.glyph != other.glyph || head.x != other.x
                        || keyOf(*chord, head) != keyOf(*rival, other))
                        return false;
                    isAny = true;
                }
    return isAny;
}

/// Where a chord stands that shares heads with another one. A small head is where its stem is at
/// the edge of the large one, and its flag beyond that.
double placeInside(const Chord &large, Chord &chord)
{
    const double outward = chord.isStemUp ? -0.5 : 0.5;
    chord.stemTip += outward * (large.scale - chord.scale);
    return chord.isStemUp ? large.width - chord.width : 0;
}

/// Chords of a column, each as far to the right as those in front of it want it; the farthest
/// place.
double placeInOrder(const std::vector<OnStem> &order, const BarSource &source, const Fonts &fonts,
                    Parts &taken)
{
    double width = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const OnStem &chords = order[i];
        const auto end = order.begin() + static_cast<std::ptrdiff_t>(i);
        const auto shared = std::find_if(order.begin(), end, [&](const OnStem &others) {
            return others.front()->x == 0 && shareHeads(others, chords, source);
        });
        const Parts parts = partsOf(chords, fonts);
        const double x = shared == end ? freePlace(chords, parts, taken)
                                       : placeInside(*(*shared)[0], *chords[0]);
        for (Chord *chord : chords)
            chord->x = x;
        for (const Part &part : parts)
            taken.push_back({part.box.movedBy(x, 0), part.isStem});
        width = std::max(width, x);
    }
    return width;
}

/// The chords of a column by their stems. Small notes give way, and stems upwards come first: what
/// stands in the way of one goes to the right.
std::vector<OnStem> stemsOf(ColumnChords chords, const Fonts &fonts)
{
    sortFew(chords.begin(), chords.end(), [](const Chord *left, const Chord *right) {
        return left->scale != right->scale ? left->scale > right->scale
                                           : left->isStemUp && !right->isStemUp;
    });
    std::vector<OnStem> stems;
    for (Chord *chord : chords) {
        const auto same = std::find_if(stems.begin(), stems.end(), [&](const OnStem &others) {
            return shareStem(*others.front(), *chord);
        });
        if (same == stems.end())
            stems.push_back({chord});
        else
            same->push_back(chord);
    }
    for (const OnStem &stem : stems)
        if (stem.size() > 1)
            joinOnStem(stem, fonts);
    return stems;
}

} // namespace

void VoicePlacer::place(EngravedBar &bar)
{
    _result = &bar;
    auto &chords = bar.chords;
    chooseSidesOfRests(chords);
    std::vector<Members> byColumn(bar.columns.size());
    std::map<std::pair<unsigned, unsigned>, Members> graces;
    for (std::size_t i = 0; i < chords.size(); ++i)
        if (!chords[i].beat->isGrace())
            byColumn[chords[i].column].push_back(i);
        else
            graces[{chords[i].column, chords[i].beat->graceRank}].push_back(i);
    for (auto &[place, members] : graces)
        if (members.size() > 1)
            byColumn.push_back(std::move(members));
    for (const auto &members : byColumn) {
        if (standsAlone(members) || shareRest(members))
            continue;
        if (_row.notation == Notation::Tablature) {
            placeVoicesOnStrings(members);
            continue;
        }
        placeColumn(members);
    }
}

/// Whether nothing is in the way of a chord in its place.
bool VoicePlacer::standsAlone(const Members &members) const
{
    if (members.size() != 1)
        return false;
    const std::size_t heads = _result->chords[members.front()].heads.size();
    return heads == 1 || (heads > 1 && _row.notation != Notation::Tablature);
}

/// Chords that would stand on one another go to the right, and rests go up or down.
void VoicePlacer::placeColumn(const Members &members)
{
    auto &chords = _result->chords;
    const Fonts &fonts = _pen.fonts();
    ColumnChords sounding;
    for (const std::size_t index : members)
        if (!chords[index].isRest())
            sounding.push_back(&chords[index]);
    const std::size_t soundingCount = sounding.size();
    std::vector<OnStem> order = stemsOf(std::move(sounding), fonts);
    Parts taken;
    const double width = placeInOrder(order, _source, fonts, taken);
    // Voices that cross keep closer the other way round: a flag is behind the heads then. Dots
    // stand behind both, so that the head behind is to be the one that they belong to.
    if (order.size() == 2 && width > 0 && mayTurn(order[0], order[1])) {
        const bool areDotsInFront = isDotted(order[0]) && !isDotted(order[1]);
        std::reverse(order.begin(), order.end());
        Parts reversed;
        constexpr double isCloser = 0.5;
        constexpr double isNear = 0.3;
        const double most = areDotsInFront      ? width + isNear
            : mayInterleave(order[0], order[1]) ? width - isCloser
                                                : 0;
        if (placeInOrder(order, _source, fonts, reversed) < most) {
            taken = std::move(reversed);
        } else {
            std::reverse(order.begin(), order.end());
            taken = {};
            placeInOrder(order, _source, fonts, taken);
        }
    }
    if (soundingCount == members.size())
        return;
    std::vector<Box> boxes;
    for (const Part &part : taken)
        boxes.push_back(part.box);
    for (const std::size_t index : members)
        if (chords[index].isRest())
            placeRest(chords[index], boxes);
}

/// Whether the voices of a column all rest, equally long, while no other one has anything: one sign
/// in the usual place stands for all of them, as for a voice that is left alone.
bool VoicePlacer::shareRest(const Members &members)
{
    auto &chords = _result->chords;
    if (members.empty() || !_result->centred.empty())
        return false;
    const Chord &first = chords[members.front()];
    const BeatSource &rest = *first.beat;
    const bool areEqual = std::all_of(members.begin(), members.end(), [&](std::size_t index) {
        const Chord &chord = chords[index];
        return chord.isRest() && chord.scale == first.scale && chord.beat->length == rest.length
            && chord.beat->rhythm.getNoteValue() == rest.rhythm.getNoteValue()
            && chord.beat->rhythm.getAugmentationDot() == rest.rhythm.getAugmentationDot();
    });
    if (!areEqual)
        return false;
    const utils::rational end = rest.onset + rest.length;
    const auto meanwhile = static_cast<std::size_t>(
        std::count_if(chords.begin(), chords.end(), [&](const Chord &chord) {
            return !chord.beat->isGrace() && chord.beat->onset < end
                && chord.beat->onset + chord.beat->length > rest.onset;
        }));
    if (meanwhile > members.size())
        return false;
    for (const std::size_t index : members)
        chords[index].isShared = index != members.front();
    return true;
}

void VoicePlacer::placeVoicesOnStrings(const Members &members)
{
    constexpr double gap = 0.5;
    auto &chords = _result->chords;
    std::vector<Box> taken;
    std::vector<std::pair<const Chord *, const Head *>> numbers;
    for (const std::size_t index : members) {
        Chord &chord = chords[index];
        if (chord.isRest() || chord.beat->noteCount == 0)
            continue;
        for (const Head &head : chord.heads)
            for (const auto &[other, number] : numbers) {
                if (number->line != head.line)
                    continue;
                // Voices that share a note share its number.
                const NoteSource &note = _source.notes[head.note];
                const NoteSource &before = _source.notes[number->note];
                if (other->x == chord.x && other->scale == chord.scale
                    && fretText(note) == fretText(before)
                    && std::string_view(fretBrackets(note).before) == fretBrackets(before).before)
                    continue;
                chord.x = std::max(chord.x, other->x + number->x + number->width + gap - head.x);
                _problems.add(placeOfChord(_row, _bar, chord, head.note - chord.beat->firstNote),
                              "The string has several notes at once.");
            }
        for (const Head &head : chord.heads) {
            numbers.emplace_back(&chord, &head);
            taken.push_back(
                {chord.x + head.x, head.y - 0.65, chord.x + head.x + head.width, head.y + 0.65});
        }
    }
    if (_row.hasRhythm)
        for (const std::size_t index : members)
            if (chords[index].isRest())
                placeRest(chords[index], taken);
}

void VoicePlacer::placeRest(Chord &chord, std::vector<Box> &taken)
{
    const double step = chord.isAbove ? -1 : 1;
    chord.restShift = 2 * step;
    // Away from the other voices, line by line.
    for (int tries = 0; tries < 24; ++tries, chord.restShift += step) {
        const Box box = restInk(_row, _pen, chord).box.movedBy(chord.x, 0);
        const bool meets = std::any_of(taken.begin(), taken.end(),
                                       [&](const Box &other) { return box.meets(other, 0.15); });
        if (!meets) {
            taken.push_back(box);
            return;
        }
    }
}

} // namespace zarn::engraving
