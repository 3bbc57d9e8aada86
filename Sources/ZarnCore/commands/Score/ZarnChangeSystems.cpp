// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnChangeSystems.h>

#include <ZarnCore/commands/AnnounceSystems.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <utility>

namespace zarn {

bool ChangeSystems::prepare(Score *score, int track, std::vector<int> systems,
                            std::optional<unsigned> defaultCount)
{
    setScore(score);
    _track = track;
    _systems = std::move(systems);
    _defaultCount = defaultCount;
    const bool arePossible = std::all_of(_systems.begin(), _systems.end(),
                                         [](int bars) { return bars >= 1 && bars <= MostBars; });
    return arePossible && track >= FullScore && expectPlace([this] { return hasPlace(); });
}

bool ChangeSystems::hasPlace() const
{
    return _track == FullScore || model().hasTrackIndex(static_cast<unsigned>(_track));
}

ChangeSystems::Layout ChangeSystems::layout() const
{
    if (_track == FullScore)
        return {model().fullScoreSystemsLayout(), model().fullScoreDefaultBarCountBySystem()};
    const Track &track = *model().tracks()[static_cast<unsigned>(_track)];
    return {track.systemsLayout(), track.defaultBarCountBySystem()};
}

void ChangeSystems::setLayout(const Layout &layout)
{
    if (_track == FullScore) {
        model().setFullScoreSystemsLayout(layout.systems);
        model().setFullScoreDefaultBarCountBySystem(layout.defaultCount);
        return;
    }
    Track &track = *model().tracks()[static_cast<unsigned>(_track)];
    TrackSettings settings = track.settings();
    settings.systemsLayout = layout.systems;
    settings.defaultBarCountBySystem = layout.defaultCount;
    track.setSettings(settings);
}

void ChangeSystems::apply()
{
    requirePlace(hasPlace());
    _before = layout();
    setLayout({_systems, _defaultCount.value_or(_before.defaultCount)});
}

void ChangeSystems::revert()
{
    setLayout(_before);
}

void ChangeSystems::announceApplied()
{
    announceSystems(score(), this, _track);
}

void ChangeSystems::announceReverted()
{
    announceSystems(score(), this, _track);
}

} // namespace zarn
