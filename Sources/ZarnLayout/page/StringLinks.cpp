// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/StringLinks.h>

#include <ZarnLayout/page/BowSeeker.h>
#include <ZarnLayout/page/SideItem.h>
#include <ZarnLayout/page/SlurEngraver.h>

#include <algorithm>
#include <cmath>

namespace zarn::engraving {

namespace {

/// Where a link of a note ends in another chord: on its string; without one on the note of the
/// same rank, counted from the lowest, so that chords move as wholes.
const Head *endIn(const PlacedChord &chord, const NoteSource &note, std::size_t rank)
{
    const auto &heads = chord.chord->heads;
    if (chord.beat().noteCount == 0 || heads.empty())
        return nullptr;
    if (note.string < 0)
        return &heads[std::min(rank, heads.size() - 1)];
    for (const Head &head : heads)
        if (chord.note(head).string == note.string)
            return &head;
    return nullptr;
}

class StringLinkDrawer {
public:
    StringLinkDrawer(RowDraft &row, const SystemDraft &draft)
        : _row(row), _draft(draft), _field(row.inks, {MarkKind::Stem, MarkKind::Arpeggio})
    {
    }

    void draw()
    {
        std::vector<SlurSpan> slurs;
        if (_row.row->notation == Notation::Tablature)
            slurs = slurSpans(_row, _draft);
        for (std::size_t i = 0; i < _row.chords.size(); ++i) {
            const PlacedChord &chord = _row.chords[i];
            if (chord.beat().noteCount == 0 || _row.row->notation == Notation::Slash)
                continue;
            for (const Head &head : chord.chord->heads) {
                const NoteSource &note = chord.note(head);
                const auto [target, end] = targetOf(i, head);
                if (note.marks.isHopo())
                    addHopo(chord, head, target, end);
                const bool isSlurred =
                    note.marks.slideOut() == SlideOut::Legato && areSlurred(slurs, chord, target);
                addSlides(chord, head, note, target, end, isSlurred);
            }
        }
    }

private:
    std::pair<const PlacedChord *, const Head *> targetOf(std::size_t number,
                                                          const Head &from) const
    {
        const NoteSource &note = _row.chords[number].note(from);
        const auto rank = static_cast<std::size_t>(&from - _row.chords[number].chord->heads.data());
        for (std::size_t i = number + 1; i < _row.chords.size(); ++i) {
            const PlacedChord &chord = _row.chords[i];
            if (chord.chord->voice != _row.chords[number].chord->voice || chord.chord->isRest())
                break;
            if (const Head *head = endIn(chord, note, rank))
                return {&chord, head};
        }
        return {nullptr, nullptr};
    }

    /// Whether a slur of the row binds two chords and no others: it shows that a slide between
    /// them is not struck again.
    bool areSlurred(const std::vector<SlurSpan> &slurs, const PlacedChord &from,
                    const PlacedChord *to) const
    {
        return std::any_of(slurs.begin(), slurs.end(), [&](const SlurSpan &slur) {
            return !slur.comesFromBefore && &_row.chords[slur.first] == &from
                && (slur.goesOn ? !to : &_row.chords[slur.last] == to);
        });
    }

    double headLeft(const PlacedChord &chord, const Head &head) const { return chord.x + head.x; }

    void addHopo(const PlacedChord &chord, const Head &head, const PlacedChord *target,
                 const Head *end)
    {
        const bool isTab = _row.row->notation == Notation::Tablature;
        BowEnds ends;
        ends.side = isTab || !chord.chord->isStemUp ? 1 : -1;
        ends.isLevel = isTab || !end;
        for (const int side : {-1, 1}) {
            const Point from = endAt(chord, head, side, 1);
            ends.from[side > 0] = from;
            ends.to[side > 0] = end
                ? endAt(*target, *end, side, -1)
                : Point{std::max(_draft.musicRight() - 0.2, from.x + 0.8), from.y};
        }
        Ink curve = _draft.pen.curve(MarkKind::HammerOn, _field.freest(ends).handles());
        curve.place = placeOf(_row, chord, head.note - chord.beat().firstNote);
        _row.add(std::move(curve));
    }

