// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/SlurEngraver.h>

#include <ZarnLayout/page/BowSeeker.h>
#include <ZarnLayout/page/NumberedSlurs.h>
#include <ZarnLayout/page/PlacedCurves.h>
#include <ZarnLayout/page/SideItem.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace zarn::engraving {

namespace {

/// An outermost slur that begins at a chord, or comes to it from a system before.
SlurSpan slurAt(const RowDraft &row, std::size_t chord, bool comesFromBefore)
{
    SlurSpan span = {chord, chord, comesFromBefore};
    if (const auto &details = row.chords[chord].beat().details) {
        span.line = details->slurLine;
        span.side = details->slurSide;
    }
    return span;
}

/// Where a slur ends that leads from a chord to beats of its voice that are not drawn: the chord
/// that is drawn in the place of the last of them.
std::optional<std::size_t> hiddenEnd(const RowDraft &row, const SystemDraft &draft,
                                     const PlacedChord &chord)
{
    for (unsigned bar = chord.shownBar; bar < draft.end; ++bar) {
        const auto &voices = draft.score.source(row.number, bar).voices;
        const auto voice = std::find_if(voices.begin(), voices.end(), [&](const auto &other) {
            return other.number == chord.chord->voice;
        });
        if (voice == voices.end())
            return std::nullopt;
        const std::size_t first = bar == chord.shownBar ? chord.beat().index + 1U : 0U;
        for (std::size_t i = first; i < voice->beats.size(); ++i) {
            const BeatSource &beat = voice->beats[i];
            if (!beat.isPlaceHolder || !beat.marks.isSlurredToPrevious())
                return std::nullopt;
            if (!beat.marks.isSlurredToNext())
                return chordAt(row, bar, beat.onset);
        }
    }
    return std::nullopt;
}

/// The outermost slurs of each voice: their joints are marked on both sides.
std::vector<SlurSpan> markedSlurs(const RowDraft &row, const SystemDraft &draft)
{
    std::vector<SlurSpan> spans;
    const auto &chords = row.chords;
    bool isOpen = false;
    for (std::size_t i = 0; i < chords.size(); ++i) {
        const BeatMarks &marks = chords[i].beat().marks;
        const bool isNewVoice = i == 0 || chords[i - 1].chord->voice != chords[i].chord->voice;
        if (isNewVoice) {
            isOpen = marks.isSlurredToPrevious();
            if (isOpen)
                spans.push_back(slurAt(row, i, true));
        }
        if (isOpen && marks.isSlurredToPrevious())
            spans.back().last = i;
        const bool begins = marks.isSlurredToNext()
            && (!marks.isSlurredToPrevious() || marks.beginsSlur() || !isOpen);
        if (begins)
            spans.push_back(slurAt(row, i, false));
        isOpen = marks.isSlurredToNext();
        const bool isLast =
            i + 1 == chords.size() || chords[i + 1].chord->voice != chords[i].chord->voice;
        const bool leadsOn = !isLast && chords[i + 1].beat().marks.isSlurredToPrevious();
        if (!isOpen || leadsOn || spans.empty())
            continue;
        if (const auto end = hiddenEnd(row, draft, chords[i]))
            spans.back().last = *end;
        else if (isLast)
            spans.back().goesOn = true;
    }
    return spans;
}

constexpr double pi = 3.14159265358979323846;

/// How high a slur bows whose way is free: short ones rise, long ones stay flat.
double heightOf(double width)
{
    constexpr double highest = 1.6;
    constexpr double rise = 0.3; ///< of a short slur, in its width
    return std::max(0.6, highest * 2 / pi * std::atan(pi / 2 * rise * width / highest));
}

class SlurDrawer {
public:
    SlurDrawer(RowDraft &row, const SystemDraft &draft)
        : _row(row), _draft(draft),
          _field(row.inks, {MarkKind::Stem, MarkKind::Beam, MarkKind::Arpeggio})
    {
        _field.add(row.beamsBetween);
        for (const Ink &ink : row.inks)
            if (ink.kind == MarkKind::Tie)
                _curves.add(ink);
    }

