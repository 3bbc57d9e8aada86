// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/WordSigns.h>

#include <ZarnLayout/engrave/ChordSymbolText.h>
#include <ZarnLayout/engrave/WrittenText.h>
#include <ZarnLayout/page/HairpinRuns.h>

#include <ZarnCore/chords/ZarnChordDiagram.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace zarn::engraving {

namespace {

constexpr int dynamicLine = 2;
constexpr int symbolLine = 4;

std::vector<Sign> signsOf(AttackDynamic attack)
{
    if (attack == AttackDynamic::None)
        return {};
    if (attack == AttackDynamic::Pf)
        return {Sign::DynamicPiano, Sign::DynamicForte};
    // The signs follow one another as the enumerators do.
    return {Sign::DynamicSforzando1
            + (static_cast<int>(attack) - static_cast<int>(AttackDynamic::Sf))};
}

std::vector<Sign> signsOf(NoteDynamic dynamic)
{
    switch (dynamic.value()) {
    case NoteDynamic::Value::None:
        return {};
    case NoteDynamic::Value::PPPPPPP:
        return {Sign::DynamicPPPPPP, Sign::DynamicPiano};
    case NoteDynamic::Value::FFFFFFF:
        return {Sign::DynamicFFFFFF, Sign::DynamicForte};
    default:
        // The signs follow one another as the levels do.
        return {
            Sign::DynamicPPPPPP
            + (static_cast<int>(dynamic.value()) - static_cast<int>(NoteDynamic::Value::PPPPPP))};
    }
}

/// A hairpin between two places; a mouth that is not closed goes on in another system.
Inks hairpin(const Pen &pen, Hairpin kind, double left, double right, bool comesFromBefore,
             bool goesOn)
{
    constexpr double half = 0.6;
    const double middle = -0.6;
    const auto wedge = [&](double from, double to, double start, double end) {
        Inks inks;
        for (const double sign : {-1.0, 1.0})
            inks.push_back(pen.line(MarkKind::Hairpin, {from, middle + sign * start},
                                    {to, middle + sign * end}, 0.16));
        return inks;
    };
    const double closed = comesFromBefore ? 0.25 : 0;
    const double open = goesOn ? 0.45 : half;
    if (kind == Hairpin::Crescendo)
        return wedge(left, right, closed, open);
    if (kind == Hairpin::Decrescendo)
        return wedge(left, right, comesFromBefore ? 0.45 : half, goesOn ? 0.25 : 0);
    const double centre = (left + right) / 2;
    Inks inks = wedge(left, centre, 0, half);
    for (Ink &ink : wedge(centre, right, half, 0))
        inks.push_back(std::move(ink));
    return inks;
}

/// Whether the beat in front of the first one of a system has the same hairpin.
bool wasOpen(const SystemDraft &draft, const RowDraft &row, const PlacedChord &first, Hairpin kind)
{
    const BarSource &before = draft.score.source(row.number, draft.first - 1);
    for (const VoiceSource &voice : before.voices)
        if (voice.number == first.chord->voice && !voice.beats.empty())
            return voice.beats.back().marks.hairpin() == kind;
    return false;
}

/// Away from bar lines, which lead through the staves of a track.
void keepInBar(Inks &inks, const BarPlace &bar)
{
    constexpr double gap = 0.2;
    const Box box = boxOf(inks);
    const double left = std::max(0.0, bar.left + gap - box.left);
    const double right = std::max(0.0, box.right - bar.right + gap);
    move(inks, left > 0 ? left : -right, 0);
}

Inks diagramInks(const Pen &pen, const ChordDiagram &diagram, double centre)
{
    constexpr double stringGap = 0.9;
    constexpr double fretGap = 1.1;
    const auto strings = static_cast<int>(diagram.frets.size());
    if (strings == 0)
        return {};
    int highest = 0;
    for (const std::int8_t fret : diagram.frets)
        highest = std::max<int>(highest, fret);
    const int first = std::max<int>(1, diagram.firstFret);
    const int frets = std::max(4, highest - first + 1);
    const double width = (strings - 1) * stringGap;
    const double height = frets * fretGap;
    const double left = centre - width / 2;
    const double top = -height;
    Inks inks;
    const auto add = [&](Ink ink) { inks.push_back(std::move(ink)); };
    for (int i = 0; i < strings; ++i)
        add(pen.line(MarkKind::ChordDiagram, {left + i * stringGap, top}, {left + i * stringGap, 0},
                     0.1));
    for (int i = 0; i <= frets; ++i)
        add(pen.line(MarkKind::ChordDiagram, {left - 0.05, top + i * fretGap},
                     {left + width + 0.05, top + i * fretGap}, i == 0 && first == 1 ? 0.3 : 0.1));
    if (first > 1)
        add(pen.text(MarkKind::ChordDiagram, TextRole::Finger, std::to_string(first),
                     left + width + 0.6, top + fretGap * 0.5 + 0.4));
    const auto dots = pen.fonts().box(Sign::FretboardFilledCircle);
    for (int i = 0; i < strings; ++i) {
        const int fret = diagram.frets[static_cast<std::size_t>(i)];
        const double x = left + i * stringGap;
        if (fret <= 0) {
            const Sign sign = fret == 0 ? Sign::FretboardO : Sign::FretboardX;
            const Box &box = pen.fonts().box(sign);
            const double scale = 0.6 / std::max(box.width(), 0.1);
            add(pen.glyph(MarkKind::ChordDiagram, sign, x - (box.left + box.right) / 2 * scale,
                          top - 0.35 - box.bottom * scale, scale));
            continue;
        }
        const double y = top + (fret - first + 0.5) * fretGap;
        const double scale = 0.65 / std::max(dots.width(), 0.1);
        add(pen.glyph(MarkKind::ChordDiagram, Sign::FretboardFilledCircle,
                      x - (dots.left + dots.right) / 2 * scale,
                      y - (dots.top + dots.bottom) / 2 * scale, scale));
    }
    for (const DiagramBarre &barre : barresOf(diagram))
        add(pen.line(
            MarkKind::ChordDiagram,
            {left + barre.firstString * stringGap, top + (barre.fret - first + 0.5) * fretGap},
            {left + barre.lastString * stringGap, top + (barre.fret - first + 0.5) * fretGap},
            0.3));
    return inks;
}

/// Above what is sung: below it are the words.
Side sideOfDynamics(const RowDraft &row)
{
    const bool isSung =
        std::any_of(row.chords.begin(), row.chords.end(), [](const PlacedChord &chord) {
            return chord.beat().details && !chord.beat().details->lyrics.empty();
        });
    return isSung ? Side::Above : Side::Below;
}

/// Dynamics and hairpins that follow one another closely share a line; what stands alone is as near
/// to its notes as it can be.
void alignNeighbours(SideItems &items)
{
    constexpr double apart = 5;
    std::vector<SideItem *> inOrder;
    for (SideItem &item : items)
        if (item.line != 0 && !item.inks.empty())
            inOrder.push_back(&item);
    std::stable_sort(inOrder.begin(), inOrder.end(),
                     [](const SideItem *left, const SideItem *right) {
                         return boxOf(left->inks).left < boxOf(right->inks).left;
                     });
    int line = dynamicLine;
    double end = -1e9;
    for (SideItem *item : inOrder) {
        const Box box = boxOf(item->inks);
        if (box.left > end + apart)
            ++line;
        item->line = line;
        end = std::max(end, box.right);
    }
}

bool saysHowLoud(const BeatSource &beat)
{
    return beat.marks.dynamic() != NoteDynamic()
        || beat.marks.attackDynamic() != AttackDynamic::None
        || beat.marks.hairpin() != Hairpin::NoHairpin;
}

/// The row of the staff above that belongs to the same player; null for none.
const RowDraft *upperHand(const RowDraft &row, const SystemDraft &draft)
{
    const auto found =
        std::find_if(draft.rows.begin(), draft.rows.end(), [&](const RowDraft &other) {
            return other.row->track == row.row->track && other.row->staff + 1 == row.row->staff
                && other.row->isFirstOfStaff;
        });
    return found == draft.rows.end() ? nullptr : &*found;
}

/// Between the hands stands what is said to both: dynamics of the lower one, with the hairpins that
/// lead to or from them, where the upper one has none in the same bars.
void liftBetweenHands(SideItems &items, const RowDraft &row, const RowDraft &upper,
                      const SystemDraft &draft)
{
    std::set<unsigned> ofUpper; // shown bars
    for (const PlacedChord *const carrier : carriersOf(upper))
        if (saysHowLoud(carrier->beat()))
            ofUpper.insert(carrier->shownBar);
    struct Line {
        std::vector<SideItem *> items;
        double left = 1e9;
        double right = -1e9;
        bool hasDynamic = false;
    };
    std::map<int, Line> lines;
    for (SideItem &item : items) {
        if (item.line == 0 || item.inks.empty())
            continue;
        Line &line = lines[item.line];
        const Box box = boxOf(item.inks);
        line.items.push_back(&item);
        line.left = std::min(line.left, box.left);
        line.right = std::max(line.right, box.right);
        line.hasDynamic = line.hasDynamic || item.inks.front().kind == MarkKind::Dynamic;
    }
    for (const auto &[number, line] : lines) {
        bool isAlone = line.hasDynamic;
        for (const BarPlace &bar : draft.bars)
            if (bar.left < line.right && bar.right > line.left && ofUpper.count(bar.shownBar) > 0)
                isAlone = false;
        if (!isAlone || openSide(row, Side::Above, line.left, line.right) != Side::Above)
            continue;
        for (SideItem *const item : line.items)
            item->side = Side::Above;
    }
}

} // namespace

