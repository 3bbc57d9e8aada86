// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/SlurEngraver.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace zarn::engraving {

namespace {

struct SlurSpan {
    std::size_t first;
    std::size_t last;
    bool comesFromBefore = false;
    bool goesOn = false;
};

/// The outermost slurs of each voice: their joints are marked on both sides.
std::vector<SlurSpan> markedSlurs(const RowDraft &row)
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
                spans.push_back({i, i, true, false});
        }
        if (isOpen && marks.isSlurredToPrevious())
            spans.back().last = i;
        const bool begins = marks.isSlurredToNext()
            && (!marks.isSlurredToPrevious() || marks.beginsSlur() || !isOpen);
        if (begins)
            spans.push_back({i, i, false, false});
        isOpen = marks.isSlurredToNext();
        const bool isLast =
            i + 1 == chords.size() || chords[i + 1].chord->voice != chords[i].chord->voice;
        if (isLast && isOpen && !spans.empty())
            spans.back().goesOn = true;
    }
    return spans;
}

/// A slur by number, from any voice and staff of a track to any other.
struct NumberedSlur {
    const RowDraft *firstRow = nullptr; ///< null where it comes from a system before
    const RowDraft *lastRow = nullptr;  ///< null where it goes on
    std::size_t first = 0;
    std::size_t last = 0;
};

std::vector<NumberedSlur> numberedSlurs(const SystemDraft &draft, unsigned track)
{
    struct Place {
        const RowDraft *row;
        std::size_t chord;
        double x;
    };
    std::vector<Place> places;
    for (const RowDraft &row : draft.rows)
        if (row.row->track == track && row.row->isFirstOfStaff)
            for (std::size_t i = 0; i < row.chords.size(); ++i)
                if (const auto &details = row.chords[i].beat().details;
                    details && !details->slurEnds.empty())
                    places.push_back({&row, i, row.chords[i].x});
    std::stable_sort(places.begin(), places.end(),
                     [](const Place &left, const Place &right) { return left.x < right.x; });
    std::vector<NumberedSlur> slurs;
    std::map<unsigned, Place> open;
    for (const Place &place : places)
        for (const SlurEnd &end : place.row->chords[place.chord].beat().details->slurEnds) {
            if (end.isBegin) {
                open[end.number] = place;
            } else if (const auto begin = open.find(end.number); begin != open.end()) {
                slurs.push_back({begin->second.row, place.row, begin->second.chord, place.chord});
                open.erase(begin);
            } else {
                slurs.push_back({nullptr, place.row, place.chord, place.chord});
            }
        }
    for (const auto &[number, begin] : open)
        slurs.push_back({begin.row, nullptr, begin.chord, begin.chord});
    return slurs;
}

class SlurDrawer {
public:
    SlurDrawer(RowDraft &row, const SystemDraft &draft) : _row(row), _draft(draft) { }

    void draw(const SlurSpan &span)
    {
        const PlacedChord &first = _row.chords[span.first];
        const PlacedChord &last = _row.chords[span.last];
        const bool isAbove = sideOf(span);
        Point from = endAt(first, isAbove, true);
        Point to = span.goesOn ? Point{_draft.musicRight() - 0.1, 0} : endAt(last, isAbove, false);
        if (span.comesFromBefore)
            from.x = _draft.musicLeft - 0.3;
        if (span.comesFromBefore && span.goesOn)
            from.y = to.y = isAbove ? -1.2 : _row.row->height() + 1.2;
        else if (span.comesFromBefore)
            from.y = to.y;
        else if (span.goesOn)
            to.y = from.y;
        if (to.x < from.x + 1.2)
            from.x = to.x - 1.2;
        drawBetween(first, from, to, isAbove);
    }

private:
    /// Above where any stem points down, or as the voice lies.
    bool sideOf(const SlurSpan &span) const
    {
        bool areUp = true;
        for (std::size_t i = span.first; i <= span.last && i < _row.chords.size(); ++i) {
            const Chord &chord = *_row.chords[i].chord;
            if (chord.isRest())
                continue;
            if (chord.hasRival)
                return chord.isStemUp;
            areUp = areUp && chord.isStemUp;
        }
        return !areUp || _row.row->notation == Notation::Tablature;
    }
    Point endAt(const PlacedChord &chord, bool isAbove, bool isStart) const
    {
        const bool isAtStem = chord.chord->hasStem && !chord.chord->isRest()
            && chord.chord->isStemUp == isAbove && _row.row->notation != Notation::Tablature;
        const double edge = isAbove ? chord.top() : chord.bottom();
        const double sign = isAbove ? -1 : 1;
        const bool hasSign = isAbove ? chord.signTop < 1e8 : chord.signBottom > -1e8;
        if (isAtStem && !hasSign)
            return {chord.stemX() + (isStart ? 0.25 : -0.25), edge + sign * 0.35};
        return {chord.headCentre() + (isStart ? 0.15 : -0.15), edge + sign * 0.35};
    }

