// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/VoicePlacer.h>

#include <ZarnLayout/engrave/ChordInks.h>
#include <ZarnLayout/engrave/TabFret.h>

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

namespace zarn::engraving {

namespace {

/// Whether two chords of different voices may share their heads.
bool shareHeads(const Chord &left, const Chord &right)
{
    if (left.heads.size() != 1 || right.heads.size() != 1)
        return false;
    const Head &a = left.heads.front();
    const Head &b = right.heads.front();
    return a.line == b.line && a.glyph == b.glyph && left.scale == right.scale
        && left.beat->rhythm.getAugmentationDot() == right.beat->rhythm.getAugmentationDot()
        && left.hasStem && right.hasStem && left.isStemUp != right.isStemUp;
}

/// Whether chords of two voices may stand on one stem, as if they were one chord.
bool shareStem(const Chord &left, const Chord &right)
{
    if (!left.hasStem || !right.hasStem || left.isStemUp != right.isStemUp
        || left.scale != right.scale || left.beat->flagCount() > 0
        || left.beat->rhythm != right.beat->rhythm)
        return false;
    return std::all_of(left.heads.begin(), left.heads.end(), [&](const Head &a) {
        return std::all_of(right.heads.begin(), right.heads.end(), [&](const Head &b) {
            return !a.isDisplaced && !b.isDisplaced && std::abs(a.line - b.line) > 1;
        });
    });
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

/// Whether a box of the shape of a chord is its stem: the one behind the heads.
bool isStem(const Chord &chord, std::size_t part)
{
    return chord.hasStem && part == chord.heads.size();
}

/// What the chords of a column take, in order.
struct Taken {
    std::vector<Box> boxes;
    std::vector<const Chord *> owners; // of each box
    std::vector<bool> areStems;        // each box

    void add(const Chord &chord, const std::vector<Box> &shape)
    {
        for (std::size_t i = 0; i < shape.size(); ++i) {
            boxes.push_back(shape[i].movedBy(chord.x, 0));
            owners.push_back(&chord);
            areStems.push_back(isStem(chord, i));
        }
    }
};

/// How far to the right a chord stands clear of what is there.
double freePlace(const Chord &chord, const std::vector<Box> &shape, const Taken &taken)
{
    constexpr int mostTries = 8;
    constexpr double stemGap = 0.2; ///< stems side by side are to be two lines to the eye
    double x = 0;
    for (int tries = 0; tries < mostTries; ++tries) {
        bool isClear = true;
        double next = x;
        for (std::size_t i = 0; i < taken.boxes.size(); ++i) {
            const Chord &owner = *taken.owners[i];
            if (owner.x == x && shareStem(owner, chord))
                continue;
            const double gap = taken.areStems[i] && chord.hasStem && !chord.isStemUp ? stemGap : 0;
            for (const Box &part : shape)
                if (part.movedBy(x, 0).meets(taken.boxes[i], -0.02)) {
                    isClear = false;
                    next = std::max(next, taken.boxes[i].right + gap - part.left);
                }
        }
        if (isClear)
            break;
        x = next + (next == x ? 0.2 : 0);
    }
    return x;
}

bool isDotted(const Chord &chord)
{
    return chord.beat->rhythm.getAugmentationDot() > 0;
}

/// Chords of a column, each as far to the right as those in front of it want it; the farthest
/// place.
double placeInOrder(const std::vector<Chord *> &order, const Fonts &fonts, Taken &taken)
{
    double width = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        Chord &chord = *order[i];
        chord.x = 0;
        const bool isShared = std::any_of(
            order.begin(), order.begin() + static_cast<std::ptrdiff_t>(i),
            [&](const Chord *other) { return other->x == 0 && shareHeads(*other, chord); });
        const std::vector<Box> shape = chordShape(chord, fonts);
        if (!isShared)
            chord.x = freePlace(chord, shape, taken);
        taken.add(chord, shape);
        width = std::max(width, chord.x);
    }
    return width;
}

} // namespace

void VoicePlacer::place(EngravedBar &bar)
{
    _result = &bar;
    auto &chords = bar.chords;
    chooseSidesOfRests(chords);
    std::vector<std::vector<std::size_t>> byColumn(bar.columns.size());
    std::map<std::pair<unsigned, unsigned>, std::vector<std::size_t>> graces;
    for (std::size_t i = 0; i < chords.size(); ++i)
        if (!chords[i].beat->isGrace())
            byColumn[chords[i].column].push_back(i);
        else
            graces[{chords[i].column, chords[i].beat->graceRank}].push_back(i);
    for (auto &[place, members] : graces)
        if (members.size() > 1)
            byColumn.push_back(std::move(members));
    for (const auto &members : byColumn) {
        if (shareRest(members))
            continue;
        if (_row.notation == Notation::Tablature) {
            placeVoicesOnStrings(members);
            continue;
        }
        placeColumn(members);
    }
}

/// Chords that would stand on one another go to the right, and rests go up or down.
void VoicePlacer::placeColumn(const std::vector<std::size_t> &members)
{
    auto &chords = _result->chords;
    const Fonts &fonts = _pen.fonts();
    // Stems upwards first: what stands in their way goes to the right.
    std::vector<Chord *> order;
    for (const std::size_t index : members)
        if (!chords[index].isRest())
            order.push_back(&chords[index]);
    std::stable_sort(order.begin(), order.end(), [](const Chord *left, const Chord *right) {
        return left->isStemUp && !right->isStemUp;
    });
    Taken taken;
    const double width = placeInOrder(order, fonts, taken);
    // Voices that cross keep closer the other way round: a flag is behind the heads then. Dots
    // stand behind both, so that the head behind is to be the one that they belong to.
    const bool mayTurn = order.size() == 2 && width > 0
        && (order[0]->isStemUp != order[1]->isStemUp || !order[0]->hasStem || !order[1]->hasStem);
    if (mayTurn) {
        const bool areDotsInFront = isDotted(*order[0]) && !isDotted(*order[1]);
        std::reverse(order.begin(), order.end());
        Taken reversed;
        constexpr double isCloser = 0.5;
        constexpr double isNear = 0.3;
        const double most = areDotsInFront ? width + isNear : width - isCloser;
        if (placeInOrder(order, fonts, reversed) < most) {
            taken = std::move(reversed);
        } else {
            std::reverse(order.begin(), order.end());
            taken = {};
            placeInOrder(order, fonts, taken);
        }
    }
    for (const std::size_t index : members)
        if (chords[index].isRest())
            placeRest(chords[index], taken.boxes);
}

/// Whether the voices of a column all rest, equally long, while no other one has anything: one sign
/// in the usual place stands for all of them, as for a voice that is left alone.
bool VoicePlacer::shareRest(const std::vector<std::size_t> &members)
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

void VoicePlacer::placeVoicesOnStrings(const std::vector<std::size_t> &members)
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
