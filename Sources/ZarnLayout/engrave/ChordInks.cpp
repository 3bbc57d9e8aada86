// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/ChordInks.h>

#include <ZarnLayout/engrave/TabFret.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zarn::engraving {

using NoteValue = RhythmValue::NoteValue;

namespace {

constexpr double dotGap = 0.35;

/// A head among the spaces that dots have taken.
int headKey(const Head &head)
{
    constexpr int heads = 100000;
    return heads + head.line;
}

/// Whether the dots of a chord are above or below all of another one, so that they may stand over
/// it. Those of a column stand below one another.
bool passes(const Chord &dotted, const Chord &other)
{
    constexpr double far = 1.1; ///< of a dot that has moved into a space, and its neighbour
    constexpr double endless = 1e9;
    if (dotted.isRest() || other.isRest() || other.beat->rhythm.getAugmentationDot() > 0)
        return false;
    double top = other.top() - 0.5;
    double bottom = other.bottom() + 0.5;
    if (other.hasStem && other.isStemUp)
        top = other.isBeamed ? -endless : std::min(top, other.stemTip);
    else if (other.hasStem)
        bottom = other.isBeamed ? endless : std::max(bottom, other.stemTip);
    return dotted.bottom() + far < top || bottom < dotted.top() - far;
}

Sign restOf(NoteValue value)
{
    return Sign::RestLonga + (static_cast<int>(value) - static_cast<int>(NoteValue::Long));
}

} // namespace

Sign flagOf(int count, bool isUp)
{
    return (isUp ? Sign::Flag8thUp : Sign::Flag8thDown) + (std::clamp(count, 1, 6) - 1);
}

Sign tremoloSign(unsigned strokes)
{
    return Sign::Tremolo1 + (static_cast<int>(std::min(strokes, 5U)) - 1);
}

Point tremoloPoint(const Chord &chord, double stemTip, const Fonts &fonts)
{
    const unsigned strokes = chord.beat->marks.tremolo();
    if (chord.hasStem) {
        const double inward = chord.isStemUp ? 1 : -1;
        return {chord.stemX,
                stemTip + inward * (0.7 + 0.75 * chord.beat->flagCount() + 0.4 * strokes)};
    }
    const bool isBelow = chord.hasRival && !chord.isStemUp;
    const Box &head = fonts.box((isBelow ? chord.heads.front() : chord.heads.back()).glyph);
    const Box &sign = fonts.box(tremoloSign(strokes));
    const double y = isBelow ? chord.bottom() + (head.bottom + 0.3 - sign.top) * chord.scale
                             : chord.top() + (head.top - 0.3 - sign.bottom) * chord.scale;
    return {chord.width / 2, y};
}

Ink restInk(const Row &row, const Pen &pen, const Chord &chord)
{
    const NoteValue value = chord.beat->rhythm.getNoteValue();
    double y = row.height() / 2 + chord.restShift;
    if (value == NoteValue::Whole && row.lineCount > 2)
        y -= row.lineDistance;
    return pen.glyph(MarkKind::Rest, restSign(row, value, y), 0, y, chord.scale);
}

Sign restSign(const Row &row, NoteValue value, double y)
{
    const bool isOutside = y < -0.1 || y > row.height() + 0.1;
    if (isOutside && value == NoteValue::DWhole)
        return Sign::RestDoubleWholeLegerLine;
    if (isOutside && value == NoteValue::Whole)
        return Sign::RestWholeLegerLine;
    if (isOutside && value == NoteValue::Half)
        return Sign::RestHalfLegerLine;
    return restOf(value);
}