    void drawBetween(const PlacedChord &first, Point from, Point to, bool isAbove)
    {
        const double sign = isAbove ? 1 : -1; // upwards
        const double width = to.x - from.x;
        double height = std::clamp(0.6 + 0.09 * width, 0.7, 2.6);
        // Notes whose stretch is clear of the ends make the curve rise, then its ends.
        for (int round = 0; round < 24; ++round) {
            double worst = 0;
            double atEnds = 0;
            const int samples = std::clamp(static_cast<int>(width * 2), 6, 60);
            for (int i = 1; i < samples; ++i) {
                const double t = static_cast<double>(i) / samples;
                const double x = from.x + width * t;
                const double y = from.y + (to.y - from.y) * t - sign * height * 4 * t * (1 - t);
                const double ink = coveredAt(x, isAbove);
                const double need = sign * (y - ink) + 0.3;
                if (need > 0) {
                    if (t < 0.12 || t > 0.88)
                        atEnds = std::max(atEnds, need);
                    else
                        worst = std::max(worst, need / (4 * t * (1 - t)));
                }
            }
            if (worst <= 0.01 && atEnds <= 0.01)
                break;
            if (worst > 0.01 && height < 4)
                height = std::min(height + worst * 0.6, 4.0);
            else {
                from.y -= sign * 0.35;
                to.y -= sign * 0.35;
            }
        }
        Ink curve = _draft.pen.curve(MarkKind::Slur, from, to, sign * height);
        curve.place = placeOf(_row, first);
        // The curve covers what is under it, piece by piece.
        constexpr int pieces = 16;
        for (int i = 0; i < pieces; ++i) {
            const double t = (i + 0.5) / pieces;
            const double y = from.y + (to.y - from.y) * t - sign * height * 4 * t * (1 - t);
            _row.cover({from.x + width * i / pieces, y - 0.12, from.x + width * (i + 1) / pieces,
                        y + 0.12});
        }
        _row.inks.push_back(std::move(curve));
    }

