// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/TremoloEngraver.h>

#include <ZarnLayout/engrave/ChordInks.h>
#include <ZarnLayout/page/InkField.h>
#include <ZarnLayout/page/SideItem.h>

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

namespace zarn::engraving {

namespace {

bool isFree(const InkField &field, const Box &box)
{
    constexpr double gap = 0.1;
    return field.isFree({box.left - gap, box.top - gap, box.right + gap, box.bottom + gap});
}

/// A stretch for strokes: all of it, or else a shorter one as near to its middle as can be that no
/// note of another voice stands in.
std::pair<double, double> freeStretch(const InkField &field, const Box &all)
{
    if (isFree(field, all))
        return {all.left, all.right};
    constexpr double longest = 4;
    constexpr double step = 0.5;
    const double middle = (all.left + all.right) / 2;
    for (const double length : {longest, 2.5, 1.5})
        for (double shift = 0; shift <= (all.right - all.left - length) / 2; shift += step)
            for (const double centre : {middle - shift, middle + shift})
                if (isFree(field, {centre - length / 2, all.top, centre + length / 2, all.bottom}))
                    return {centre - length / 2, centre + length / 2};
    const double half = std::min(longest, all.right - all.left) / 2;
    return {middle - half, middle + half};
}

/// The strokes of a tremolo between two notes.
void addStrokesBetween(RowDraft &row, const SystemDraft &draft, const PlacedChord &chord,
                       const PlacedChord &next, const InkField &field)
{
    constexpr double gap = 0.75;
    constexpr double thickness = 0.5;
    const unsigned strokes = chord.beat().marks.tremoloToNext();
    const double inward = chord.chord->isStemUp ? 1 : -1;
    // Inside of the beams that join the notes.
    const auto endAt = [&](const PlacedChord &at) {
        const unsigned beams = at.chord->isBeamed ? at.beat().flagCount() : 0;
        return at.chord->hasStem ? at.stemTip + inward * (0.9 + gap * beams) : at.top() - 1.5;
    };
    const double depth = inward * (gap * (strokes - 1) + thickness);
    double y0 = 0;
    double y1 = 0;
    const auto boxBetween = [&](double left, double right) {
        // Strokes lean as little as beams do, however far apart their notes are.
        constexpr double steepest = 1.2;
        y0 = endAt(chord);
        y1 = endAt(next);
        const double middle = (y0 + y1) / 2;
        const double lean =
            std::clamp(y1 - y0, -steepest, steepest) * std::min(1.0, (right - left) / 4);
        y0 = middle - lean / 2;
        y1 = middle + lean / 2;
        return Box{left, std::min(y0, y1) + std::min(0.0, depth), right,
                   std::max(y0, y1) + std::max(0.0, depth)};
    };
    // From stem to stem, or else from head to head. Strokes end at the line of their bar: what
    // stands behind it has no room for them.
    const double line = draft.barOf(chord).right;
    double left = chord.stemX() + 0.4;
    double right = std::min(next.stemX(), line) - 0.4;
    const bool haveStems = chord.chord->hasStem && next.chord->hasStem && right > left;
    if (!haveStems || !isFree(field, boxBetween(left, right))) {
        left = std::max(rightInkOf(draft, row, chord), chord.stemX()) + 0.4;
        right = std::min({leftInkOf(draft, row, next), next.stemX(), line}) - 0.4;
        if (right <= left)
            return;
        std::tie(left, right) = freeStretch(field, boxBetween(left, right));
    }
    for (unsigned stroke = 0; stroke < strokes; ++stroke) {
        const double shift = inward * gap * stroke;
        Ink beam = draft.pen.polygon(MarkKind::Tremolo,
                                     {{left, y0 + shift},
                                      {right, y1 + shift},
                                      {right, y1 + shift + inward * thickness},
                                      {left, y0 + shift + inward * thickness}});
        beam.place = placeOf(row, chord);
        row.add(std::move(beam));
    }
}

bool showsRhythm(const Row &row)
{
    return row.notation != Notation::Tablature || row.hasRhythm;
}

} // namespace

void addTremolos(RowDraft &row, const SystemDraft &draft)
{
    if (!showsRhythm(*row.row))
        return;
    for (const PlacedChord &chord : row.chords) {
        const unsigned strokes = chord.beat().marks.tremolo();
        if (chord.chord->isRest() || strokes == 0)
            continue;
        const Point middle = tremoloPoint(*chord.chord, chord.stemTip, draft.pen.fonts());
        Ink ink = draft.pen.glyph(MarkKind::Tremolo, tremoloSign(strokes), chord.x + middle.x,
                                  middle.y, chord.chord->scale);
        ink.place = placeOf(row, chord);
        row.add(std::move(ink));
    }
}

void addTremolosBetween(RowDraft &row, const SystemDraft &draft)
{
    if (!showsRhythm(*row.row))
        return;
    std::vector<std::pair<const PlacedChord *, const PlacedChord *>> links;
    for (std::size_t i = 0; i < row.chords.size(); ++i) {
        const PlacedChord &chord = row.chords[i];
        if (chord.chord->isRest())
            continue;
        const PlacedChord *next = nextChord(row, i);
        if (chord.beat().marks.tremoloToNext() > 0 && next && !next->chord->isRest())
            links.emplace_back(&chord, next);
    }
    if (links.empty())
        return;
    InkField field;
    field.add(row.inks);
    for (const auto &[chord, next] : links)
        addStrokesBetween(row, draft, *chord, *next, field);
}

} // namespace zarn::engraving
