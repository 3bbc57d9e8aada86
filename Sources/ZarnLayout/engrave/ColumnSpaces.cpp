// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/ColumnSpaces.h>

#include <ZarnLayout/engrave/BeamChain.h>
#include <ZarnLayout/engrave/ChordInks.h>
#include <ZarnLayout/engrave/ChordSymbolText.h>
#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/engrave/SungWords.h>
#include <ZarnLayout/source/SungBeats.h>

#include <ZarnCore/chords/ZarnChordDiagram.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

SpaceBox::Kind kindOf(MarkKind kind)
{
    switch (kind) {
    case MarkKind::NoteHead:
    case MarkKind::Slash:
    case MarkKind::Fret:
        return SpaceBox::Kind::Head;
    case MarkKind::Accidental:
        return SpaceBox::Kind::Accidental;
    case MarkKind::AugmentationDot:
        return SpaceBox::Kind::Dot;
    case MarkKind::Stem:
    case MarkKind::Flag:
        return SpaceBox::Kind::Stem;
    case MarkKind::LedgerLine:
        return SpaceBox::Kind::Ledger;
    case MarkKind::Rest:
        return SpaceBox::Kind::Rest;
    default:
        return SpaceBox::Kind::Sign;
    }
}

/// Between chord symbols, beside what is between all words: they have spaces of their own.
constexpr double symbolGap = 0.6;

/// Nearly the width of its glyph.
double widthOf(NoteDynamic dynamic)
{
    const std::string text(NoteDynamic::textOf(dynamic.value()));
    const auto count = [&](char letter) {
        return static_cast<double>(std::count_if(text.begin(), text.end(), [&](char c) {
            return c == letter || c == letter + ('a' - 'A');
        }));
    };
    return 1.42 * count('P') + 1.55 * count('M') + 0.96 * count('F')
        + (count('F') > 0 ? 1.05 : 0.4);
}

void addWordSpaces(const Chord &chord, const Fonts &fonts, SpaceBoxes &boxes)
{
    // At heights of their own, so that they meet their own kind alone.
    const BeatDetails &details = *chord.beat->details;
    const double centre = chord.x + chord.width / 2;
    for (const Syllable &syllable : details.lyrics) {
        const Inks inks = sungInks(Pen(fonts), syllable, details.lyrics, centre);
        if (inks.empty())
            continue;
        const Box box = boxOf(inks);
        const double y = lyricSpaceY + 10.0 * syllable.line;
        boxes.push_back({{box.left, y, box.right + (isWordUnfinished(syllable) ? 0.8 : 0), y + 1},
                         SpaceBox::Kind::Text});
    }
    if (const std::string &symbol = shownSymbol(details.chord); !symbol.empty()) {
        const double width = fonts.textBox(writtenSymbol(symbol), TextRole::ChordSymbol).right;
        const double left = details.chord.diagram ? centre - width / 2 : chord.x;
        boxes.push_back({{left, symbolSpaceY, left + width + symbolGap, symbolSpaceY + 1},
                         SpaceBox::Kind::Text});
    }
    if (details.chord.diagram) {
        const double half = 0.45 * static_cast<double>(details.chord.diagram->frets.size()) + 0.8;
        boxes.push_back({{centre - half, symbolSpaceY - 10, centre + half, symbolSpaceY - 9},
                         SpaceBox::Kind::Text});
    }
}

/// What hangs on a beat, be it drawn or not.
void addSignSpaces(const Chord &chord, const Fonts &fonts, SpaceBoxes &boxes)
{
    const BeatMarks &marks = chord.beat->marks;
    if (marks.dynamic() != NoteDynamic()) {
        const double half = widthOf(marks.dynamic()) / 2;
        const double centre = chord.x + chord.width / 2;
        boxes.push_back({{centre - half, dynamicSpaceY, centre + half, dynamicSpaceY + 1},
                         SpaceBox::Kind::Text});
    }
    if (const PedalChange pedal = marks.pedal(); pedal != PedalChange::None) {
        const double width = pedal == PedalChange::Start ? 3.3
            : pedal == PedalChange::Stop                 ? 1.4
                                                         : 5.0;
        boxes.push_back(
            {{chord.x, pedalSpaceY, chord.x + width, pedalSpaceY + 1}, SpaceBox::Kind::Text});
    }
    if (chord.beat->details)
        addWordSpaces(chord, fonts, boxes);
}