    void draw(const SlurSpan &span)
    {
        const PlacedChord &first = _row.chords[span.first];
        const PlacedChord &last = _row.chords[span.last];
        const bool isOfGrace = isFromGrace(span);
        const bool isAbove = isOfGrace ? !first.chord->isStemUp : sideOf(span);
        // Over one chord at most, a slur finds its way between the notes of other voices.
        const bool isShort = span.last - span.first < 2;
        Bow bow = isOfGrace ? bestOfGrace(first, last) : bestOn(span, isAbove, isShort);
        if (!isOfGrace && (span.side != SlurSide::Auto || hasBends(span)) && isOnInk(bow))
            bow = offInk(span, isAbove, bow);
        if (isOfGrace && _field.hidesInk(bow))
            bow = bestOn(span, isAbove, isShort);
        for (const bool side : {isAbove, !isAbove})
            if (_field.hidesInk(bow))
                if (const Bow around = aroundAll(span, side); !_field.hidesInk(around))
                    bow = around;
        addCurve(first, bow, span.line);
    }

private:
    bool isOnInk(const Bow &bow)
    {
        constexpr double touch = 0.01;
        return _field.all().coveredBy(bow, 0) > touch;
    }

    /// Whether strings are bent under a slur: the arrows lead up from its numbers.
    bool hasBends(const SlurSpan &span) const
    {
        if (_row.row->notation != Notation::Tablature)
            return false;
        for (std::size_t i = span.first; i <= span.last && i < _row.chords.size(); ++i) {
            const PlacedChord &chord = _row.chords[i];
            if (chord.beat().noteCount == 0)
                continue;
            for (const Head &head : chord.chord->heads) {
                const NoteSource &note = chord.note(head);
                if (note.details && note.details->bend.type != BendType::NoBend)
                    return true;
            }
        }
        return false;
    }

    /// Another way for a curve that lies on ink on the side that it was given: between the voices,
    /// else on the other side. Where that is no better, the given side holds.
    Bow offInk(const SlurSpan &span, bool isAbove, const Bow &given)
    {
        for (const auto &[side, mayBeBetween] :
             {std::pair(isAbove, true), std::pair(!isAbove, false), std::pair(!isAbove, true)})
            if (const Bow bow = bestOn(span, side, mayBeBetween); !isOnInk(bow))
                return bow;
        return given;
    }

    /// The best curve on a side, around the notes of other voices or between them.
    Bow bestOn(const SlurSpan &span, bool isAbove, bool mayBeBetween)
    {
        const bool isBetween = mayBeBetween
            && (isInner(_row.chords[span.first], isAbove)
                || isInner(_row.chords[span.last], isAbove));
        const Bow bow = wishedOn(span, isAbove, isBetween);
        return leastInked(isBetween ? bow : aroundNotes(bow, isAbove), isAbove ? 1 : -1,
                          _field.all());
    }

    /// From end to end on a side, whatever is in the way.
    Bow wishedOn(const SlurSpan &span, bool isAbove, bool isBetween) const
    {
        const PlacedChord &first = _row.chords[span.first];
        const PlacedChord &last = _row.chords[span.last];
        // One whose side is given finds its way past another voice that lies there at both ends.
        const auto endsBeside = [&](const PlacedChord &chord) {
            const PlacedChord &other = &chord == &first ? last : first;
            return isBetween
                || (span.side != SlurSide::Auto && isInner(chord, isAbove)
                    && (isInner(other, isAbove) || chord.chord->voice == other.chord->voice));
        };
        Point from =
            endsBeside(first) ? besideHeads(first, isAbove, true) : endAt(first, isAbove, true);
        Point to =
            endsBeside(last) ? besideHeads(last, isAbove, false) : endAt(last, isAbove, false);
        if (span.goesOn)
            to = {_draft.musicRight() - 0.1, 0};
        if (span.comesFromBefore)
            from.x = _draft.musicLeft - 0.3;
        if (span.comesFromBefore && span.goesOn)
            from.y = to.y = isAbove ? -1.2 : _row.row->height() + 1.2;
        else if (span.comesFromBefore)
            from.y = to.y;
        else if (span.goesOn)
            to.y = from.y;
        if (span.goesOn && leadsIntoRests(span))
            to.x = std::min(to.x, from.x + stub);
        if (to.x < from.x + 1.2)
            from.x = to.x - 1.2;
        return Bow::arched(from, to, (isAbove ? 1 : -1) * heightOf(to.x - from.x));
    }