void addDynamics(RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isFirstOfStaff)
        return;
    const Side side = sideOfDynamics(row);
    const RowDraft *const upper = side == Side::Below ? upperHand(row, draft) : nullptr;
    // Whether bar lines lead through where the dynamics may come to stand: those of a single line
    // are taller than it.
    const bool meetLines = row.row->lineCount == 1
        || (row.hasLinesAbove && (side == Side::Above || upper != nullptr))
        || (row.hasLinesBelow && side == Side::Below);
    SideItems items;
    std::vector<std::pair<double, double>> taken; // of dynamics, for hairpins to end at
    const auto carriers = carriersOf(row);
    for (const PlacedChord *const carrier : carriers) {
        const PlacedChord &chord = *carrier;
        std::vector<Sign> signs = signsOf(chord.beat().marks.dynamic());
        for (const Sign sign : signsOf(chord.beat().marks.attackDynamic()))
            signs.push_back(sign);
        if (signs.empty())
            continue;
        SideItem item;
        item.side = side;
        item.line = dynamicLine;
        item.gap = 0.5;
        item.inks =
            draft.pen.glyphs(MarkKind::Dynamic, signs, chord.headCentre(), 0, Pen::Align::Centre);
        if (meetLines)
            keepInBar(item.inks, draft.barOf(chord));
        keepOnLine(item.inks, draft);
        const Box box = boxOf(item.inks);
        // Several voices that say the same say it once.
        const bool isTaken =
            std::any_of(taken.begin(), taken.end(), [&](const std::pair<double, double> &other) {
                return other.first < box.right && other.second > box.left;
            });
        if (isTaken)
            item.line = 0;
        taken.push_back({box.left, box.right});
        for (Ink &ink : item.inks)
            ink.place = placeOf(row, chord);
        items.push_back(std::move(item));
    }
    for (const HairpinRun &run : hairpinRuns(carriers)) {
        const PlacedChord &first = *run.first;
        double left = first.x;
        double right = (run.next ? run.next->x : endOfBeat(draft, *run.last)) - 0.4;
        for (const auto &[start, stop] : taken) {
            if (start <= left + 0.5 && stop > left)
                left = stop + 0.3;
            if (start > left + 0.5 && start < right + 0.4)
                right = std::min(right, start - 0.3);
        }
        const bool comes = run.isFirstOfVoice && draft.knowsBefore && first.shownBar == draft.first
            && !first.beat().marks.beginsHairpin() && first.beat().index == 0
            && wasOpen(draft, row, first, run.kind);
        if (right > left + 0.8) {
            SideItem item;
            item.side = side;
            item.line = dynamicLine;
            item.gap = 0.5;
            item.inks = hairpin(draft.pen, run.kind, left, right, comes, false);
            for (Ink &ink : item.inks)
                ink.place = placeOf(row, first);
            items.push_back(std::move(item));
        }
    }
    alignNeighbours(items);
    if (upper != nullptr)
        liftBetweenHands(items, row, *upper, draft);
    place(row, std::move(items));
}

