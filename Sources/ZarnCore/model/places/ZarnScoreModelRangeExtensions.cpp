// SPDX-License-Identifier: MIT
// Ranges that are widened to other bars, or mapped onto another voice.
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <ZarnCore/model/places/NodesOfIndex.h>
#include <ZarnCore/model/places/ZarnRangeBarIterator.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace zarn {
namespace {

/// The bars from one number to another in some staves.
struct Selection {
    int first;
    int last;
    std::vector<const Staff *> staves;

    int barCount() const noexcept { return last - first + 1; }
    void reach(int bar) noexcept
    {
        first = std::min(first, bar);
        last = std::max(last, bar);
    }
};

/// Without staves when the range selects no bars.
Selection selectionOf(const ScoreModelRange &range)
{
    const auto bars = std::minmax({range.first().barIndex(), range.second().barIndex()});
    Selection selection{bars.first, bars.second, {}};
    for (RangeBarIterator it(range); it.oneStep();)
        if (it.isFirstBar())
            selection.staves.push_back(it.bar()->parentStaff().get());
    return selection;
}

const Bar *barAt(const Staff &staff, int bar) noexcept
{
    const auto *found = childAt(staff.bars(), bar);
    return found ? found->get() : nullptr;
}

/// Whether a note of one of the voices is held over the bar line in front of a bar.
bool isCrossedByTie(const Staff &staff, int bar, unsigned firstVoice, unsigned lastVoice) noexcept
{
    const auto anyNote = [](const Beat &beat, bool (Note::*is)() const noexcept) {
        return std::any_of(beat.notes().begin(), beat.notes().end(),
                           [is](const auto &note) { return ((*note).*is)(); });
    };
    const Bar *const before = barAt(staff, bar - 1);
    const Bar *const behind = barAt(staff, bar);
    for (unsigned i = firstVoice; before && behind && i <= lastVoice; ++i) {
        const auto *from = childAt(before->voices(), i);
        const auto *to = childAt(behind->voices(), i);
        if (!from || !*from || (*from)->isEmpty() || !*to || (*to)->isEmpty())
            continue;
        if (anyNote(*(*from)->beats().back(), &Note::isTieOrigin)
            && anyNote(*(*to)->beats().front(), &Note::isTied))
            return true;
    }
    return false;
}

/// How many bars before it the bar lies that a simile bar repeats; 0 for any other, and at the
/// front, where there is none.
int simileStep(const Staff &staff, int bar) noexcept
{
    const Bar *const node = barAt(staff, bar);
    if (!node || !node->isSimile())
        return 0;
    const int step = node->simileMark() == SimileMark::Simple ? 1 : 2;
    return step <= bar ? step : 0;
}

/// The bar that is heard when a bar is played.
int soundingBar(const Staff &staff, int bar) noexcept
{
    while (const int step = simileStep(staff, bar))
        bar -= step;
    return bar;
}

/// Back to the bars that its simile bars repeat, then on to the simile bars that repeat its bars.
/// A mark reaches two bars back at most, so looking at two bars on either side is enough.
void reachSimiles(const Staff &staff, Selection &selection) noexcept
{
    int &first = selection.first;
    int &last = selection.last;
    const auto repeatsEarlierBar = [&](int bar) {
        return bar <= last && bar - simileStep(staff, bar) < first;
    };
    while (repeatsEarlierBar(first) || repeatsEarlierBar(first + 1))
        --first;
    const auto repeatsBar = [&](int bar) {
        const int step = simileStep(staff, bar);
        return step != 0 && bar - step >= first && bar - step <= last;
    };
    while (repeatsBar(last + 1) || repeatsBar(last + 2))
        ++last;
}

} // namespace

ScoreModelRange ScoreModelRange::overBars(int firstBar, int lastBar) const
{
    const bool ordered = _first.barIndex() <= _second.barIndex();
    ScoreModelRange range(*this);
    range._first = ordered ? _first : _second;
    range._second = ordered ? _second : _first;
    const auto place = [](ScoreModelIndex &end, int bar, bool atEnd) {
        end.invalidateBar();
        end.setBarIndex(bar);
        const auto *voice = findVoice(end);
        if (voice && !(*voice)->isEmpty())
            end.setBeatIndex(atEnd ? static_cast<int>((*voice)->beatCount()) - 1 : 0);
    };
    place(range._first, firstBar, false);
    place(range._second, lastBar, true);
    range.setMultiSelection(true);
    return range;
}