    /// How far a slur reaches whose other end is not to be seen, behind bars of rest.
    static constexpr double stub = 5;

    bool leadsIntoRests(const SlurSpan &span) const
    {
        const PlacedChord &last = _row.chords[span.last];
        return last.shownBar + 1 < _draft.end
            && std::none_of(_row.chords.begin(), _row.chords.end(), [&](const PlacedChord &chord) {
                   return chord.x > last.x && !chord.chord->isRest();
               });
    }

    /// From grace notes to the note that they belong to, on the side where their stems are not.
    bool isFromGrace(const SlurSpan &span) const
    {
        const PlacedChord &first = _row.chords[span.first];
        const PlacedChord &last = _row.chords[span.last];
        return !span.comesFromBefore && !span.goesOn && span.last > span.first
            && _row.row->notation != Notation::Tablature && first.beat().graceRank != 0
            && last.beat().graceRank == 0 && !first.chord->isRest() && !last.chord->isRest()
            && span.last - span.first == first.beat().graceRank
            && (span.side == SlurSide::Auto
                || (span.side == SlurSide::Above) != first.chord->isStemUp);
    }

    /// It stays near to the heads.
    Bow bestOfGrace(const PlacedChord &first, const PlacedChord &last)
    {
        const bool isAbove = !first.chord->isStemUp;
        const double sign = isAbove ? -1 : 1;
        const auto edge = [&](const PlacedChord &chord) {
            const double half = 0.5 * chord.chord->scale;
            return isAbove ? chord.chord->top() - half : chord.chord->bottom() + half;
        };
        const Point from = {first.headCentre(), edge(first) + sign * 0.2};
        Point to = {last.headCentre() - 0.3, edge(last) + sign * 0.2};
        // Beside a stem on that side, not around its end.
        if (last.chord->hasStem && last.chord->isStemUp == isAbove) {
            to = {std::min(last.stemX(), last.x) - 0.2, edge(last) - sign * 0.2};
            to.x = std::max(to.x, from.x + 0.8);
        }
        return leastInked(Bow::arched(from, to, sign * -0.7), -sign, _field.all());
    }

    /// Calls with each chord of another voice that begins with one.
    template <class Function>
    void forRivals(const PlacedChord &placed, Function function) const
    {
        if (!placed.chord->hasRival)
            return;
        for (const PlacedChord &other : _row.chords)
            if (other.shownBar == placed.shownBar && other.chord->voice != placed.chord->voice
                && !other.chord->isRest() && other.beat().onset == placed.beat().onset)
                function(*other.chord);
    }

    /// On the side of the stem; where that says nothing, with no stem, many voices, or two whose
    /// stems point to one side, not over the heads of others.
    bool sideAmongVoices(const PlacedChord &placed) const
    {
        const Chord &chord = *placed.chord;
        bool isLowest = true;
        bool isHighest = true;
        bool hasTwin = false;
        int others = 0;
        forRivals(placed, [&](const Chord &other) {
            isLowest = isLowest && other.bottom() < chord.bottom();
            isHighest = isHighest && other.top() > chord.top();
            hasTwin = hasTwin || other.isStemUp == chord.isStemUp;
            ++others;
        });
        if ((chord.hasStem && others < 2 && !hasTwin) || isLowest == isHighest)
            return chord.isStemUp;
        return isHighest;
    }

    /// Whether heads of another voice lie between a chord and what is drawn on one side. Rests have
    /// found their places off them.
    bool isInner(const PlacedChord &placed, bool isAbove) const
    {
        const Chord &chord = *placed.chord;
        if (chord.isRest())
            return false;
        bool isInner = false;
        forRivals(placed, [&](const Chord &other) {
            isInner =
                isInner || (isAbove ? other.top() < chord.top() : other.bottom() > chord.bottom());
        });
        return isInner;
    }

    /// As it is given, else above where any stem points down, or as the voice lies.
    bool sideOf(const SlurSpan &span) const
    {
        if (span.side != SlurSide::Auto)
            return span.side == SlurSide::Above;
        bool areUp = true;
        for (std::size_t i = span.first; i <= span.last && i < _row.chords.size(); ++i) {
            const Chord &chord = *_row.chords[i].chord;
            if (chord.isRest())
                continue;
            if (chord.hasRival)
                return i == span.first ? sideAmongVoices(_row.chords[i]) : chord.isStemUp;
            areUp = areUp && chord.isStemUp;
        }
        return !areUp || _row.row->notation == Notation::Tablature;
    }

