// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/TieEngraver.h>

#include <ZarnLayout/page/BowSeeker.h>
#include <ZarnLayout/page/SideItem.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

namespace zarn::engraving {

namespace {

constexpr double shortTie = 2.2;

bool areAtOnePlace(const NoteSource &left, const NoteSource &right)
{
    if (left.string >= 0 && right.string >= 0)
        return left.string == right.string;
    return left.midi == right.midi;
}

class Ties {
public:
    Ties(RowDraft &row, const SystemDraft &draft)
        : _field(row.inks, {MarkKind::Stem, MarkKind::Arpeggio}), _row(row), _draft(draft)
    {
    }

    void add()
    {
        const bool hasTies =
            std::any_of(_row.chords.begin(), _row.chords.end(), [](const PlacedChord &chord) {
                return chord.beat().noteCount > 0
                    && std::any_of(chord.chord->heads.begin(), chord.chord->heads.end(),
                                   [&](const Head &head) {
                                       const NoteMarks &marks = chord.note(head).marks;
                                       return marks.isTieOrigin() || marks.isTied();
                                   });
            });
        if (!hasTies)
            return;
        _field.add(_row.beamsBetween);
        findPartners();
        const auto &chords = _row.chords;
        for (std::size_t i = 0; i < chords.size(); ++i) {
            const PlacedChord &chord = chords[i];
            if (chord.beat().noteCount == 0)
                continue;
            const bool isFirst = i == 0 || chords[i - 1].chord->voice != chord.chord->voice;
            const bool isLast =
                i + 1 == chords.size() || chords[i + 1].chord->voice != chord.chord->voice;
            for (const Head &head : chord.chord->heads) {
                if (chord.note(head).marks.isTieOrigin())
                    addFrom(chord, head, isLast && chord.shownBar + 1 == _draft.end);
                if (chord.note(head).marks.isTied() && _ends.count({&chord, &head}) == 0)
                    addTo(chord, head, isFirst && chord.shownBar == _draft.first);
            }
        }
    }

private:
    struct Partner {
        const PlacedChord *chord;
        const Head *head;

        bool operator<(const Partner &other) const noexcept
        {
            return std::tie(chord, head) < std::tie(other.chord, other.head);
        }
    };

    /// Joins each head with that to which it is tied: in its voice, or else in another.
    void findPartners()
    {
        const auto &chords = _row.chords;
        const auto eachOrigin = [&](const auto &find) {
            for (std::size_t i = 0; i < chords.size(); ++i)
                if (chords[i].beat().noteCount > 0)
                    for (const Head &head : chords[i].chord->heads)
                        if (chords[i].note(head).marks.isTieOrigin()
                            && _partners.count({&chords[i], &head}) == 0)
                            find(i, head);
        };
        eachOrigin([&](std::size_t number, const Head &head) {
            if (const PlacedChord *next = nextMain(number))
                join({&chords[number], &head}, {next, endIn(*next, chords[number].note(head))});
        });
        eachOrigin([&](std::size_t number, const Head &head) {
            Partner nearest = {nullptr, nullptr};
            for (const PlacedChord &other : chords) {
                const bool isBehind = other.x > chords[number].x
                    && other.shownBar <= chords[number].shownBar + 1
                    && other.chord->voice != chords[number].chord->voice
                    && (!nearest.chord || other.x < nearest.chord->x);
                if (!isBehind || other.beat().noteCount == 0)
                    continue;
                if (const Head *end = endIn(other, chords[number].note(head)))
                    nearest = {&other, end};
            }
            join({&chords[number], &head}, nearest);
        });
    }

    void join(const Partner &from, const Partner &to)
    {
        if (to.head && _ends.insert(to).second)
            _partners.emplace(from, to);
    }

    /// Grace notes in between are no end of a tie.
    const PlacedChord *nextMain(std::size_t number) const
    {
        for (std::size_t i = number + 1; i < _row.chords.size()
             && _row.chords[i].chord->voice == _row.chords[number].chord->voice;
             ++i)
            if (!_row.chords[i].beat().isGrace() || _row.chords[number].beat().isGrace())
                return &_row.chords[i];
        return nullptr;
    }

