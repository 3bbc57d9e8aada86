// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BendEngraver.h>

#include <ZarnLayout/page/InkField.h>
#include <ZarnLayout/page/SideItem.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

namespace zarn::engraving {

namespace {

/// In whole tones: "½", "1¾".
std::string amountText(int quarterTones)
{
    const int value = std::abs(quarterTones);
    constexpr std::array<const char *, 4> parts = {"", "\u00BC", "\u00BD", "\u00BE"};
    const int whole = value / 4;
    const std::string text = (whole > 0 ? std::to_string(whole) : std::string())
        + parts[static_cast<std::size_t>(value % 4)];
    return (quarterTones < 0 ? "-" : "") + (text.empty() ? "0" : text);
}

std::string bendText(int quarterTones)
{
    return std::abs(quarterTones) == 4 ? "full" : amountText(quarterTones);
}

/// Bends of a note: a curve from its number up, an arrow at each turn, and how far it goes.
class BendDrawer {
public:
    BendDrawer(const Pen &pen, const PitchCurve &curve, double left, double right) : _pen(pen)
    {
        for (const CurvePoint &point : curve.points()) {
            _farthest = std::max(_farthest, std::abs(point.value));
            if (_turns.empty() || point.value != _turns.back().value)
                _turns.push_back({left + (right - left) * point.position / 60.0, point.value});
        }
        if (_turns.empty())
            return;
        if (_turns.front().value != 0)
            _turns.front().x += 0.2;
        // Turns keep their distance, so that arrows and numbers are apart, and end where there is
        // room for all of them.
        constexpr double apart = 1.5;
        for (std::size_t i = 1; i < _turns.size(); ++i)
            _turns[i].x = std::max(_turns[i].x, _turns[i - 1].x + apart);
        double last = std::max(right, _turns.front().x + apart * (_turns.size() - 1.0));
        for (std::size_t i = _turns.size(); i-- > 1; last -= apart)
            _turns[i].x = std::min(_turns[i].x, last);
    }

    /// From a base line, the note's, up to a height over the staff.
    Inks draw(double base, double high)
    {
        _base = base;
        _high = high;
        if (!_turns.empty() && _turns.front().value != 0) {
            const Turn &turn = _turns.front();
            const double top = yOf(turn.value);
            _inks.push_back(
                _pen.line(MarkKind::Bend, {turn.x, base}, {turn.x, top + 0.6}, thickness));
            addArrow(turn.x, top, true);
            addLabel(turn);
        }
        for (std::size_t i = 1; i < _turns.size(); ++i)
            addTurn(_turns[i - 1], _turns[i]);
        return std::move(_inks);
    }

private:
    static constexpr double thickness = 0.14;

    struct Turn {
        double x;
        int value;
    };

    /// What is bent less than the rest of it ends lower.
    double yOf(int value) const
    {
        return value == 0                  ? _base
            : std::abs(value) == _farthest ? _high
                                           : std::min(_high + 1.1, _base - 0.8);
    }

    void addTurn(const Turn &before, const Turn &turn)
    {
        const bool isUp = turn.value > before.value;
        const Point from = {before.x, yOf(before.value)};
        const Point to = {turn.x, yOf(turn.value)};
        const double stop = to.y + (isUp ? 0.6 : -0.6);
        std::vector<Point> arc;
        constexpr int steps = 12;
        for (int i = 0; i <= steps; ++i) {
            const double t = static_cast<double>(i) / steps;
            arc.push_back({from.x + (to.x - from.x) * (1 - (1 - t) * (1 - t)),
                           from.y + (stop - from.y) * t * t});
        }
        _inks.push_back(_pen.polyline(MarkKind::Bend, std::move(arc), thickness));
        addArrow(to.x, to.y, isUp);
        if (isUp)
            addLabel(turn);
    }

    void addArrow(double x, double y, bool isUp)
    {
        const double back = isUp ? 0.75 : -0.75;
        _inks.push_back(
            _pen.polygon(MarkKind::Bend, {{x, y}, {x - 0.3, y + back}, {x + 0.3, y + back}}));
    }