Few<Box, 6> chordShape(const Chord &chord, const Fonts &fonts)
{
    Few<Box, 6> boxes;
    for (const Head &head : chord.heads) {
        // The corners of a head are round: neighbours on lines and spaces do not touch. Slashes and
        // arrows are taller, and begin in front of the head.
        const Box &sign = fonts.box(head.glyph);
        boxes.push_back({head.x + std::min(sign.left, 0.0) * chord.scale,
                         head.y + std::min(sign.top, -0.5) * chord.scale, head.x + head.width,
                         head.y + std::max(sign.bottom, 0.5) * chord.scale});
    }
    if (!chord.hasStem)
        return boxes;
    const double half = fonts.stem() / 2;
    const double top = std::min(chord.stemRoot, chord.stemTip);
    const double bottom = std::max(chord.stemRoot, chord.stemTip);
    boxes.push_back({chord.stemX - half, top, chord.stemX + half, bottom});
    if (const unsigned strokes = chord.beat->marks.tremolo(); strokes > 0) {
        const Box &sign = fonts.box(tremoloSign(strokes));
        boxes.push_back(Box{sign.left * chord.scale, sign.top * chord.scale,
                            sign.right * chord.scale, sign.bottom * chord.scale}
                            .movedBy(chord.stemX, tremoloPoint(chord, chord.stemTip, fonts).y));
    }
    if (!chord.isBeamed && chord.beat->flagCount() > 0) {
        const Box &flag = fonts.box(flagOf(chord.beat->flagCount(), chord.isStemUp));
        boxes.push_back(Box{flag.left * chord.scale, flag.top * chord.scale,
                            flag.right * chord.scale, flag.bottom * chord.scale}
                            .movedBy(chord.stemX - half, chord.stemTip));
    }
    return boxes;
}

void ChordInks::add(EngravedBar &bar)
{
    // The chords of all voices that stand together: of a column, or grace notes of one rank.
    struct Group {
        unsigned column;
        unsigned graceRank;
        ColumnChords chords;
        double left;
        std::set<int> dotted;
    };
    std::vector<Group> groups;
    std::vector<std::size_t> groupOf;
    groups.reserve(bar.chords.size());
    groupOf.reserve(bar.chords.size());
    for (Chord &chord : bar.chords) {
        const unsigned rank = chord.beat->graceRank;
        auto group = std::find_if(groups.begin(), groups.end(), [&](const Group &other) {
            return other.column == chord.column && other.graceRank == rank;
        });
        if (group == groups.end())
            group = groups.insert(group, {chord.column, rank, {}, 1e9, {}});
        groupOf.push_back(static_cast<std::size_t>(group - groups.begin()));
        group->chords.push_back(&chord);
    }

    std::vector<Few<PackedAccidental, 2>> byChord(bar.chords.size());
    PackedAccidentals all;
    Few<std::pair<int, int>, 4> seen;
    TakenBoxes taken;
    const auto packColumn = [&](const ColumnChords &column) {
        if (_row.notation != Notation::Standard)
            return;
        all.clear();
        seen.clear();
        taken.clear();
        for (const Chord *chord : column) {
            if (chord->isRest() || chord->isSlash || chord->beat->noteCount == 0)
                continue;
            for (const Head &head : chord->heads) {
                const NoteSource &note = _source.notes[head.note];
                if (!note.accidental.isShown())
                    continue;
                // Voices that share a head share its accidental.
                const std::pair<int, int> sign = {head.line,
                                                  static_cast<int>(note.accidental.sign)};
                if (std::find(seen.begin(), seen.end(), sign) != seen.end())
                    continue;
                seen.push_back(sign);
                PackedAccidental accidental;
                accidental.sign = note.accidental;
                accidental.scale = chord->scale;
                accidental.place =
                    placeOfChord(_row, _bar, *chord, head.note - chord->beat->firstNote);
                accidental.y = head.y;
                all.push_back(accidental);
            }
        }
        if (all.empty())
            return;
        for (const Chord *chord : column) {
            for (const Box &box : chordShape(*chord, _pen.fonts()))
                taken.push_back(box.movedBy(chord->x, 0));
            for (const Head &head : chord->heads)
                for (const Ink &ink : parentheses(*chord, head))
                    taken.push_back(ink.box.movedBy(chord->x, 0));
        }
        // The packer sorts: whose they are, their places say.
        packAccidentals(all, taken, _pen.fonts());
        for (const PackedAccidental &accidental : all)
            for (const Chord *chord : column)
                if (static_cast<int>(chord->voice) == accidental.place.voice
                    && static_cast<int>(chord->beat->index) == accidental.place.beat)
                    byChord[static_cast<std::size_t>(chord - bar.chords.data())].push_back(
                        accidental);
    };
    for (const Group &group : groups)
        packColumn(group.chords);

    // Arpeggios stand in front of all voices of a column.
    for (std::size_t i = 0; i < bar.chords.size(); ++i) {
        const Chord &chord = bar.chords[i];
        double &left = groups[groupOf[i]].left;
        for (const Head &head : chord.heads) {
            left = std::min(left, chord.x + head.x);
            for (const Ink &ink : parentheses(chord, head))
                left = std::min(left, chord.x + ink.box.left);
        }
        for (const PackedAccidental &accidental : byChord[i])
            left = std::min(left, accidental.left(_pen.fonts()));
    }

    constexpr std::size_t usualInks = 3; // of a chord: ledger line or accidental, stem, head
    bar.inks.reserve(usualInks * bar.chords.size());
    for (std::size_t i = 0; i < bar.chords.size(); ++i) {
        Chord &chord = bar.chords[i];
        chord.firstInk = static_cast<std::uint32_t>(bar.inks.size());
        addChord(chord, bar.inks);
        for (const PackedAccidental &accidental : byChord[i])
            accidental.addTo(bar.inks, chord, _pen);
        if (chord.beat->rhythm.getAugmentationDot() > 0 && !chord.isShared
            && (_row.notation != Notation::Tablature || _row.hasRhythm)) {
            Group &group = groups[groupOf[i]];
            addDots(chord, dotStart(chord, group.chords), group.dotted, bar.inks);
        }
        if (!chord.isRest())
            addArpeggio(chord, groups[groupOf[i]].left - chord.x, bar.inks);
        chord.inkEnd = static_cast<std::uint32_t>(bar.inks.size());
    }
}

