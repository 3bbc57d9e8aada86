// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnModifyBarRangeAllTracks.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Bar/SwapColumns.h>
#include <ZarnCore/commands/Bar/ZarnCreateBars.h>
#include <ZarnCore/commands/Bar/ZarnRemoveBars.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::cmd {

ModifyBarRangeAllTracks::ModifyBarRangeAllTracks()
    : CompoundCommand(QStringLiteral("ModifyBarRangeAllTracks"))
{
}

ModifyBarRangeAllTracks::~ModifyBarRangeAllTracks() = default;

bool ModifyBarRangeAllTracks::init(Score *score, unsigned first, unsigned last, BarColumns columns)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyBarRangeAllTracks::init", score != NULL);
    setScore(score);
    _target = score;
    _first = first;
    _last = last;
    _count = columns.count();
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    addArg(QStringLiteral("Count"), QString::number(_count));
    std::vector<BarStretch> stretches;
    for (unsigned track = 0; track < columns.bars.size(); ++track) {
        _staffCounts.push_back(columns.bars[track].size());
        for (unsigned staff = 0; staff < columns.bars[track].size(); ++staff) {
            if (columns.bars[track][staff].size() != _count)
                return false;
            stretches.push_back({track, staff, first, std::move(columns.bars[track][staff])});
        }
    }
    auto swap = std::make_unique<SwapColumns>();
    if (first > last
        || !swap->init(score, std::move(stretches), first, std::move(columns.masterBars)))
        return false;
    _swap = std::move(swap);
    return expectPlace([this] { return isPossible(); });
}

bool ModifyBarRangeAllTracks::isPossible() const
{
    const unsigned present = model().masterTrack()->masterBarCount();
    const auto &tracks = model().tracks();
    return _swap != nullptr && _last < present
        && present - (_last - _first + 1) + _count <= MasterTrack::MaxBars
        && std::equal(
               tracks.begin(), tracks.end(), _staffCounts.begin(), _staffCounts.end(),
               [](const auto &track, std::size_t count) { return track->staffCount() == count; });
}

void ModifyBarRangeAllTracks::plan()
{
    requirePlace(isPossible());
    const unsigned replaced = _last - _first + 1;
    if (_count > replaced) {
        auto more = std::make_unique<CreateBars>();
        requirePlace(more->init(_target, _last + 1, _count - replaced));
        addStep(std::move(more));
    } else if (_count < replaced) {
        auto less = std::make_unique<RemoveBars>();
        requirePlace(less->init(_target, _first + _count, _last));
        addStep(std::move(less));
    }
    addStep(std::move(_swap));
}

} // namespace zarn::cmd