    void addLabel(const Turn &turn)
    {
        Ink label = _pen.text(MarkKind::Bend, TextRole::Letter, bendText(turn.value), turn.x,
                              _high - 0.35, Pen::Align::Centre);
        label.move(std::max(0.0, _labelEnd + 0.3 - label.box.left), 0);
        _labelEnd = label.box.right;
        _inks.push_back(std::move(label));
    }

    const Pen &_pen;
    std::vector<Turn> _turns;
    int _farthest = 0;
    double _base = 0;
    double _high = 0;
    double _labelEnd = -1e9;
    Inks _inks;
};

/// Where the ink of a column ends on the right that a bend of one of its notes has to pass: of the
/// chord, and of those that other voices have there.
double startOf(const SystemDraft &draft, const RowDraft &row, const PlacedChord &chord,
               const Head &head)
{
    double right = chord.x + head.x + head.width;
    for (const PlacedChord &other : row.chords) {
        if (other.shownBar != chord.shownBar || other.chord->column != chord.chord->column
            || other.beat().isGrace() != chord.beat().isGrace())
            continue;
        for (const Head &above : other.chord->heads)
            if (above.y <= head.y)
                right = std::max(right, other.x + above.x + above.width);
        for (std::uint32_t i = other.chord->firstInk; i < other.chord->inkEnd; ++i)
            if (const Ink &ink = inkOf(draft, row, other, i);
                (ink.kind == MarkKind::Enclosure || ink.kind == MarkKind::AugmentationDot)
                && ink.box.top < head.y)
                right = std::max(right, other.x + ink.box.right);
    }
    return right + 0.15;
}

/// Where something else begins that a bend must not reach.
double roomOf(const SystemDraft &draft, const RowDraft &row, const PlacedChord &chord)
{
    constexpr double halfLabel = 0.9; // with the gap to a bar line behind it
    double room = draft.barOf(chord).right - halfLabel;
    for (const PlacedChord &other : row.chords)
        if (other.x > chord.x + 1 && other.x < room)
            room = std::min(room, leftInkOf(draft, row, other) - 0.5);
    return room;
}

/// Numbers at the end of the line go back as far as they reach over it, off each other as before.
void keepLabelsOnLine(Inks &inks, double right)
{
    constexpr double apart = 0.3;
    for (auto ink = inks.rbegin(); ink != inks.rend(); ++ink) {
        if (ink->shape != Ink::Shape::Text)
            continue;
        ink->move(std::min(0.0, right - ink->box.right), 0);
        right = ink->box.left - apart;
    }
}

/// The bend of a number of a tablature: over everything that stands above it; lower, higher,
/// shorter or farther to the right where it would lie on ink on its way there, as far as the line
/// goes.
Inks freestBend(const SystemDraft &draft, const RowDraft &row, const InkField &field,
                const PitchCurve &curve, double base, double left, double right)
{
    constexpr double margin = 0.06;
    constexpr double lowest = -1.4; // over the top line, with room for an arrow
    constexpr double narrowest = 1.5;
    // Turns keep their distance, however narrow the room is.
    const double end =
        std::max(right, boxOf(BendDrawer(draft.pen, curve, left, right).draw(base, lowest)).right);
    const double high = std::min(-row.above.reach(left - 0.5, end + 0.5) - 0.6, lowest);
    Inks best;
    double least = 1e9;
    for (const double shift : {0.0, 0.5, 1.0})
        for (const double part : {1.0, 0.7, 0.4, 0.0})
            for (const double lower : {0.0, 1.0, 2.0, 3.0, -1.2}) {
                const double cost = shift + (1 - part) + 0.5 * std::abs(lower);
                if (cost >= least || (lower > 0 && high + lower > lowest))
                    continue;
                const double width = std::max(narrowest, (right - left) * part);
                Inks inks = BendDrawer(draft.pen, curve, left + shift, left + shift + width)
                                .draw(base, high + lower);
                keepLabelsOnLine(inks, draft.right);
                const double over = std::max(0.0, boxOf(inks).right - draft.right);
                const double whole = cost + 60 * (field.coveredBy(inks, margin) + over);
                if (whole < least) {
                    least = whole;
                    best = std::move(inks);
                }
            }
    return best;
}

void addBend(RowDraft &row, const SystemDraft &draft, const PlacedChord &chord, const Head &head,
             const NoteSource &note, GrowingInkField &field)
{
    constexpr double widest = 6;
    constexpr double narrowest = 1.5;
    const bool isOnString = row.row->notation == Notation::Tablature;
    const double left =
        isOnString ? startOf(draft, row, chord, head) : chord.x + head.x + head.width / 2;
    const double right =
        std::max(std::min(roomOf(draft, row, chord), left + widest), left + narrowest);
    const PitchCurve &curve = note.details->bend.curve;
    const MarkPlace where = placeOf(row, chord, head.note - chord.beat().firstNote);
    if (isOnString) {
        // A slide begins beside the middle of the number.
        const double base = note.marks.slideOut() == SlideOut::None ? head.y : head.y - 0.75;
        for (Ink &ink : freestBend(draft, row, field.now(), curve, base, left, right)) {
            ink.place = where;
            row.add(std::move(ink));
        }
        return;
    }
    // On a staff of notes the arrow stands over everything: there is no string that it could leave.
    SideItem item;
    item.gap = 0.4;
    item.inks = BendDrawer(draft.pen, curve, left, right).draw(0, -1.8);
    const double over = boxOf(item.inks).right - draft.right;
    move(item.inks, -std::max(over, 0.0), 0);
    for (Ink &ink : item.inks)
        ink.place = where;
    place(row, {std::move(item)});
}

} // namespace

void addBends(RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isLastOfStaff)
        return;
    GrowingInkField field(row.inks);
    for (const PlacedChord &chord : row.chords) {
        if (chord.beat().noteCount == 0)
            continue;
        for (const Head &head : chord.chord->heads) {
            const NoteSource &note = chord.note(head);
            if (note.details && note.details->bend.type != BendType::NoBend)
                addBend(row, draft, chord, head, note, field);
        }
    }
}

