// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/WordSigns.h>

#include <ZarnLayout/engrave/ChordSymbolText.h>
#include <ZarnLayout/engrave/WrittenText.h>
#include <ZarnLayout/page/BeatTexts.h>
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

Side sideOf(MarkSide said, Side usual)
{
    return said == MarkSide::Auto ? usual : said == MarkSide::Above ? Side::Above : Side::Below;
}

/// What stands on the lines of a row, from left to right, for others to make way for.
struct Taken {
    double left;
    double right;
    Side side;
};

/// Dynamics, hairpins and words of one side that follow one another closely share a line, behind
/// those with numbers up to `line`; what stands alone is as near to its notes as it can be. Returns
/// the last number.
int alignNeighbours(SideItems &items, Side side, int line)
{
    constexpr double apart = 5;
    std::vector<SideItem *> inOrder;
    for (SideItem &item : items)
        if (item.line != 0 && item.side == side && !item.inks.empty())
            inOrder.push_back(&item);
    std::stable_sort(inOrder.begin(), inOrder.end(),
                     [](const SideItem *left, const SideItem *right) {
                         return boxOf(left->inks).left < boxOf(right->inks).left;
                     });
    double end = -1e9;
    for (SideItem *item : inOrder) {
        const Box box = boxOf(item->inks);
        if (box.left > end + apart)
            ++line;
        item->line = line;
        end = std::max(end, box.right);
    }
    return line;
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
/// lead to or from them, where the upper one has none in the same bars and no side is given.
void liftBetweenHands(SideItems &items, const RowDraft &row, const RowDraft &upper,
                      const SystemDraft &draft)
{
    std::set<unsigned> ofUpper; // shown bars
    for (const PlacedChord *const carrier : upper.carriers)
        if (saysHowLoud(carrier->beat()))
            ofUpper.insert(carrier->shownBar);
    struct Line {
        std::vector<SideItem *> items;
        double left = 1e9;
        double right = -1e9;
        bool hasDynamic = false;
        bool isSideGiven = false;
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
        line.isSideGiven = line.isSideGiven || item.isSideGiven;
        line.hasDynamic = line.hasDynamic || item.inks.front().kind == MarkKind::Dynamic;
    }
    for (const auto &[number, line] : lines) {
        bool isAlone = line.hasDynamic && !line.isSideGiven;
        for (const BarPlace &bar : draft.bars)
            if (bar.left < line.right && bar.right > line.left && ofUpper.count(bar.shownBar) > 0)
                isAlone = false;
        if (!isAlone || openSide(row, Side::Above, line.left, line.right) != Side::Above)
            continue;
        for (SideItem *const item : line.items)
            item->side = Side::Above;
    }
}

/// Dynamics, hairpins and the words under the beats of a row.
class DynamicsEngraver {
public:
    DynamicsEngraver(RowDraft &row, const SystemDraft &draft)
        : _row(row), _draft(draft), _carriers(row.carriers), _usual(sideOfDynamics(row)),
          _upper(_usual == Side::Below ? upperHand(row, draft) : nullptr)
    {
    }

    void run()
    {
        for (const PlacedChord *const carrier : _carriers)
            addDynamic(*carrier);
        addWordsBelow();
        for (const HairpinRun &run : hairpinRuns(_carriers))
            addHairpin(run);
        clearWords();
        alignNeighbours(_items, Side::Above, alignNeighbours(_items, Side::Below, dynamicLine));
        if (_upper != nullptr)
            liftBetweenHands(_items, _row, *_upper, _draft);
        place(_row, std::move(_items));
        for (SideItem &item : _alone)
            place(_row, {std::move(item)});
    }

private:
    /// Whether bar lines lead through where something may come to stand: those of a single line are
    /// taller than it.
    bool meetsLines(const SideItem &item) const
    {
        const bool mayBeLifted = !item.isSideGiven && _upper != nullptr;
        return _row.row->lineCount == 1
            || (_row.hasLinesAbove && (item.side == Side::Above || mayBeLifted))
            || (_row.hasLinesBelow && item.side == Side::Below);
    }

    void add(SideItem item, const PlacedChord &chord)
    {
        for (Ink &ink : item.inks)
            ink.place = placeOf(_row, chord);
        _items.push_back(std::move(item));
    }

    void addDynamic(const PlacedChord &chord)
    {
        const BeatSource &beat = chord.beat();
        std::vector<Sign> signs = signsOf(beat.marks.dynamic());
        for (const Sign sign : signsOf(beat.marks.attackDynamic()))
            signs.push_back(sign);
        if (signs.empty())
            return;
        const MarkSide said = beat.details ? beat.details->dynamicSide : MarkSide::Auto;
        SideItem item;
        item.side = sideOf(said, _usual);
        item.isSideGiven = said != MarkSide::Auto;
        item.line = dynamicLine;
        item.gap = 0.5;
        item.inks =
            _draft.pen.glyphs(MarkKind::Dynamic, signs, chord.headCentre(), 0, Pen::Align::Centre);
        if (meetsLines(item))
            keepInBar(item.inks, _draft.barOf(chord));
        keepOnLine(item.inks, _draft);
        const Box box = boxOf(item.inks);
        // Several voices that say the same say it once.
        const bool isTaken = std::any_of(_taken.begin(), _taken.end(), [&](const Taken &other) {
            return other.side == item.side && other.left < box.right && other.right > box.left;
        });
        if (isTaken)
            item.line = 0;
        _taken.push_back({box.left, box.right, item.side});
        add(std::move(item), chord);
    }

    /// Words at a beat with a dynamic begin behind it: "p dolce".
    void addWordsBelow()
    {
        constexpr double gap = 0.6;
        SideItems words = wordsBelow(_row, _draft);
        for (SideItem &item : words) {
            if (item.inks.empty())
                continue;
            const double left = boxOf(item.inks).left;
            const double width = boxOf(item.inks).width();
            for (const Taken &other : _taken)
                if (other.side == Side::Below && other.left <= left + 1 && other.right + gap > left
                    && other.right + gap + width < _draft.right)
                    move(item.inks, other.right + gap - left, 0);
            item.line = dynamicLine;
            item.isSideGiven = true;
            _words.push_back(_items.size());
            _items.push_back(std::move(item));
        }
    }

    /// Where a hairpin begins that words reach into: behind them, where most of it is left.
    double behindWords(double left, double right) const
    {
        constexpr double gap = 0.4;
        constexpr double shortest = 2.5;
        double begin = left;
        for (const std::size_t number : _words) {
            const Box box = boxOf(_items[number].inks);
            if (box.left < left + 0.5 && box.right + gap > begin)
                begin = box.right + gap;
        }
        return right - begin >= std::max(shortest, (right - left) / 2) ? begin : left;
    }

    void addHairpin(const HairpinRun &run)
    {
        const PlacedChord &first = *run.first;
        const auto &details = first.beat().details;
        SideItem item;
        const MarkSide said = details ? details->hairpinSide : MarkSide::Auto;
        item.side = sideOf(said, _usual);
        item.isSideGiven = said != MarkSide::Auto;
        item.line = dynamicLine;
        item.gap = 0.5;
        double left = first.x;
        double right = (run.next ? run.next->x : endOfBeat(_draft, *run.last)) - 0.4;
        for (const Taken &other : _taken) {
            if (other.side != item.side)
                continue;
            if (other.left <= left + 0.5 && other.right > left)
                left = other.right + 0.3;
            if (other.left > left + 0.5 && other.left < right + 0.4)
                right = std::min(right, other.left - 0.3);
        }
        if (item.side == Side::Below)
            left = behindWords(left, right);
        const bool comes = run.isFirstOfVoice && _draft.knowsBefore
            && first.shownBar == _draft.first && !first.beat().marks.beginsHairpin()
            && first.beat().index == 0 && wasOpen(_draft, _row, first, run.kind);
        if (right <= left + 0.8)
            return;
        item.inks = hairpin(_draft.pen, run.kind, left, right, comes, false);
        add(std::move(item), first);
    }

    /// Words that run into something else of their line stand under it.
    void clearWords()
    {
        constexpr double gap = 0.3;
        for (const std::size_t number : _words) {
            SideItem &words = _items[number];
            const Box box = boxOf(words.inks);
            const bool meets =
                std::any_of(_items.begin(), _items.end(), [&](const SideItem &other) {
                    if (&other == &words || other.side != Side::Below || other.inks.empty())
                        return false;
                    const Box there = boxOf(other.inks);
                    return there.left < box.right + gap && box.left < there.right + gap;
                });
            if (meets)
                _alone.push_back(std::exchange(words, {}));
        }
    }

    RowDraft &_row;
    const SystemDraft &_draft;
    const std::vector<const PlacedChord *> &_carriers;
    Side _usual;
    const RowDraft *_upper;
    SideItems _items;
    std::vector<Taken> _taken;       ///< by dynamics, for hairpins to end at
    std::vector<std::size_t> _words; ///< numbers of items
    SideItems _alone;                ///< words that find no room on a line
};

} // namespace

void addDynamics(RowDraft &row, const SystemDraft &draft)
{
    if (row.row->isFirstOfStaff)
        DynamicsEngraver(row, draft).run();
}

void addChordSymbols(RowDraft &row, const SystemDraft &draft)
{
    if (!row.row->isFirstOfStaff)
        return;
    SideItems diagrams;
    SideItems symbols;
    // By bar, column and place in front of it.
    std::map<std::tuple<unsigned, unsigned, unsigned>, std::vector<const ChordMark *>> said;
    for (const PlacedChord *const carrier : row.carriers) {
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
