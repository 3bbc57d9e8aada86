// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnTouchedBars.h>

#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <tuple>

namespace zarn {

void TouchedBars::clear() noexcept
{
    _content.clear();
    _similes.clear();
    _allTracks.reset();
}

void TouchedBars::add(unsigned track, unsigned staff, unsigned first, unsigned last)
{
    const bool isCovered = _allTracks && _allTracks->first <= first && last <= _allTracks->second;
    if (!isCovered)
        _content.push_back({track, staff, first, last});
}

void TouchedBars::addAllTracks(unsigned first, unsigned last)
{
    _allTracks = std::make_pair(first, last);
}

void TouchedBars::add(const ScoreModelRange &range)
{
    const std::pair<unsigned, unsigned> bars =
        std::minmax({static_cast<unsigned>(range.first().barIndex()),
                     static_cast<unsigned>(range.second().barIndex())});
    if (range.isMultiTrack()) {
        _allTracks = bars;
        return;
    }
    const auto staves = stavesOf(range);
    for (unsigned staff = staves.first; staff <= staves.second; ++staff)
        add(static_cast<unsigned>(range.first().trackIndex()), staff, bars.first, bars.second);
}

void TouchedBars::addSimile(unsigned track, unsigned staff, unsigned bar)
{
    _similes.push_back({track, staff, bar, bar});
}

void TouchedBars::announce(ScoreBase &score, const void *sender, unsigned from,
                           unsigned count) const
{
    if (_allTracks)
        score.notify(sender,
                     evt::ModifyBarRangeAllTracks(static_cast<int>(_allTracks->first),
                                                  static_cast<int>(_allTracks->second)));
    announceRuns<evt::ModifyBarRange>(_content, score, sender, from, count);
    announceRuns<evt::SimileMarkBarChanged>(_similes, score, sender, from, count);
}

template <class Event>
void TouchedBars::announceRuns(Runs runs, ScoreBase &score, const void *sender, unsigned from,
                               unsigned count)
{
    for (Run &run : runs) {
        run.first += run.first >= from ? count : 0;
        run.last += run.last >= from ? count : 0;
    }
    std::sort(runs.begin(), runs.end(), [](const Run &a, const Run &b) {
        return std::tie(a.track, a.staff, a.first) < std::tie(b.track, b.staff, b.first);
    });
    for (auto run = runs.begin(); run != runs.end();) {
        Run merged = *run;
        for (++run; run != runs.end() && run->track == merged.track && run->staff == merged.staff
             && run->first <= merged.last + 1;
             ++run)
            merged.last = std::max(merged.last, run->last);
        score.notify(sender,
                     Event(static_cast<int>(merged.track), static_cast<int>(merged.staff),
                           static_cast<int>(merged.first), static_cast<int>(merged.last)));
    }
}

} // namespace zarn