/// Lines that lead to a head from elsewhere or from it to elsewhere.
void addSlideSpaces(const Chord &chord, const EngravedBar &bar, const BarSource &source,
                    SpaceBoxes &boxes)
{
    constexpr double line = 1.6; ///< a short one, with its gap
    constexpr double link = 0.9; ///< the least of one that leads to the next note
    constexpr double height = 0.4;
    if (chord.beat->noteCount == 0)
        return;
    Box all = {0, 0, chord.width, 0};
    for (std::uint32_t i = chord.firstInk; i < chord.inkEnd; ++i)
        if (bar.inks[i].kind != MarkKind::LedgerLine)
            all.add(bar.inks[i].box);
    for (const Head &head : chord.heads) {
        const NoteMarks &marks = source.notes[head.note].marks;
        const auto add = [&](double left, double right) {
            boxes.push_back({{chord.x + left, head.y - height, chord.x + right, head.y + height},
                             SpaceBox::Kind::Sign});
        };
        if (marks.slideIn() != SlideIn::None)
            add(all.left - line, all.left);
        const SlideOut out = marks.slideOut();
        if (out != SlideOut::None)
            add(head.x + head.width,
                head.x + head.width
                    + (out == SlideOut::Shift || out == SlideOut::Legato ? link : line));
    }
}

void addBendSpaces(const Chord &chord, const BarSource &source, SpaceBoxes &boxes)
{
    // A bend leads to the right and up, past the strings above.
    constexpr double turn = 1.5;
    for (const Head &head : chord.heads) {
        if (chord.beat->noteCount == 0 || !source.notes[head.note].details)
            continue;
        const Bend &bend = source.notes[head.note].details->bend;
        if (bend.type == BendType::NoBend)
            continue;
        int turns = 0;
        const auto &points = bend.curve.points();
        for (std::size_t i = 1; i < points.size(); ++i)
            turns += points[i].value != points[i - 1].value ? 1 : 0;
        const double left = chord.x + head.x + head.width;
        boxes.push_back({{left, -1, left + 0.7 + turn * std::max(turns, 1), head.y + 0.3},
                         SpaceBox::Kind::Sign});
    }
}

bool hasAccidentals(const Chord &chord, const Inks &inks)
{
    return std::any_of(inks.begin() + chord.firstInk, inks.begin() + chord.inkEnd,
                       [](const Ink &ink) { return ink.kind == MarkKind::Accidental; });
}

/// The next chord of its voice in a bar; null behind the last.
const Chord *nextOf(const Chord &chord, const std::vector<Chord> &chords)
{
    const Chord *next = nullptr;
    for (const Chord &other : chords)
        if (other.voice == chord.voice && !other.beat->isGrace() && other.column > chord.column
            && (!next || other.column < next->column))
            next = &other;
    return next;
}

/// The strokes between two notes want to be seen as such. Those of beamed notes lead from stem to
/// stem, one of which is beyond a head, unless accidentals are in between.
SpaceBox tremoloSpace(const Chord &chord, const EngravedBar &bar, const Row &row)
{
    const Inks &inks = bar.inks;
    const Chord *const next = nextOf(chord, bar.chords);
    const bool isClear = chord.isBeamed && next && !hasAccidentals(*next, inks);
    const double strokes = isClear ? 1.4 : 2.4;
    double right = chord.width;
    for (std::uint32_t i = chord.firstInk; i < chord.inkEnd; ++i)
        if (inks[i].kind != MarkKind::LedgerLine)
            right = std::max(right, inks[i].box.right);
    return {{chord.x + right, -4, chord.x + right + strokes, row.height() + 4},
            SpaceBox::Kind::Sign};
}

/// The strokes of a tremolo reach over both sides of the stem, wherever it ends.
SpaceBox strokesSpace(const Chord &chord, const Fonts &fonts)
{
    constexpr double halfStroke = 0.65;
    if (chord.hasStem)
        return {{chord.x + chord.stemX - halfStroke, std::min(chord.stemTip, chord.stemRoot),
                 chord.x + chord.stemX + halfStroke, std::max(chord.stemTip, chord.stemRoot)},
                SpaceBox::Kind::Stem};
    const Box &sign = fonts.box(tremoloSign(chord.beat->marks.tremolo()));
    const Point middle = tremoloPoint(chord, chord.stemTip, fonts);
    return {Box{sign.left * chord.scale, sign.top * chord.scale, sign.right * chord.scale,
                sign.bottom * chord.scale}
                .movedBy(chord.x + middle.x, middle.y),
            SpaceBox::Kind::Stem};
}

/// Where the stems of each chord may end: those of one beam at most as far out as the outermost of
/// them would without it.
std::vector<double> stemTipsOf(const std::vector<Chord> &chords)
{
    std::vector<double> tips;
    tips.reserve(chords.size());
    for (const Chord &chord : chords)
        tips.push_back(chord.stemTip);
    std::vector<bool> isDone(chords.size(), false);
    for (std::size_t first = 0; first < chords.size(); ++first) {
        if (isDone[first] || !chords[first].isBeamed)
            continue;
        const auto chain = beamChain(first, chords.size(),
                                     [&](std::size_t i) -> const Chord & { return chords[i]; });
        const bool isUp = chords[first].isStemUp;
        double outermost = chords[first].stemTip;
        for (const std::size_t i : chain)
            if (chords[i].hasStem && !chords[i].isRest())
                outermost = isUp ? std::min(outermost, chords[i].stemTip)
                                 : std::max(outermost, chords[i].stemTip);
        for (const std::size_t i : chain) {
            isDone[i] = true;
            if (chords[i].isBeamed)
                tips[i] = outermost;
        }
    }
    return tips;
}