    /// The outermost ink of a chord, or of a rest where it found its place.
    double edgeOf(const PlacedChord &chord, bool isAbove) const
    {
        double edge = isAbove ? chord.top() : chord.bottom();
        if (!chord.chord->isRest()) {
            // Many flags go on beyond the end of their stem.
            if (chord.chord->isStemUp == isAbove)
                for (std::uint32_t i = chord.chord->firstInk; i < chord.chord->inkEnd; ++i)
                    if (const Ink &ink = inkOf(_draft, _row, chord, i); ink.kind == MarkKind::Flag)
                        edge =
                            isAbove ? std::min(edge, ink.box.top) : std::max(edge, ink.box.bottom);
            return edge;
        }
        const MarkPlace place = placeOf(_row, chord);
        for (const Ink &ink : _row.inks)
            if (ink.kind == MarkKind::Rest && ink.place.bar == place.bar
                && ink.place.voice == place.voice && ink.place.beat == place.beat)
                edge = isAbove ? std::min(edge, ink.box.top) : std::max(edge, ink.box.bottom);
        return edge;
    }

    Point endAt(const PlacedChord &chord, bool isAbove, bool isStart) const
    {
        const bool isAtStem = chord.chord->hasStem && !chord.chord->isRest()
            && chord.chord->isStemUp == isAbove && _row.row->notation != Notation::Tablature;
        const double edge = edgeOf(chord, isAbove);
        const double sign = isAbove ? -1 : 1;
        const bool hasSign = isAbove ? chord.signTop < 1e8 : chord.signBottom > -1e8;
        if (isAtStem && !hasSign)
            return {chord.stemX() + (isStart ? 0.25 : -0.25), edge + sign * 0.35};
        return {chord.headCentre() + (isStart ? 0.15 : -0.15), edge + sign * 0.35};
    }

    /// Where a slur begins or ends that has no way around the heads of other voices.
    Point besideHeads(const PlacedChord &chord, bool isAbove, bool isStart) const
    {
        constexpr double gap = 0.25;
        const double y = isAbove ? chord.chord->top() - 0.2 : chord.chord->bottom() + 0.2;
        return {isStart ? rightOf(chord) + gap : leftInkOf(_draft, _row, chord) - gap, y};
    }

    void addCurve(const PlacedChord &first, const Bow &bow, SlurLine line)
    {
        Ink curve = _draft.pen.slur(bow, line);
        curve.place = placeOf(_row, first);
        // The curve covers what is under it, piece by piece.
        const std::vector<Point> points = bow.samples();
        for (std::size_t i = 1; i < points.size(); ++i)
            _row.cover({points[i - 1].x, std::min(points[i - 1].y, points[i].y) - 0.12, points[i].x,
                        std::max(points[i - 1].y, points[i].y) + 0.12});
        _curves.add(curve);
        _row.inks.push_back(std::move(curve));
    }

    /// Where the outermost ink is at some points of a curve, evenly from end to end.
    template <class Function>
    static std::vector<double> edgesAlong(const Bow &bow, Function edgeAt)
    {
        constexpr std::size_t count = 40;
        std::vector<double> edges;
        for (const Point &point : bow.samples(count))
            edges.push_back(edgeAt(point.x));
        return edges;
    }

    /// Over the notes, or below them.
    Bow aroundNotes(const Bow &bow, bool isAbove) const
    {
        std::vector<double> edges = edgesAlong(bow, [&](double x) { return edgeAt(x, isAbove); });
        _curves.addUnder(bow.samples(edges.size() - 1), isAbove, edges);
        return aroundEdges(bow, isAbove, edges);
    }