void ChordInks::addChord(const Chord &chord, Inks &inks) const
{
    if (chord.isRest()) {
        addRest(chord, inks);
        return;
    }
    addLedgers(chord, inks);
    addStem(chord, inks);
    addHeads(chord, inks);
}

void ChordInks::addHeads(const Chord &chord, Inks &inks) const
{
    for (const Head &head : chord.heads) {
        const bool isNote = chord.beat->noteCount > 0 && !chord.isSlash;
        const MarkPlace place =
            placeOfChord(_row, _bar, chord, isNote ? head.note - chord.beat->firstNote : -1);
        if (isNote && _row.notation == Notation::Tablature) {
            addFret(inks, _source.notes[head.note], head, chord.scale, place, _pen);
            continue;
        }
        Ink ink = _pen.glyph(chord.isSlash ? MarkKind::Slash
                                 : isNote  ? MarkKind::NoteHead
                                           : MarkKind::Technique,
                             head.glyph, head.x, head.y, chord.scale);
        ink.place = place;
        inks.push_back(std::move(ink));
        for (Ink &ink : parentheses(chord, head)) {
            ink.place = place;
            inks.push_back(std::move(ink));
        }
    }
}

/// Those around the head of a ghost note; none for others.
Inks ChordInks::parentheses(const Chord &chord, const Head &head) const
{
    if (_row.notation == Notation::Tablature || chord.isSlash || chord.beat->noteCount == 0
        || !_source.notes[head.note].marks.isGhost())
        return {};
    constexpr double gap = 0.1;
    const double scale = chord.scale;
    const auto sign = [&](Sign sign, double x) {
        return _pen.glyph(MarkKind::Enclosure, sign, x, head.y, scale);
    };
    const Fonts &fonts = _pen.fonts();
    return {
        sign(Sign::NoteheadParenthesisLeft,
             head.x - gap - fonts.box(Sign::NoteheadParenthesisLeft).right * scale),
        sign(Sign::NoteheadParenthesisRight,
             head.x + head.width + gap - fonts.box(Sign::NoteheadParenthesisRight).left * scale)};
}

void ChordInks::addLedgers(const Chord &chord, Inks &inks) const
{
    if (_row.notation != Notation::Standard || chord.beat->noteCount == 0)
        return;
    const int topLine = (static_cast<int>(_row.lineCount) - 1) * 2;
    const double extension = 0.4 * chord.scale;
    const auto addLine = [&](int line, double left, double right) {
        Ink ink = _pen.line(MarkKind::LedgerLine, {left, _row.yOfLine(line)},
                            {right, _row.yOfLine(line)}, _pen.fonts().ledger());
        ink.place = placeOfChord(_row, _bar, chord);
        inks.push_back(std::move(ink));
    };
    // Each line is as long as the heads at it or outside of it need, counting a head on the far
    // side only where it is.
    int lowest = -1;
    int highest = topLine + 1;
    for (const Head &head : chord.heads) {
        lowest = std::min<int>(lowest, head.line);
        highest = std::max<int>(highest, head.line);
    }
    const auto extent = [&](int line, bool isAbove) {
        std::pair<double, double> sides = {1e9, -1e9};
        for (const Head &head : chord.heads)
            if (isAbove ? head.line >= line : head.line <= line)
                if (!head.isDisplaced || std::abs(head.line - line) <= 1) {
                    sides.first = std::min(sides.first, head.x);
                    sides.second = std::max(sides.second, head.x + head.width);
                }
        return sides;
    };
    for (int line = -2; line >= lowest; line -= 2) {
        const auto [left, right] = extent(line, false);
        if (right > left)
            addLine(line, left - extension, right + extension);
    }
    for (int line = topLine + 2; line <= highest; line += 2) {
        const auto [left, right] = extent(line, true);
        if (right > left)
            addLine(line, left - extension, right + extension);
    }
}