/// Whether something that a tie does not pass, an arpeggio, stands in front of the next chord.
bool leadsToArpeggio(const Chord &chord, const EngravedBar &bar)
{
    const Chord *const next = nextOf(chord, bar.chords);
    return next
        && std::any_of(bar.inks.begin() + next->firstInk, bar.inks.begin() + next->inkEnd,
                       [](const Ink &ink) { return ink.kind == MarkKind::Arpeggio; });
}

/// The ties of a chord with dots begin behind these, inside what they lead to; those that lead to
/// an arpeggio end in front of it.
void addTieSpaces(const Chord &chord, const EngravedBar &bar, const BarSource &source,
                  SpaceBoxes &boxes)
{
    constexpr double shortest = 0.9;
    constexpr double height = 0.7;
    if (chord.beat->noteCount == 0
        || (chord.beat->rhythm.getAugmentationDot() == 0 && !leadsToArpeggio(chord, bar)))
        return;
    double right = 0;
    for (const Head &head : chord.heads)
        right = std::max(right, head.x + head.width);
    for (std::uint32_t i = chord.firstInk; i < chord.inkEnd; ++i)
        if (bar.inks[i].kind == MarkKind::AugmentationDot)
            right = std::max(right, bar.inks[i].box.right);
    for (const Head &head : chord.heads)
        if (source.notes[head.note].marks.isTieOrigin())
            boxes.push_back(
                {{chord.x + right, head.y - height, chord.x + right + shortest, head.y + height},
                 SpaceBox::Kind::Sign});
}

void addLinkSpaces(const Chord &chord, const EngravedBar &bar, const BarSource &source,
                   const Row &row, SpaceBoxes &boxes)
{
    if (row.notation != Notation::Slash)
        addSlideSpaces(chord, bar, source, boxes);
    if (row.notation == Notation::Tablature)
        addBendSpaces(chord, source, boxes);
    if (row.notation == Notation::Standard && !chord.isSlash)
        addTieSpaces(chord, bar, source, boxes);
}

} // namespace

void addSpaces(EngravedBar &bar, const BarSource &source, const Row &row, const Fonts &fonts)
{
    const std::vector<double> stemTips = stemTipsOf(bar.chords);
    for (Chord &chord : bar.chords) {
        if (chord.beat->isGrace()) {
            SpaceBoxes signs;
            addLinkSpaces(chord, bar, source, row, signs);
            for (const SpaceBox &sign : signs)
                chord.room.add(sign.box);
            SpaceBoxes words;
            if (row.isFirstOfStaff)
                addSignSpaces(chord, fonts, words);
            const auto number = static_cast<std::uint32_t>(&chord - bar.chords.data());
            for (const SpaceBox &word : words)
                bar.graceWords.push_back({number, word});
            continue;
        }
        auto &boxes = bar.columns[chord.column].boxes;
        for (std::uint32_t i = chord.firstInk; i < chord.inkEnd; ++i) {
            const Ink &ink = bar.inks[i];
            boxes.push_back({ink.box.movedBy(chord.x, 0), kindOf(ink.kind)});
        }
        if (row.isFirstOfStaff)
            addSignSpaces(chord, fonts, boxes);
        if (chord.beat->marks.tremoloToNext() > 0
            && (row.notation != Notation::Tablature || row.hasRhythm))
            boxes.push_back(tremoloSpace(chord, bar, row));
        addLinkSpaces(chord, bar, source, row, boxes);
        if (!chord.isRest() && chord.beat->marks.tremolo() > 0
            && (row.notation != Notation::Tablature || row.hasRhythm))
            boxes.push_back(strokesSpace(chord, fonts));
        if (chord.isBeamed && chord.hasStem) {
            const double tip = stemTips[static_cast<std::size_t>(&chord - bar.chords.data())];
            boxes.push_back({{chord.x + chord.stemX - 0.06, std::min(tip, chord.stemRoot),
                              chord.x + chord.stemX + 0.06, std::max(tip, chord.stemRoot)},
                             SpaceBox::Kind::Stem});
        }
    }
    if (row.isFirstOfStaff)
        for (const Chord &chord : bar.silent)
            addSignSpaces(chord, fonts, bar.columns[chord.column].boxes);
}

} // namespace zarn::engraving