    /// Over all ink of the row, or below it: there is always room.
    Bow aroundAll(const SlurSpan &span, bool isAbove) const
    {
        constexpr double gap = 0.35;
        constexpr double narrow = 4;
        constexpr double near = 0.3;
        const auto edge = [&](double left, double right) {
            return isAbove ? -_row.above.reach(left, right) : _row.below.reach(left, right);
        };
        Bow bow = wishedOn(span, isAbove, false);
        const double outward = isAbove ? -gap : gap;
        if (bow.to.x - bow.from.x < narrow) {
            bow.from.y = bow.to.y = edge(bow.from.x - near, bow.to.x + near) + outward;
        } else {
            bow.from.y = edge(bow.from.x - near, bow.from.x + 2 * near) + outward;
            bow.to.y = edge(bow.to.x - 2 * near, bow.to.x + near) + outward;
        }
        return aroundEdges(bow, isAbove,
                           edgesAlong(bow, [&](double x) { return edge(x - near, x + near); }));
    }

    /// The outermost ink of chords at a place; the staff itself is no obstacle.
    double edgeAt(double x, bool isAbove) const
    {
        double y = isAbove ? 1e9 : -1e9;
        for (const PlacedChord &chord : _row.chords) {
            if (chord.chord->isRest() || chord.x > x + 3 || chord.x < x - 6
                || rightOf(chord) < x - 3)
                continue;
            for (const Head &head : chord.chord->heads)
                if (x > chord.x + head.x - 0.1 && x < chord.x + head.x + head.width + 0.1)
                    y = isAbove ? std::min({y, head.y - 0.5, chord.signTop})
                                : std::max({y, head.y + 0.5, chord.signBottom});
            for (std::uint32_t i = chord.chord->firstInk; i < chord.chord->inkEnd; ++i)
                if (const Ink &ink = inkOf(_draft, _row, chord, i); ink.kind == MarkKind::Accidental
                    && x > chord.x + ink.box.left - 0.1 && x < chord.x + ink.box.right + 0.1)
                    y = isAbove ? std::min(y, ink.box.top) : std::max(y, ink.box.bottom);
            if (chord.chord->hasStem && std::abs(x - chord.stemX()) < 0.35) {
                y = isAbove ? std::min({y, chord.stemTip, chord.chord->stemRoot})
                            : std::max({y, chord.stemTip, chord.chord->stemRoot});
            }
        }
        return y;
    }

    RowDraft &_row;
    const SystemDraft &_draft;
    CurveField _field;
    PlacedCurves _curves;
};

/// Of slurs over the same chords of which some are given a side, the others lie opposite.
void separateTwins(std::vector<SlurSpan> &spans)
{
    for (SlurSpan &span : spans) {
        if (span.side != SlurSide::Auto || span.first == span.last)
            continue;
        bool isGiven[2] = {false, false}; // below, above
        for (const SlurSpan &other : spans)
            if (other.side != SlurSide::Auto && other.first == span.first
                && other.last == span.last)
                isGiven[other.side == SlurSide::Above] = true;
        if (isGiven[0] != isGiven[1])
            span.side = isGiven[0] ? SlurSide::Above : SlurSide::Below;
    }
}

} // namespace

std::vector<SlurSpan> slurSpans(const RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isFirstOfStaff)
        return {};
    std::vector<SlurSpan> spans = markedSlurs(row, draft);
    for (const NumberedSlur &slur : numberedSlurs(draft, row.row->track)) {
        const bool isHere = slur.firstRow == &row || (!slur.firstRow && slur.lastRow == &row);
        const bool staysHere = !slur.firstRow || !slur.lastRow || slur.firstRow == slur.lastRow;
        if (isHere && staysHere)
            spans.push_back(
                {slur.first, slur.last, !slur.firstRow, !slur.lastRow, slur.line, slur.side});
    }
    return spans;
}

void addSlurs(RowDraft &row, const SystemDraft &draft)
{
    std::vector<SlurSpan> spans = slurSpans(row, draft);
    if (spans.empty())
        return;
    separateTwins(spans);
    SlurDrawer drawer(row, draft);
    // Short slurs first: long ones go around them.
    const auto widthOf = [&](const SlurSpan &span) {
        return (span.goesOn ? draft.musicRight() : row.chords[span.last].x)
            - (span.comesFromBefore ? draft.musicLeft : row.chords[span.first].x);
    };
    std::stable_sort(spans.begin(), spans.end(), [&](const SlurSpan &left, const SlurSpan &right) {
        return widthOf(left) < widthOf(right);
    });
    for (const SlurSpan &span : spans)
        drawer.draw(span);
}

} // namespace zarn::engraving
