// SPDX-License-Identifier: MIT
#include <ZarnLayout/space/BarSpacer.h>

#include <ZarnLayout/engrave/TempoLine.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace zarn::engraving {

using utils::rational;

namespace {

constexpr double quarterWidth = 3.0;
constexpr double doublingRatio = 1.42;
constexpr double firstGap = 1.1;
constexpr double gapBehindBarLine = 0.6;
constexpr double gapToBarLine = 0.5;
constexpr double leastStep = 0.55; ///< between columns whatever is in them
constexpr double airOfStep = 0.25;
constexpr double emptyBar = 6.5;
constexpr double leastAir = 0.1; ///< between ink in a line that has no room
constexpr double gapBetweenWords = 0.6;

double gapBetween(SpaceBox::Kind left, SpaceBox::Kind right)
{
    using Kind = SpaceBox::Kind;
    if (left == Kind::Text || right == Kind::Text)
        return gapBetweenWords;
    if (left == Kind::Head && right == Kind::Head)
        return 0.45;
    if (right == Kind::Accidental)
        return 0.35;
    if (left == Kind::Ledger && right == Kind::Ledger)
        return 0.25;
    if (left == Kind::Ledger || right == Kind::Ledger)
        return 0.2;
    if (left == Kind::Stem && right == Kind::Stem)
        return 0.3;
    return 0.3;
}

/// How close two columns of a row may come, and how much of that is air.
struct Distance {
    double length = 0;
    double air = 0;
};

/// Nothing when they do not meet.
Distance distance(const SpaceBoxes &left, const SpaceBoxes &right)
{
    double most = 0;
    double tightest = 0;
    for (const SpaceBox &a : left)
        for (const SpaceBox &b : right)
            if (a.box.top < b.box.bottom + 0.15 && b.box.top < a.box.bottom + 0.15) {
                const double ink = a.box.right - b.box.left;
                most = std::max(most, ink + gapBetween(a.kind, b.kind));
                tightest = std::max(tightest, ink + leastAir);
            }
    return {most, most - tightest};
}

double leftOf(const SpaceBoxes &boxes)
{
    double left = 0;
    for (const SpaceBox &box : boxes)
        if (box.kind != SpaceBox::Kind::Text)
            left = std::min(left, box.box.left);
    return left;
}

double rightOf(const SpaceBoxes &boxes)
{
    double right = 0;
    for (const SpaceBox &box : boxes)
        if (box.kind != SpaceBox::Kind::Text)
            right = std::max(right, box.box.right);
    return right;
}

/// The columns of a row on the way to the right: where each is at least, by the distances that are
/// known, and how far its ink reaches. Long ink, as the dots of one voice under the beam of
/// another, may meet a column far behind its own.
class PassedColumns {
public:
    /// Calls with each column that one, which comes next, has to keep a distance from: the last,
    /// and whatever else could reach it. The function says the distance, 0 for none.
    template <class DistanceFrom>
    void next(unsigned column, const SpaceBoxes &boxes, DistanceFrom distanceFrom)
    {
        constexpr double widestGap = 0.45; // between what is no text
        const double left = leftOf(boxes) - widestGap;
        double place = 0;
        if (!_columns.empty()) {
            const Column &last = _columns.back();
            place = last.place
                + std::max((leastStep - airOfStep) * (column - last.number),
                           distanceFrom(last.number));
        }
        for (std::size_t i = _columns.size(); i-- > 1 && _columns[i - 1].reachOfAll > place + left;)
            if (const Column &before = _columns[i - 1]; before.reach > place + left)
                place = std::max(place, before.place + distanceFrom(before.number));
        const double reach = place + rightOf(boxes);
        const double before = _columns.empty() ? reach : _columns.back().reachOfAll;
        _columns.push_back({column, place, reach, std::max(reach, before)});
    }