void ChordInks::addStem(const Chord &chord, Inks &inks) const
{
    if (!chord.hasStem || chord.isBeamed)
        return;
    Ink stem = _pen.line(MarkKind::Stem, {chord.stemX, chord.stemRoot},
                         {chord.stemX, chord.stemTip}, _pen.fonts().stem());
    stem.place = placeOfChord(_row, _bar, chord);
    inks.push_back(std::move(stem));
    if (chord.beat->marks.isSlashedGrace() && chord.beat->isGrace()) {
        const double inward = chord.isStemUp ? 1 : -1;
        Ink slash =
            _pen.line(MarkKind::GraceSlash, {chord.stemX - 0.6, chord.stemTip + inward * 1.5},
                      {chord.stemX + 0.75, chord.stemTip + inward * 0.45}, 0.12);
        slash.place = placeOfChord(_row, _bar, chord);
        inks.push_back(std::move(slash));
    }
    const int flags = chord.beat->flagCount();
    if (flags > 0) {
        Ink flag = _pen.glyph(MarkKind::Flag, flagOf(flags, chord.isStemUp),
                              chord.stemX - _pen.fonts().stem() / 2, chord.stemTip, chord.scale);
        flag.place = placeOfChord(_row, _bar, chord);
        inks.push_back(std::move(flag));
    }
}

void ChordInks::addRest(const Chord &chord, Inks &inks) const
{
    if (chord.isShared || (_row.notation == Notation::Tablature && !_row.hasRhythm))
        return;
    Ink ink = restInk(_row, _pen, chord);
    ink.place = placeOfChord(_row, _bar, chord);
    inks.push_back(std::move(ink));
}

double ChordInks::dotStart(const Chord &chord, const ColumnChords &column) const
{
    double right = 0;
    for (const Chord *other : column) {
        if (_row.notation == Notation::Standard && passes(chord, *other))
            continue;
        for (const Head &head : other->heads) {
            right = std::max(right, other->x - chord.x + head.x + head.width);
            for (const Ink &ink : parentheses(*other, head))
                right = std::max(right, other->x - chord.x + ink.box.right);
        }
        if (other->isRest())
            right =
                std::max(right,
                         other->x - chord.x
                             + _pen.fonts().box(restOf(other->beat->rhythm.getNoteValue())).right);
    }
    // Flags that reach the height of the dots.
    if (chord.isRest() || _row.notation == Notation::Tablature)
        return right + dotGap;
    for (const Chord *other : column) {
        const int flags = other->beat->flagCount();
        if (!other->hasStem || other->isBeamed || flags == 0 || other->isRest())
            continue;
        const Box &sign = _pen.fonts().box(flagOf(flags, other->isStemUp));
        const Box flag = Box{sign.left * other->scale, sign.top * other->scale,
                             sign.right * other->scale, sign.bottom * other->scale}
                             .movedBy(other->x - chord.x + other->stemX, other->stemTip);
        const bool isInTheWay = other->isStemUp || other != &chord;
        if (isInTheWay && flag.bottom > chord.top() - 1 && flag.top < chord.bottom() + 1)
            right = std::max(right, flag.right - (other->isStemUp ? 0.2 : 0));
    }
    return right + dotGap;
}