    /// The free head of a chord that a note may be tied to.
    const Head *endIn(const PlacedChord &chord, const NoteSource &note) const
    {
        if (chord.beat().noteCount == 0)
            return nullptr;
        for (const Head &head : chord.chord->heads)
            if (chord.note(head).marks.isTied() && areAtOnePlace(note, chord.note(head))
                && _ends.count({&chord, &head}) == 0)
                return &head;
        return nullptr;
    }

    /// 1 above the heads, -1 below.
    int sideOf(const PlacedChord &chord, const Head &head) const
    {
        const auto &heads = chord.chord->heads;
        const bool isUp = chord.chord->isStemUp;
        if (chord.chord->hasRival)
            return sideAmong(chordsAt(chord), head).value_or(isUp ? 1 : -1);
        if (heads.size() == 1)
            return isUp ? -1 : 1;
        const auto index = static_cast<std::size_t>(&head - heads.data());
        return index >= (heads.size() + 1) / 2 ? 1 : -1;
    }

    /// The sounding chords of all voices that stand together.
    std::vector<const PlacedChord *> chordsAt(const PlacedChord &place) const
    {
        std::vector<const PlacedChord *> chords;
        for (const PlacedChord &chord : _row.chords)
            if (chord.shownBar == place.shownBar && chord.chord->column == place.chord->column
                && chord.beat().isGrace() == place.beat().isGrace() && !chord.chord->isRest())
                chords.push_back(&chord);
        return chords;
    }

    /// Two voices have a side each. Of more, the heads have theirs by their height, as in one
    /// chord.
    static std::optional<int> sideAmong(const std::vector<const PlacedChord *> &voices,
                                        const Head &head)
    {
        if (voices.size() < 3)
            return std::nullopt;
        int above = 0;
        int below = 0;
        for (const PlacedChord *voice : voices)
            for (const Head &other : voice->chord->heads) {
                above += other.line > head.line ? 1 : 0;
                below += other.line < head.line ? 1 : 0;
            }
        return above < below ? 1 : -1;
    }

    /// Whether no voice has a head farther on a side, 1 above.
    bool isOutermost(const PlacedChord &chord, const Head &head, int side) const
    {
        if (!chord.chord->hasRival)
            return true;
        const auto voices = chordsAt(chord);
        return std::none_of(voices.begin(), voices.end(), [&](const PlacedChord *voice) {
            const auto &heads = voice->chord->heads;
            return std::any_of(heads.begin(), heads.end(), [&](const Head &other) {
                return side > 0 ? other.y < head.y : other.y > head.y;
            });
        });
    }

    /// An end at a head: beside it, or over it where nothing is in the way.
    Point endAt(const PlacedChord &chord, const Head &head, int side, bool isStart) const
    {
        const auto &heads = chord.chord->heads;
        const bool meetsStem = chord.chord->hasStem && chord.chord->isStemUp == (side > 0);
        const double left = chord.x + head.x;
        const double right = left + head.width;
        // In front of the arpeggio of a column, of whatever voice.
        const double before = isStart ? left : arpeggioBefore(chord);
        if (heads.size() == 1 && !meetsStem && before >= left && isOutermost(chord, head, side))
            return {isStart ? left + head.width * 0.62 : left + head.width * 0.38,
                    head.y - side * 0.68};
        double outer = isStart ? right : std::min(left, before);
        for (std::uint32_t i = chord.chord->firstInk; i < chord.chord->inkEnd && isStart; ++i)
            if (const Ink &ink = inkOf(chord, i); ink.kind == MarkKind::AugmentationDot)
                outer = std::max(outer, chord.x + ink.box.right);
        // A flag comes down beside the stem.
        if (isStart && meetsStem && !chord.chord->isBeamed && chord.beat().flagCount() > 0)
            outer = std::max(outer, chord.stemX() + 1.1 * chord.chord->scale);
        return {isStart ? outer + 0.15 : outer - 0.15, head.y - side * 0.3};
    }

    /// Where the arpeggio of a chord's column begins; far to the right without one.
    double arpeggioBefore(const PlacedChord &chord) const
    {
        double before = 1e9;
        for (const PlacedChord &other : _row.chords) {
            if (other.shownBar != chord.shownBar || other.chord->column != chord.chord->column
                || other.beat().isGrace() != chord.beat().isGrace())
                continue;
            for (std::uint32_t i = other.chord->firstInk; i < other.chord->inkEnd; ++i)
                if (const Ink &ink = inkOf(other, i); ink.kind == MarkKind::Arpeggio)
                    before = std::min(before, other.x + ink.box.left);
        }
        return before;
    }

