// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/BarSelection.h>

#include <ZarnCore/model/places/NodesOfIndex.h>
#include <ZarnCore/model/places/ZarnRangeBarIterator.h>

namespace zarn {
namespace {

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

} // namespace

int simileStep(const Staff &staff, int bar) noexcept
{
    const Bar *const node = barAt(staff, bar);
    if (!node || !node->isSimile())
        return 0;
    const int step = node->simileMark() == SimileMark::Simple ? 1 : 2;
    return step <= bar ? step : 0;
}

int soundingBar(const Staff &staff, int bar) noexcept
{
    while (const int step = simileStep(staff, bar))
        bar -= step;
    return bar;
}

BarSelection BarSelection::of(const ScoreModelRange &range)
{
    const auto bars = std::minmax({range.first().barIndex(), range.second().barIndex()});
    BarSelection selection{bars.first, bars.second, {}};
    for (RangeBarIterator it(range); it.oneStep();)
        if (it.isFirstBar())
            selection.staves.push_back(it.bar()->parentStaff().get());
    return selection;
}

void BarSelection::reachSimiles(const Staff &staff) noexcept
{
    // A mark reaches two bars back at most, so looking at two bars on either side is enough.
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

BarSelection BarSelection::sounding() const
{
    // What any simile bar of the range repeats is heard in the first two bars, or is one of them.
    const int second = std::min(first + 1, last);
    BarSelection reached{last, 0, {}};
    for (const Staff *const staff : staves) {
        reached.reach(soundingBar(*staff, first));
        reached.reach(soundingBar(*staff, second));
        int end = last;
        while (end > second && simileStep(*staff, end) != 0)
            --end;
        if (simileStep(*staff, end) == 0)
            reached.reach(end);
    }
    return reached;
}

bool BarSelection::isCrossedByTie(int bar, unsigned firstVoice, unsigned lastVoice) const noexcept
{
    return std::any_of(staves.begin(), staves.end(), [&](const Staff *staff) {
        return zarn::isCrossedByTie(*staff, bar, firstVoice, lastVoice);
    });
}

} // namespace zarn