void ChordInks::addDots(const Chord &chord, double right, std::set<int> &taken, Inks &inks) const
{
    const unsigned count = chord.beat->rhythm.getAugmentationDot();
    std::vector<double> places;
    if (chord.isRest()) {
        double y = _row.height() / 2 - 0.5 * _row.lineDistance;
        places.push_back(y + chord.restShift);
    } else if (_row.notation == Notation::Tablature && !chord.hasStem) {
        // Beside the lowest number, off its string. Voices on one string share them.
        if (taken.insert(headKey(chord.heads.front())).second)
            places.push_back(chord.bottom() - 0.5 * _row.lineDistance);
    } else if (_row.notation == Notation::Tablature) {
        // Beside the stem, where it begins: beams are at its other end. Those of several
        // voices stand one behind another.
        const double outward = chord.isStemUp ? -1 : 1;
        double off = 0.45;
        constexpr int firstKey = 1000; // off those of heads
        for (int key = firstKey; !taken.insert(chord.isStemUp ? -key : key).second; ++key)
            off += 0.8;
        places.push_back(chord.stemRoot + outward * off);
        const int flags = chord.isBeamed ? 0 : chord.beat->flagCount();
        right = chord.stemX + dotGap
            + (flags > 0 ? _pen.fonts().box(flagOf(flags, chord.isStemUp)).right * chord.scale : 0);
    } else {
        // In spaces, one in each, also of those of other voices: from the highest head down. A head
        // that voices share has one dot.
        const bool isLower = _hasVoices && chord.voice % 2 == 1;
        for (auto head = chord.heads.rbegin(); head != chord.heads.rend(); ++head) {
            int line = head->line;
            if (line % 2 == 0)
                line += isLower ? -1 : 1;
            const bool isShared = taken.count(headKey(*head)) > 0;
            taken.insert(headKey(*head));
            if (isShared)
                continue;
            while (!taken.insert(line).second)
                line -= 2;
            places.push_back(_row.yOfLine(line));
        }
    }
    const double width = _pen.fonts().box(Sign::AugmentationDot).right;
    for (const double y : places)
        for (unsigned i = 0; i < count; ++i) {
            Ink dot = _pen.glyph(MarkKind::AugmentationDot, Sign::AugmentationDot,
                                 right + i * (width + 0.25), y, chord.scale);
            dot.place = placeOfChord(_row, _bar, chord);
            inks.push_back(std::move(dot));
        }
}

void ChordInks::addArpeggio(const Chord &chord, double left, Inks &inks) const
{
    const Direction arpeggio = chord.beat->marks.arpeggioDirection();
    const Direction brush = chord.beat->marks.brushDirection();
    const bool hasBracket = chord.beat->marks.isNonArpeggio();
    if (chord.isRest() || (arpeggio == Direction::None && brush == Direction::None && !hasBracket))
        return;
    const double top = chord.top() - 0.75;
    const double bottom = chord.bottom() + 0.75;
    const double x = left - 0.55;
    const auto add = [&](Ink ink) {
        ink.place = placeOfChord(_row, _bar, chord);
        inks.push_back(std::move(ink));
    };
    if (hasBracket) {
        add(_pen.polyline(MarkKind::Arpeggio,
                          {{x + 0.3, top}, {x - 0.1, top}, {x - 0.1, bottom}, {x + 0.3, bottom}},
                          0.16));
        return;
    }
    // Down is the way of the hand, from the lowest string: on the sheet its arrow leads upwards.
    const bool isBrush = brush != Direction::None;
    const bool leadsUp = isBrush ? brush == Direction::Down : arpeggio == Direction::Up;
    Points points;
    if (isBrush) {
        points = {{x, top}, {x, bottom}};
    } else {
        constexpr double wave = 1.0;
        const int steps = std::max(8, static_cast<int>((bottom - top) / wave * 8));
        for (int i = 0; i <= steps; ++i) {
            const double y = top + (bottom - top) * i / steps;
            points.push_back({x + 0.22 * std::sin((y - top) / wave * 6.283185307), y});
        }
    }
    add(_pen.polyline(MarkKind::Arpeggio, points, isBrush ? 0.14 : 0.2));
    if (isBrush || arpeggio == Direction::Down) {
        const double tip = leadsUp ? top - 0.3 : bottom + 0.3;
        const double back = leadsUp ? 0.8 : -0.8;
        add(_pen.polygon(MarkKind::Arpeggio,
                         {{x, tip}, {x - 0.32, tip + back}, {x + 0.32, tip + back}}));
    }
}

} // namespace zarn::engraving