    const Ink &inkOf(const PlacedChord &chord, std::uint32_t number) const
    {
        return _draft.score.bar(_row.number, chord.shownBar).inks[number];
    }

    void addFrom(const PlacedChord &chord, const Head &head, bool leavesSystem)
    {
        BowEnds ends = {sideOf(chord, head), true, {}, {}};
        const auto found = _partners.find({&chord, &head});
        const bool hasPartner = found != _partners.end();
        ends.isLevel = !hasPartner || found->second.head->line == head.line;
        for (const int side : {-1, 1}) {
            const Point from = endAt(chord, head, side, true);
            ends.from[side > 0] = from;
            ends.to[side > 0] = hasPartner
                ? endAt(*found->second.chord, *found->second.head, side, false)
                : leavesSystem
                ? Point{std::max(_draft.musicRight() - 0.1, from.x + 0.8), from.y}
                : Point{std::max(std::min(from.x + shortTie, _draft.barOf(chord).right - 0.1),
                                 from.x + 0.8),
                        from.y};
        }
        addCurve(chord, head, hasPartner ? found->second.chord : nullptr, ends);
    }

    void addTo(const PlacedChord &chord, const Head &head, bool entersSystem)
    {
        BowEnds ends = {sideOf(chord, head), true, {}, {}};
        const bool startsRepeat = _draft.score.column(chord.shownBar).repeatStart;
        for (const int side : {-1, 1}) {
            const Point to = endAt(chord, head, side, false);
            ends.to[side > 0] = to;
            ends.from[side > 0] = {
                entersSystem
                    ? std::min(_draft.musicLeft - (startsRepeat ? 0 : 0.3), to.x - 0.6)
                    : std::min(std::max(to.x - shortTie, _draft.barOf(chord).left), to.x - 0.6),
                to.y};
        }
        addCurve(chord, head, &chord, ends);
    }

    /// `end` is the chord that the curve leads to, null where there is none.
    void addCurve(const PlacedChord &chord, const Head &head, const PlacedChord *end,
                  const BowEnds &wish)
    {
        Bow bow = freeBow(end, wish);
        // Ties of tones side by side may seek the same room, where one would hide the other.
        if (std::any_of(_bows.begin(), _bows.end(),
                        [&](const Bow &other) { return areOne(bow, other); })) {
            _field.add(bow);
            bow = freeBow(end, wish);
        }
        _bows.push_back(bow);
        Ink curve = _draft.pen.curve(MarkKind::Tie, bow.handles());
        curve.place = placeOf(_row, chord, head.note - chord.beat().firstNote);
        _row.add(std::move(curve));
    }

    /// Whether two curves are one to the eye.
    static bool areOne(const Bow &left, const Bow &right)
    {
        constexpr double near = 0.15;
        const auto areNear = [](double a, double b) { return std::abs(a - b) < near; };
        return areNear(left.from.x, right.from.x) && areNear(left.from.y, right.from.y)
            && areNear(left.to.x, right.to.x) && areNear(left.to.y, right.to.y)
            && areNear(left.fromRise, right.fromRise);
    }

    Bow freeBow(const PlacedChord *end, const BowEnds &wish)
    {
        Bow bow = _field.nearest(wish);
        // Where an accidental stands in front of the head, the curve ends there.
        const double covered = _field.all().coveredBy(bow, 0);
        if (end && covered > 0) {
            BowEnds before = wish;
            for (Point &to : before.to)
                to.x = std::min(to.x, leftInkOf(_draft, _row, *end) - 0.15);
            const Bow shorter = _field.nearest(before);
            if (shorter.to.x > shorter.from.x + 0.8 && _field.all().coveredBy(shorter, 0) < covered)
                bow = shorter;
        }
        return _field.hidesInk(bow) ? _field.afar(wish) : bow;
    }

    CurveField _field;
    std::map<Partner, Partner> _partners; ///< by the head where a tie begins
    std::set<Partner> _ends;
    std::vector<Bow> _bows; ///< that are drawn
    RowDraft &_row;
    const SystemDraft &_draft;
};

} // namespace

void addTies(RowDraft &row, const SystemDraft &draft)
{
    if (row.row->notation == Notation::Standard)
        Ties(row, draft).add();
}

} // namespace zarn::engraving
