// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/StringLinks.h>

#include <ZarnLayout/page/SideItem.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

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
            const double end = std::min(left, leftInkOf(_draft, _row, chord)) - 0.2;
            addLine(chord, head, {end - stub, head.y + sign * rise}, {end, head.y + sign * 0.1});
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

void addStringLinks(RowDraft &row, const SystemDraft &draft)
{
    StringLinkDrawer(row, draft).draw();
}

} // namespace zarn::engraving