    /// Where a head ends, with what stands behind it at its height: dots, parentheses, heads on the
    /// other side of its stem, and the numbers of other voices on its string.
    double rightAt(const PlacedChord &chord, const Head &head) const
    {
        double right = headLeft(chord, head) + head.width;
        for (const Head &other : chord.chord->heads)
            if (std::abs(other.y - head.y) < 0.8)
                right = std::max(right, headLeft(chord, other) + other.width);
        if (chord.chord->hasRival && _row.row->notation == Notation::Tablature)
            for (const PlacedChord &other : _row.chords)
                if (other.shownBar == chord.shownBar && other.chord->column == chord.chord->column
                    && other.beat().isGrace() == chord.beat().isGrace())
                    for (const Head &number : other.chord->heads)
                        if (number.line == head.line)
                            right = std::max(right, headLeft(other, number) + number.width);
        for (std::uint32_t i = chord.chord->firstInk; i < chord.chord->inkEnd; ++i)
            if (const Ink &ink = inkOf(_draft, _row, chord, i);
                (ink.kind == MarkKind::AugmentationDot || ink.kind == MarkKind::Enclosure)
                && ink.box.top < head.y + 0.8 && ink.box.bottom > head.y - 0.8)
                right = std::max(right, chord.x + ink.box.right);
        return right;
    }

    /// An end over or below a head, or beside it where the chord goes on there. `forward` is 1
    /// where a curve begins, -1 where it ends.
    Point endAt(const PlacedChord &chord, const Head &head, int side, int forward) const
    {
        const auto &heads = chord.chord->heads;
        const bool isTab = _row.row->notation == Notation::Tablature;
        const double x = headLeft(chord, head) + head.width / 2;
        const bool isOuter = side > 0 ? &head == &heads.back() : &head == &heads.front();
        const bool meetsStem =
            !isTab && chord.chord->hasStem && chord.chord->isStemUp == (side > 0);
        if (isOuter && !meetsStem)
            return {x + forward * 0.1, head.y - side * (isTab ? 0.8 : 0.7)};
        double outer = x + forward * head.width / 2;
        for (std::uint32_t i = chord.chord->firstInk; i < chord.chord->inkEnd; ++i) {
            const Ink &ink = inkOf(_draft, _row, chord, i);
            const bool isBeside = ink.kind == MarkKind::AugmentationDot
                || ink.kind == MarkKind::Accidental || ink.kind == MarkKind::Arpeggio
                || ink.kind == MarkKind::Enclosure;
            if (isBeside && ink.box.top < head.y + 0.6 && ink.box.bottom > head.y - 0.6)
                outer = forward > 0 ? std::max(outer, chord.x + ink.box.right)
                                    : std::min(outer, chord.x + ink.box.left);
        }
        return {outer + forward * 0.15, head.y - side * 0.3};
    }

    void addLine(const PlacedChord &chord, const Head &head, Ink line)
    {
        line.place = placeOf(_row, chord, head.note - chord.beat().firstNote);
        _row.add(std::move(line));
    }

    Ink lineOf(const Point &from, const Point &to) const
    {
        return _draft.pen.line(MarkKind::Slide, from, to, 0.16);
    }

    bool isOnInk(const Ink &line)
    {
        constexpr double touch = 0.01;
        return _field.all().coveredBy(line, 0) > touch;
    }

    /// A short slide that comes from nowhere or leads there: farther from its note, by up to its
    /// own length, where something else stands beside it, and higher or lower where that does not
    /// help. `forward` is 1 for one that leads away.
    Ink freestStub(const Point &from, const Point &to, int forward)
    {
        constexpr double margin = 0.06;
        Ink best;
        double least = 1e9;
        const auto seek = [&](double shift) {
            for (const double way : {0.0, 0.3, 0.6, 0.9, 1.2, 1.5}) {
                const double x = forward * way;
                Ink line = lineOf({from.x + x, from.y + shift}, {to.x + x, to.y + shift});
                const double over = std::max(0.0, line.box.right - _draft.musicRight());
                const double cost = way + 1.5 * std::abs(shift)
                    + 60 * (_field.all().coveredBy(line, margin) + over);
                if (cost < least) {
                    least = cost;
                    best = std::move(line);
                }
            }
        };
        seek(0);
        if (isOnInk(best))
            for (const double shift : {0.3, 0.6, 0.9, 1.2, 1.5})
                for (const double sign : {-1.0, 1.0})
                    seek(sign * shift);
        return best;
    }