void addChordSymbols(RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isFirstOfStaff)
        return;
    SideItems diagrams;
    SideItems symbols;
    // By bar, column and place in front of it.
    std::map<std::tuple<unsigned, unsigned, unsigned>, std::vector<const ChordMark *>> said;
    for (const PlacedChord *const carrier : carriersOf(row)) {
        const PlacedChord &chord = *carrier;
        const auto &details = chord.beat().details;
        if (!details || details->chord.isEmpty())
            continue;
        const ChordMark &mark = details->chord;
        // Several voices that say the same say it once.
        auto &others = said[{chord.shownBar, chord.chord->column, chord.beat().graceRank}];
        if (std::any_of(others.begin(), others.end(),
                        [&](const ChordMark *other) { return *other == mark; }))
            continue;
        others.push_back(&mark);
        if (mark.diagram) {
            SideItem item;
            item.line = symbolLine + 1;
            item.gap = 0.7;
            item.inks = diagramInks(draft.pen, *mark.diagram, chord.headCentre());
            for (Ink &ink : item.inks)
                ink.place = placeOf(row, chord);
            diagrams.push_back(std::move(item));
        }
        const std::string &symbol = shownSymbol(mark);
        if (!symbol.empty()) {
            SideItem item;
            item.line = symbolLine;
            item.gap = 0.7;
            item.inks.push_back(
                draft.pen.text(MarkKind::ChordSymbol, TextRole::ChordSymbol, writtenSymbol(symbol),
                               mark.diagram ? chord.headCentre() : chord.x, 0,
                               mark.diagram ? Pen::Align::Centre : Pen::Align::Begin));
            item.inks[0].place = placeOf(row, chord);
            symbols.push_back(std::move(item));
        }
    }
    // Of chords of two voices at one time the later ones stand above.
    partNeighbours(diagrams, symbolLine + 1, 0.1);
    partNeighbours(symbols, symbolLine, 0.1);
    place(row, std::move(diagrams), symbolLine + 1);
    place(row, std::move(symbols), symbolLine);
}

} // namespace zarn::engraving
