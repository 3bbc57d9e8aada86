// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/SystemBreaks.h>

#include <ZarnLayout/page/BarLines.h>
#include <ZarnLayout/page/WordRods.h>

#include <algorithm>
#include <utility>

namespace zarn::engraving {

namespace {

/// How much farther apart two bars are than so far, for their words to keep apart.
double roomOfWords(const ShownColumn &before, const ShownColumn &column, double distance)
{
    double room = 0;
    for (const WordEnds &last : before.words)
        for (const WordEnds &first : column.words)
            if (last.row == first.row && last.height == first.height)
                room = std::max(room, last.after + gapOfWords - distance - first.before);
    return room;
}

} // namespace

void SystemBreaks::measure(const EngravedScore &score, const std::vector<std::uint32_t> &origins,
                           const Pen &pen)
{
    const auto count = static_cast<unsigned>(score.shown.size());
    const auto oldCount = static_cast<unsigned>(_bars.size());
    moveBars(origins);
    // By the bar in front, and the one behind.
    const auto isBehindTheSame = [&](unsigned i) {
        return i == 0 ? origins[i] == 0
                      : origins[i - 1] != isNew && origins[i - 1] + 1 == origins[i];
    };
    const auto isInFrontOfTheSame = [&](unsigned i) {
        return i + 1 == count ? origins[i] + 1 == oldCount : isBehindTheSame(i + 1);
    };
    for (unsigned i = 0; i < count; ++i) {
        const bool hasSameJoint = origins[i] != isNew && isBehindTheSame(i);
        if (hasSameJoint && isInFrontOfTheSame(i))
            continue;
        Joint &joint = _joints[i];
        if (!hasSameJoint) {
            joint.middle = jointBefore(score, i, JointPlace::Middle, pen).width;
            joint.head = jointBefore(score, i, JointPlace::Head, pen).width - joint.middle;
            joint.words =
                i == 0 ? 0 : roomOfWords(*score.columns[i - 1], *score.columns[i], joint.middle);
        }
        BarWidth bar = score.columns[i]->width;
        bar.fixed += joint.middle;
        bar.least += joint.middle;
        bar.words = joint.words;
        for (const WordEnds &words : score.columns[i]->words)
            bar.wordsAtEnd = std::max(bar.wordsAtEnd, words.after + 0.1);
        bar.wordsAtEnd = std::max(bar.wordsAtEnd, score.columns[i]->textsAfter);
        bar.headOfLine = joint.head;
        bar.breaksBefore = i > 0 && score.column(i).movementStart;
        bar.endsSection = score.lastColumn(i).doubleBar
            || (i + 1 < count && !score.column(i + 1).section.letter.empty());
        _isOther = _isOther || !(bar == _bars[i]);
        _bars[i] = bar;
    }
}

/// Puts what is known of bars where these stand now.
void SystemBreaks::moveBars(const std::vector<std::uint32_t> &origins)
{
    bool isInPlace = origins.size() == _bars.size();
    for (std::size_t i = 0; isInPlace && i < origins.size(); ++i)
        isInPlace = origins[i] == i || origins[i] == isNew;
    if (isInPlace)
        return;
    _isOther = true;
    const std::vector<Joint> joints = std::exchange(_joints, std::vector<Joint>(origins.size()));
    const std::vector<BarWidth> bars = std::exchange(_bars, std::vector<BarWidth>(origins.size()));
    for (std::size_t i = 0; i < origins.size(); ++i)
        if (origins[i] != isNew) {
            _joints[i] = joints[origins[i]];
            _bars[i] = bars[origins[i]];
        }
}

const std::vector<unsigned> &SystemBreaks::find(const ScoreSource &source,
                                                const std::vector<ShownBar> &shown,
                                                const Widths &widths)
{
    const bool isListed = !source.systems.empty() || source.usualBars > 0;
    if (!_isOther && _widths == widths && _listed == source.systems && _usual == source.usualBars
        && (!isListed || _shown == shown))
        return _lines;
    _isOther = false;
    _widths = widths;
    _listed = source.systems;
    _usual = source.usualBars;
    _shown = shown;
    _problems = {};
    if (isListed)
        breakAsListed(source, shown, widths);
    else
        _lines = breakLines(_bars, widths.first, widths.others);
    return _lines;
}

void SystemBreaks::breakAsListed(const ScoreSource &source, const std::vector<ShownBar> &shown,
                                 const Widths &widths)
{
    _lines.clear();
    const auto count = static_cast<unsigned>(shown.size());
    unsigned bar = 0; // shown
    unsigned listed = 0;
    unsigned listedEnd = 0; // in bars of the score
    const unsigned end = shown.back().bar + shown.back().count;
    const auto breakFreely = [&](unsigned from, unsigned to, double room) {
        const std::vector<BarWidth> line(_bars.begin() + from, _bars.begin() + to);
        for (const unsigned size : breakLines(line, room, widths.others))
            _lines.push_back(size);
    };
    while (bar < count) {
        const double room = bar == 0 ? widths.first : widths.others;
        while (listedEnd <= shown[bar].bar && listed < source.systems.size())
            listedEnd += static_cast<unsigned>(std::max(source.systems[listed++], 1));
        if (listedEnd <= shown[bar].bar) {
            if (source.usualBars == 0) {
                breakFreely(bar, count, room);
                return;
            }
            listedEnd = shown[bar].bar + source.usualBars;
        }
        listedEnd = std::min(listedEnd, end);
        unsigned lineEnd = bar;
        while (lineEnd < count && shown[lineEnd].bar < listedEnd)
            ++lineEnd;
        double least = 0;
        for (unsigned i = bar; i < lineEnd; ++i)
            least += _bars[i].least + (i == bar ? _bars[i].headOfLine : _bars[i].words);
        if (least <= room || lineEnd - bar == 1) {
            _lines.push_back(lineEnd - bar);
        } else {
            MarkPlace place;
            place.bar = static_cast<std::int32_t>(shown[bar].bar);
            _problems.add(place, "The bars that the system should hold find no room in it.");
            breakFreely(bar, lineEnd, room);
        }
        bar = lineEnd;
    }
}

} // namespace zarn::engraving