void addWhammyBars(RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isLastOfStaff)
        return;
    const Pen &pen = draft.pen;
    SideItems items;
    for (std::size_t i = 0; i < row.chords.size(); ++i) {
        const PlacedChord &chord = row.chords[i];
        const auto &details = chord.beat().details;
        if (!details || details->whammyBar.type == WhammyBarType::NoWhammyBar)
            continue;
        const PlacedChord *next = nextChord(row, i);
        const auto &points = details->whammyBar.curve.points();
        const double left = chord.headCentre();
        const double barEnd = draft.barOf(chord).right - 0.3;
        const double right =
            std::min(std::max(std::min(next ? next->x - 0.5 : barEnd, left + 8), left + 2),
                     std::max(barEnd, left + 0.8));
        int extreme = 0;
        for (const CurvePoint &point : points)
            if (std::abs(point.value) > std::abs(extreme))
                extreme = point.value;
        SideItem item;
        item.gap = 0.6;
        std::vector<Point> line;
        for (const CurvePoint &point : points) {
            const double depth = extreme == 0 ? 0 : 1.4 * point.value / std::abs(extreme);
            line.push_back({left + (right - left) * point.position / 60.0, -1.4 - depth});
        }
        if (line.size() > 1)
            item.inks.push_back(pen.polyline(MarkKind::Whammy, std::move(line), 0.14));
        Ink text = pen.text(MarkKind::Whammy, TextRole::Letter, "w/bar " + amountText(extreme),
                            left, -3.2);
        const double barLeft = draft.barOf(chord).left;
        if (text.box.right > barEnd)
            text.move(std::max(barLeft - text.box.left, barEnd - text.box.right), 0);
        item.inks.push_back(std::move(text));
        keepOnLine(item.inks, draft);
        for (Ink &ink : item.inks)
            ink.place = placeOf(row, chord);
        items.push_back(std::move(item));
    }
    place(row, std::move(items));
}

} // namespace zarn::engraving