    void clear() noexcept { _columns.clear(); }

private:
    struct Column {
        unsigned number;
        double place;
        double reach;
        double reachOfAll; ///< with the columns in front of it
    };
    std::vector<Column> _columns;
};

/// Columns of a row that words stand at, by the height of their line.
class WordColumns {
public:
    /// The last columns that have words on the lines of these; from now on the given one is the
    /// last.
    std::vector<unsigned> before(const SpaceBoxes &boxes, unsigned column)
    {
        std::vector<unsigned> found;
        for (const SpaceBox &box : boxes) {
            if (box.kind != SpaceBox::Kind::Text)
                continue;
            const auto [line, isFirst] = _last.emplace(box.box.top, column);
            if (!isFirst && line->second != column)
                found.push_back(std::exchange(line->second, column));
        }
        return found;
    }

private:
    std::map<double, unsigned> _last;
};

/// The last place of a word in front of those of its line that stand at a column already, seen from
/// the column; far behind it where there are none.
double lastPlaceOf(const SpaceBox &word, const SpaceBoxes &boxes)
{
    double place = 1e9;
    for (const SpaceBox &box : boxes)
        if (box.kind == SpaceBox::Kind::Text && box.box.top == word.box.top)
            place = std::min(place, box.box.left - gapBetweenWords - word.box.right);
    return place;
}

/// Ink of a grace note around the origin that those of all voices share.
Box boxOfChord(const EngravedBar &bar, const Chord &chord)
{
    Box box = {0, 0, chord.width, 0};
    for (std::uint32_t i = chord.firstInk; i < chord.inkEnd; ++i)
        box.add(bar.inks[i].box);
    box.add(chord.room);
    if (chord.isBeamed)
        box.add({chord.stemX, std::min(chord.stemRoot, chord.stemTip), chord.stemX,
                 std::max(chord.stemRoot, chord.stemTip)});
    return box.movedBy(chord.x, 0);
}

void placeGraceNotes(const std::vector<EngravedBar *> &rows, std::size_t columnCount)
{
    struct Grace {
        EngravedBar *bar;
        Chord *chord;
        Box box;
        SpaceBoxes words;
    };
    std::map<std::pair<unsigned, unsigned>, std::vector<Grace>> graces;
    std::map<unsigned, double> leftEdges;
    for (EngravedBar *row : rows) {
        auto word = row->graceWords.begin();
        for (Chord &chord : row->chords)
            if (chord.beat->isGrace() && chord.column < columnCount) {
                const auto number = static_cast<std::uint32_t>(&chord - row->chords.data());
                SpaceBoxes words;
                for (; word != row->graceWords.end() && word->chord <= number; ++word)
                    if (word->chord == number)
                        words.push_back(word->space);
                graces[{chord.column, chord.beat->graceRank}].push_back(
                    {row, &chord, boxOfChord(*row, chord), std::move(words)});
                double &edge = leftEdges.emplace(chord.column, 0.0).first->second;
                edge = std::min(edge, leftOf(row->columns[chord.column].boxes));
            }
    }
    for (auto &[key, members] : graces) {
        double &edge = leftEdges[key.first];
        double right = 0;
        double left = 0;
        for (const Grace &grace : members) {
            right = std::max(right, grace.box.right);
            left = std::min(left, grace.box.left);
        }
        double x = edge - 0.35 - right;
        for (const Grace &grace : members)
            for (const SpaceBox &word : grace.words)
                x = std::min(x, lastPlaceOf(word, grace.bar->columns[key.first].boxes));
        for (const Grace &grace : members) {
            auto &boxes = grace.bar->columns[key.first].boxes;
            grace.chord->x += x;
            boxes.push_back({grace.box.movedBy(x, 0), SpaceBox::Kind::Sign});
            for (const SpaceBox &word : grace.words)
                boxes.push_back({word.box.movedBy(x, 0), SpaceBox::Kind::Text});
        }
        edge = x + left;
    }
}

/// Notes are read by the last clef in front of them: none stands above or below one.
void placeClefs(const std::vector<EngravedBar *> &rows)
{
    constexpr double asHighAsNotes = 100;
    for (EngravedBar *row : rows)
        for (auto &clef : row->clefs) {
            if (clef.column >= row->columns.size())
                continue;
            auto &boxes = row->columns[clef.column].boxes;
            clef.ink.move(leftOf(boxes) - 0.4 - clef.ink.box.right, 0);
            const Box &box = clef.ink.box;
            boxes.push_back(
                {{box.left, -asHighAsNotes, box.right, asHighAsNotes}, SpaceBox::Kind::Sign});
        }
}

std::vector<double> springsOf(const std::vector<const BarSource *> &staves, const Onsets &onsets,
                              const rational &barLength)
{
    std::vector<rational> shortest(onsets.size());
    for (const BarSource *staff : staves)
        for (const VoiceSource &voice : staff->voices)
            for (const BeatSource &beat : voice.beats) {
                if (beat.isGrace() || beat.isWholeBarRest || beat.isPlaceHolder)
                    continue;
                const rational end = beat.onset + beat.length;
                auto column = static_cast<std::size_t>(
                    std::lower_bound(onsets.begin(), onsets.end(), beat.onset) - onsets.begin());
                for (; column < onsets.size() && onsets[column] < end; ++column)
                    if (shortest[column].isZero() || beat.length < shortest[column])
                        shortest[column] = beat.length;
            }
    std::vector<double> springs(onsets.size());
    for (std::size_t i = 0; i < onsets.size(); ++i) {
        const rational end = i + 1 < onsets.size() ? onsets[i + 1] : barLength;
        rational gap = end - onsets[i];
        if (gap.sign() <= 0)
            gap = i + 1 < onsets.size() || shortest[i].isZero() ? rational(1, 16) : shortest[i];
        const rational note = shortest[i].isZero() ? gap : shortest[i];
        springs[i] = naturalWidth(note) * (gap / note).toDouble();
    }
    return springs;
}

/// `places` are those of the start of the bar, its columns, and its end.
std::vector<WordEnds> wordEnds(const std::vector<EngravedBar *> &rows,
                               const std::vector<double> &places)
{
    std::vector<WordEnds> ends;
    for (unsigned row = 0; row < rows.size(); ++row) {
        std::map<int, WordEnds> ofRow;
        for (std::size_t column = 0; column < rows[row]->columns.size(); ++column)
            for (const SpaceBox &word : rows[row]->columns[column].boxes) {
                if (word.kind != SpaceBox::Kind::Text)
                    continue;
                const auto height = static_cast<int>(word.box.top);
                const double left = places[column + 1] + word.box.left;
                const double right = places[column + 1] + word.box.right - places.back();
                WordEnds &words =
                    ofRow.emplace(height, WordEnds{row, height, left, right}).first->second;
                words.before = std::min(words.before, left);
                words.after = std::max(words.after, right);
            }
        for (const auto &words : ofRow)
            ends.push_back(words.second);
    }
    return ends;
}

/// Words that begin at a time of a bar, and keep in front of the end of a line: those of a tempo,
/// and the beginnings of those of beats, which may stand a little ahead there.
std::vector<WordOverBar> textsOf(const ColumnSource &column,
                                 const std::vector<const BarSource *> &staves, const Onsets &onsets,
                                 const Fonts &fonts)
{
    constexpr double mostOfTempo = 30;
    constexpr double mostOfWords = 16;
    const Pen pen(fonts);
    std::vector<WordOverBar> texts;
    const auto add = [&](const Inks &inks, double time, double most) {
        const auto behind = std::find_if(onsets.begin(), onsets.end(), [&](const auto &onset) {
            return onset.toDouble() > time + 1e-6;
        });
        const auto number = static_cast<unsigned>(behind - onsets.begin());
        if (!inks.empty())
            texts.push_back({number, std::min(boxOf(inks).right, most)});
    };
    for (const TempoMark &tempo : column.tempos)
        add(tempoInks(pen, tempo, 0, 1), static_cast<double>(tempo.position), mostOfTempo);
    for (const BarSource *staff : staves)
        for (const VoiceSource &voice : staff->voices)
            for (const BeatSource &beat : voice.beats)
                if (beat.details && !beat.details->text.empty())
                    add(pen.words(MarkKind::Text, TextRole::Words, beat.details->text, 0, 0),
                        beat.onset.toDouble(), mostOfWords);
    return texts;
}

} // namespace