bool ScoreModelRange::hasAnySimile() const
{
    for (RangeBarIterator it(*this); it.oneStep();)
        if (it.bar()->isSimile())
            return true;
    return false;
}

ScoreModelRange ScoreModelRange::extendedBarRange() const
{
    return extendedBorderBarRange(0);
}

ScoreModelRange ScoreModelRange::extendedBorderBarRange(int count) const
{
    const Selection selection = selectionOf(*this);
    if (selection.staves.empty())
        return *this;
    const int lastBar = static_cast<int>(selection.staves.front()->barCount()) - 1;
    const int border = std::clamp(count, 0, lastBar);
    return overBars(std::max(selection.first - border, 0),
                    std::min(selection.last + border, lastBar));
}

ScoreModelRange ScoreModelRange::extendedTiedBarRange(int limit) const
{
    const Selection selection = selectionOf(*this);
    if (selection.staves.empty())
        return *this;
    const unsigned firstVoice = isMultiVoice() ? 0 : _first.voiceIndex();
    const unsigned lastVoice = isMultiVoice() ? Bar::MaxVoices - 1 : firstVoice;
    const auto isCrossed = [&](int bar) {
        return std::any_of(
            selection.staves.begin(), selection.staves.end(),
            [&](const Staff *staff) { return isCrossedByTie(*staff, bar, firstVoice, lastVoice); });
    };
    Selection reached = selection;
    const int most = limit < 0 ? std::numeric_limits<int>::max() : limit;
    for (int left = most; left > 0 && isCrossed(reached.first); --left)
        --reached.first;
    for (int left = most; left > 0 && isCrossed(reached.last + 1); --left)
        ++reached.last;
    return overBars(reached.first, reached.last);
}

ScoreModelRange ScoreModelRange::extendedSoundingSimileRange() const
{
    const Selection selection = selectionOf(*this);
    if (selection.staves.empty())
        return *this;
    Selection reached = selection;
    int barCount = 0;
    while (barCount != reached.barCount()) {
        barCount = reached.barCount();
        for (const Staff *const staff : selection.staves)
            reachSimiles(*staff, reached);
    }
    return overBars(reached.first, reached.last);
}

ScoreModelRange ScoreModelRange::soundingBarRange() const
{
    const Selection selection = selectionOf(*this);
    if (selection.staves.empty())
        return *this;
    // What any simile bar of the range repeats is heard in the first two bars, or is one of them.
    const int second = std::min(selection.first + 1, selection.last);
    Selection reached{selection.last, 0, {}};
    for (const Staff *const staff : selection.staves) {
        reached.reach(soundingBar(*staff, selection.first));
        reached.reach(soundingBar(*staff, second));
        int last = selection.last;
        while (last > second && simileStep(*staff, last) != 0)
            --last;
        if (simileStep(*staff, last) == 0)
            reached.reach(last);
    }
    return overBars(reached.first, reached.last);
}

ScoreModelRange ScoreModelRange::extendedBarRange(const ScoreModelRange &range)
{
    return range.extendedBarRange();
}

ScoreModelRange ScoreModelRange::extendedBorderBarRange(const ScoreModelRange &range, int count)
{
    return range.extendedBorderBarRange(count);
}

ScoreModelRange ScoreModelRange::extendedTiedBarRange(const ScoreModelRange &range, int limit)
{
    return range.extendedTiedBarRange(limit);
}

ScoreModelRange ScoreModelRange::extendedSoundingSimileRange(const ScoreModelRange &range)
{
    return range.extendedSoundingSimileRange();
}

ScoreModelRange ScoreModelRange::soundingBarRange(const ScoreModelRange &range)
{
    return range.soundingBarRange();
}

ScoreModelIndex ScoreModelRange::mapFirst(unsigned voice) const
{
    return _first.mapOnVoice(voice, true);
}

ScoreModelIndex ScoreModelRange::mapSecond(unsigned voice) const
{
    return _second.mapOnVoice(voice, true);
}

ScoreModelRange ScoreModelRange::mapRange(unsigned voice) const
{
    ScoreModelRange range(*this);
    range._first = mapFirst(voice);
    range._second = mapSecond(voice);
    return range;
}

} // namespace zarn