    /// Ink of chords at a place; the staff itself is no obstacle.
    double coveredAt(double x, bool isAbove) const
    {
        double y = isAbove ? 1e9 : -1e9;
        for (const PlacedChord &chord : _row.chords) {
            if (chord.chord->isRest() || chord.x > x + 3 || rightOf(chord) < x - 3)
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
};

const Head *headOnString(const PlacedChord &chord, const NoteSource &note)
{
    const Head *any = nullptr;
    for (const Head &head : chord.chord->heads) {
        if (chord.beat().noteCount == 0)
            return nullptr;
        const NoteSource &other = chord.note(head);
        if (note.string >= 0 && other.string == note.string)
            return &head;
        if (note.string < 0)
            any = any ? any : &head;
    }
    return any;
}

class StringLinkDrawer {
public:
    StringLinkDrawer(RowDraft &row, const SystemDraft &draft) : _row(row), _draft(draft) { }

    void draw()
    {
        for (std::size_t i = 0; i < _row.chords.size(); ++i) {
            const PlacedChord &chord = _row.chords[i];
            if (chord.beat().noteCount == 0 || _row.row->notation == Notation::Slash)
                continue;
            for (const Head &head : chord.chord->heads) {
                const NoteSource &note = chord.note(head);
                const auto [target, end] = targetOf(i, note);
                if (note.marks.isHopo())
                    addHopo(chord, head, target, end);
                addSlides(chord, head, note, target, end);
            }
        }
    }

private:
    std::pair<const PlacedChord *, const Head *> targetOf(std::size_t number,
                                                          const NoteSource &note) const
    {
        for (std::size_t i = number + 1; i < _row.chords.size(); ++i) {
            const PlacedChord &chord = _row.chords[i];
            if (chord.chord->voice != _row.chords[number].chord->voice || chord.chord->isRest())
                break;
            if (const Head *head = headOnString(chord, note))
                return {&chord, head};
        }
        return {nullptr, nullptr};
    }

    double headLeft(const PlacedChord &chord, const Head &head) const { return chord.x + head.x; }

    void addHopo(const PlacedChord &chord, const Head &head, const PlacedChord *target,
                 const Head *end)
    {
        const bool isTab = _row.row->notation == Notation::Tablature;
        const double left = headLeft(chord, head) + head.width / 2 + 0.1;
        const double right =
            end ? headLeft(*target, *end) + end->width / 2 - 0.1 : _draft.musicRight() - 0.2;
        const bool isAbove = isTab || !chord.chord->isStemUp;
        const double sign = isAbove ? -1 : 1;
        const double off = sign * (isTab ? 0.8 : 0.7);
        const double to = end && !isTab ? end->y + off : head.y + off;
        Ink curve = _draft.pen.curve(MarkKind::HammerOn, {left, head.y + off},
                                     {std::max(right, left + 0.8), to},
                                     -sign * std::clamp(0.35 + 0.05 * (right - left), 0.4, 1.2));
        curve.place = placeOf(_row, chord, head.note - chord.beat().firstNote);
        _row.add(std::move(curve));
    }

    void addLine(const PlacedChord &chord, const Head &head, Point from, Point to)
    {
        Ink line = _draft.pen.line(MarkKind::Slide, from, to, 0.16);
        line.place = placeOf(_row, chord, head.note - chord.beat().firstNote);
        _row.add(std::move(line));
    }

    void addSlides(const PlacedChord &chord, const Head &head, const NoteSource &note,
                   const PlacedChord *target, const Head *end)
    {
        constexpr double stub = 1.4;
        const bool isTab = _row.row->notation == Notation::Tablature;
        const double left = headLeft(chord, head);
        const double right = left + head.width;
        const double rise = isTab ? 0.55 : 0.8;
        if (note.marks.slideIn() != SlideIn::None) {
            const double sign = note.marks.slideIn() == SlideIn::FromBelow ? 1 : -1;
            addLine(chord, head, {left - 0.2 - stub, head.y + sign * rise},
                    {left - 0.2, head.y + sign * 0.1});
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
            if (isTab || to == from) {
                const int step = end && target->note(*end).fret < note.fret ? -1 : 1;
                from += step * 0.4;
                to -= step * 0.4;
            }
            addLine(chord, head, {right + 0.2, from}, {stop, to});
            if (out == SlideOut::Legato && isTab) {
                Ink curve = _draft.pen.curve(MarkKind::Slide, {right, head.y - 0.8},
                                             {stop, (end ? end->y : head.y) - 0.8}, 0.6);
                curve.place = placeOf(_row, chord, head.note - chord.beat().firstNote);
                _row.add(std::move(curve));
            }
            return;
        }
        const bool isUp = out == SlideOut::Upwards || out == SlideOut::PickScrapeUp;
        addLine(chord, head, {right + 0.2, head.y + (isUp ? -0.1 : 0.1)},
                {right + 0.2 + stub, head.y + (isUp ? -rise : rise)});
    }

    RowDraft &_row;
    const SystemDraft &_draft;
};

} // namespace

void addSlurs(RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isFirstOfStaff)
        return;
    SlurDrawer drawer(row, draft);
    std::vector<SlurSpan> spans = markedSlurs(row);
    for (const NumberedSlur &slur : numberedSlurs(draft, row.row->track)) {
        const bool isHere = slur.firstRow == &row || (!slur.firstRow && slur.lastRow == &row);
        const bool staysHere = !slur.firstRow || !slur.lastRow || slur.firstRow == slur.lastRow;
        if (isHere && staysHere)
            spans.push_back({slur.first, slur.last, !slur.firstRow, !slur.lastRow});
    }
    // Short slurs first: long ones go around them.
    std::stable_sort(spans.begin(), spans.end(), [](const SlurSpan &left, const SlurSpan &right) {
        return left.last - left.first < right.last - right.first;
    });
    for (const SlurSpan &span : spans)
        drawer.draw(span);
}

void addCrossStaffSlurs(SystemDraft &draft)
{
    Inks curves;
    for (std::size_t i = 0; i < draft.rows.size(); ++i) {
        const unsigned track = draft.rows[i].row->track;
        if (i > 0 && draft.rows[i - 1].row->track == track)
            continue;
        for (const NumberedSlur &slur : numberedSlurs(draft, track)) {
            if (!slur.firstRow || !slur.lastRow || slur.firstRow == slur.lastRow)
                continue;
            // From the side that faces the other staff, past the heads.
            const bool isDown = slur.lastRow->y > slur.firstRow->y;
            const PlacedChord &first = slur.firstRow->chords[slur.first];
            const PlacedChord &last = slur.lastRow->chords[slur.last];
            const double off = isDown ? 0.4 : -0.4;
            const Point from = {first.headCentre() + 0.2,
                                slur.firstRow->y + (isDown ? first.bottom() : first.top()) + off};
            const Point to = {std::max(last.headCentre() - 0.2, from.x + 1),
                              slur.lastRow->y + (isDown ? last.top() : last.bottom()) - off};
            Ink curve = draft.pen.curve(MarkKind::Slur, from, to, isDown ? 1.2 : -1.2);
            curve.place = placeOf(*slur.firstRow, first);
            curves.push_back(std::move(curve));
        }
    }
    draft.inks.insert(draft.inks.end(), curves.begin(), curves.end());
}

void addStringLinks(RowDraft &row, const SystemDraft &draft)
{
    StringLinkDrawer(row, draft).draw();
}

} // namespace zarn::engraving