double naturalWidth(const rational &length)
{
    const double quarters = std::max(length.toDouble(), 1.0 / 64);
    return quarterWidth * std::pow(doublingRatio, std::log2(quarters));
}

Onsets onsetsOf(const std::vector<const BarSource *> &staves)
{
    Onsets onsets;
    for (const BarSource *staff : staves) {
        if (staff->simile != SimileMark::None)
            continue;
        for (const VoiceSource &voice : staff->voices)
            for (const BeatSource &beat : voice.beats)
                if ((!beat.isWholeBarRest && !beat.isPlaceHolder) || beat.carriesSigns())
                    onsets.push_back(beat.onset);
    }
    std::sort(onsets.begin(), onsets.end());
    onsets.erase(std::unique(onsets.begin(), onsets.end()), onsets.end());
    return onsets;
}

void placeInFront(const std::vector<EngravedBar *> &rows, std::size_t columnCount)
{
    placeGraceNotes(rows, columnCount);
    placeClefs(rows);
}

SpacedBar spaceBar(const std::vector<EngravedBar *> &rows,
                   const std::vector<const BarSource *> &staves, const ColumnSource &column,
                   Onsets onsets, double ratio, const Fonts &fonts)
{
    SpacedBar bar;
    bar.springs = springsOf(staves, onsets, column.length);
    bar.onsets = std::move(onsets);
    const auto count = static_cast<unsigned>(bar.onsets.size());
    for (double &spring : bar.springs)
        spring *= ratio;
    placeInFront(rows, count);

    bar.firstGap = firstGap;
    for (const EngravedBar *row : rows)
        if (!row->centred.empty())
            bar.emptyWidth = std::max(bar.emptyWidth, row->centredWidth + 3);
    bar.emptyWidth = std::max(bar.emptyWidth, emptyBar) * ratio;
    const double head = fonts.box(Sign::NoteheadBlack).right;
    double clefsAtEnd = 0;
    for (const EngravedBar *row : rows)
        for (const auto &clef : row->clefs)
            if (clef.column >= count)
                clefsAtEnd = std::max(clefsAtEnd, clef.ink.box.width() + 0.5);

    std::size_t columns = 1;
    for (const EngravedBar *row : rows)
        columns += row->columns.size();
    // From the start of the bar, from the last column, to the end.
    constexpr std::size_t rodsOfColumn = 3;
    auto &rods = bar.rods;
    rods.reserve(rodsOfColumn * columns);
    PassedColumns passed;
    for (const EngravedBar *row : rows) {
        passed.clear();
        WordColumns words;
        for (unsigned i = 0; i < count; ++i) {
            const auto &boxes = row->columns[i].boxes;
            if (boxes.empty())
                continue;
            const unsigned to = i + 1;
            rods.push_back({0, to, gapBehindBarLine - leftOf(boxes), gapBehindBarLine - leastAir});
            const auto keepFrom = [&](unsigned from) {
                const Distance least = distance(row->columns[from].boxes, boxes);
                if (least.length > 0)
                    rods.push_back({from + 1, to, least.length, least.air});
                return least.length - least.air;
            };
            passed.next(i, boxes, keepFrom);
            // A word may reach over several columns of other voices.
            for (const unsigned from : words.before(boxes, i))
                keepFrom(from);
            rods.push_back({to, count + 1, rightOf(boxes) + gapToBarLine + clefsAtEnd,
                            gapToBarLine - leastAir});
        }
    }
    for (unsigned to = 2; to <= count; ++to)
        rods.push_back({to - 1, to, leastStep, airOfStep});
    if (count > 0)
        rods.push_back(
            {count, count + 1, head + gapToBarLine + clefsAtEnd, gapToBarLine - leastAir});
    const double least = bar.emptyWidth * (count == 0 ? 0.7 : 0.4);
    rods.push_back({0, count + 1, least, least / 2});
    // What stands in the middle of a bar keeps off its lines, however narrow the bar is to be, and
    // off its clefs.
    for (const EngravedBar *row : rows) {
        if (row->centred.empty())
            continue;
        const double room = row->centredWidth + clefsAtEnd + 1.2;
        rods.push_back({0, count + 1, room, 0.8});
        for (const auto &clef : row->clefs)
            if (clef.column < count)
                rods.push_back({clef.column + 1, count + 1, room, 0.4});
    }
    if (column.endings != 0) {
        // Bars under an ending are as long as its numbers.
        const double words = fonts.textBox(column.endingText, TextRole::Ending).right + 1.2;
        rods.push_back({0, count + 1, words, 0});
    }
    std::stable_sort(rods.begin(), rods.end(),
                     [](const SpacedBar::Rod &a, const SpacedBar::Rod &b) { return a.to < b.to; });

    SpringLine line;
    line.reserve(count + 2, rods.size());
    line.addColumn(0, 0);
    bar.addTo(line);
    const std::vector<double> places = line.places(0);
    bar.width.least = places.back();
    bar.words = wordEnds(rows, places);
    bar.texts = textsOf(column, staves, bar.onsets, fonts);
    for (const WordOverBar &text : bar.texts)
        bar.textsAfter = std::max(bar.textsAfter, places[text.column] + text.reach - places.back());
    double springs = count == 0 ? bar.emptyWidth : 0;
    for (const double spring : bar.springs)
        springs += spring;
    bar.width.spring = springs;
    bar.width.fixed = line.width(1) - springs;
    return bar;
}

void SpacedBar::addTo(SpringLine &line) const
{
    const unsigned start = line.columnCount() - 1;
    const auto count = static_cast<unsigned>(onsets.size());
    auto rod = rods.begin();
    for (unsigned column = 1; column <= count + 1; ++column) {
        if (count == 0)
            line.addColumn(0, emptyWidth);
        else
            line.addColumn(column == 1 ? firstGap : 0, column == 1 ? 0 : springs[column - 2]);
        for (; rod != rods.end() && rod->to == column; ++rod)
            line.addRod(start + rod->from, rod->length, rod->air);
    }
}

} // namespace zarn::engraving