    /// A slide from left to right that leads as it is wished to, but moves off what stands in its
    /// way, or begins later or ends earlier, as far as one still sees where it leads; farther off
    /// where that does not help.
    Ink freestLine(const Point &from, const Point &to)
    {
        constexpr double shortest = 0.8;
        constexpr double margin = 0.06;
        constexpr double step = 0.25;
        Ink best = lineOf(from, to);
        double least = 60 * _field.all().coveredBy(best, margin);
        if (least == 0)
            return best;
        const double length = to.x - from.x;
        const double rise = to.y - from.y;
        const auto seekOne = [&](double fromShift, double toShift, double begin, double end) {
            const double leaning = rise + toShift - fromShift;
            const double cost =
                std::abs(fromShift) + std::abs(toShift) + (begin + end) / std::max(length, 1.0);
            if (rise * leaning < 0 || std::abs(leaning) < std::abs(rise) / 2 || cost >= least
                || length - begin - end < std::min(shortest, length))
                return;
            Ink line = lineOf({from.x + begin, from.y + fromShift + leaning * begin / length},
                              {to.x - end, to.y + toShift - leaning * end / length});
            const double whole = cost + 60 * _field.all().coveredBy(line, margin);
            if (whole < least) {
                least = whole;
                best = std::move(line);
            }
        };
        const double cuts[] = {0, 0.35, 0.7, std::max(1.2, length / 3)};
        // Small shifts first: of those that cost the same, the first holds.
        const auto shiftOf = [](int number) {
            return step * ((number + 1) / 2) * (number % 2 == 1 ? -1 : 1);
        };
        const auto seek = [&](int count) {
            for (int fromShift = 0; fromShift < count; ++fromShift)
                for (int toShift = 0; toShift < count; ++toShift)
                    for (const double begin : cuts)
                        for (const double end : cuts)
                            seekOne(shiftOf(fromShift), shiftOf(toShift), begin, end);
        };
        seek(7);
        if (isOnInk(best))
            seek(17);
        return best;
    }

    void addSlides(const PlacedChord &chord, const Head &head, const NoteSource &note,
                   const PlacedChord *target, const Head *end, bool isSlurred)
    {
        constexpr double stub = 1.4;
        const bool isTab = _row.row->notation == Notation::Tablature;
        const double left = headLeft(chord, head);
        const double right = rightAt(chord, head);
        const double rise = isTab ? 0.55 : 0.8;
        if (note.marks.slideIn() != SlideIn::None) {
            const double sign = note.marks.slideIn() == SlideIn::FromBelow ? 1 : -1;
            const double end = std::min(left, leftInkOf(_draft, _row, chord)) - 0.2;
            addLine(chord, head,
                    freestStub({end - stub, head.y + sign * rise}, {end, head.y + sign * 0.1}, -1));
        }
        const SlideOut out = note.marks.slideOut();
        if (out == SlideOut::None)
            return;
        if (out == SlideOut::Shift || out == SlideOut::Legato) {
            const double stop =
                end ? leftInkOf(_draft, _row, *target) - 0.2 : _draft.musicRight() - 0.2;
            if (stop < right + 0.5)
                return;
            double from = head.y;
            double to = end ? end->y : head.y;
            // Level beside the tie of its note: that keeps off one line.
            if (isTab || (to == from && !note.marks.isTieOrigin())) {
                const int step = end && target->note(*end).fret < note.fret ? -1 : 1;
                from += step * 0.4;
                to -= step * 0.4;
            }
            addLine(chord, head, freestLine({right + 0.2, from}, {stop, to}));
            if (isSlurred)
                return;
            if (out == SlideOut::Legato && isTab) {
                BowEnds ends;
                ends.isLevel = !end || end->y == head.y;
                for (const int side : {-1, 1}) {
                    ends.from[side > 0] = {right, head.y - side * 0.8};
                    ends.to[side > 0] = {stop, (end ? end->y : head.y) - side * 0.8};
                }
                Ink curve = _draft.pen.curve(MarkKind::Slide, _field.freest(ends).handles());
                curve.place = placeOf(_row, chord, head.note - chord.beat().firstNote);
                _row.add(std::move(curve));
            }
            return;
        }
        const bool isUp = out == SlideOut::Upwards || out == SlideOut::PickScrapeUp;
        addLine(chord, head,
                freestStub({right + 0.2, head.y + (isUp ? -0.1 : 0.1)},
                           {right + 0.2 + stub, head.y + (isUp ? -rise : rise)}, 1));
    }

    RowDraft &_row;
    const SystemDraft &_draft;
    CurveField _field;
};

} // namespace

void addStringLinks(RowDraft &row, const SystemDraft &draft)
{
    StringLinkDrawer(row, draft).draw();
}

} // namespace zarn::engraving
