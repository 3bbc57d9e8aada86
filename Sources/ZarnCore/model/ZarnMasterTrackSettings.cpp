// SPDX-License-Identifier: MIT
// Directions, tempo and the other settings of the master track.
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <ZarnCore/model/MasterTrackPrivate.h>
#include <ZarnCore/model/form/ZarnPlayList.h>

#include <algorithm>

namespace zarn {

int MasterTrack::directionIndex(DirectionMark mark) const noexcept
{
    return mark < DirectionMark::NoDirection ? _d->directions[static_cast<std::size_t>(mark)] : -1;
}

void MasterTrack::setDirection(int kind, int barIndex) noexcept
{
    if (kind < 0 || kind >= DirectionMarkCount)
        return;
    _d->directions[static_cast<std::size_t>(kind)] = barIndex;
    _d->playList.forget();
}

const MasterTrack::DirectionSlots &MasterTrack::directionSlots() const noexcept
{
    return _d->directions;
}

void MasterTrack::setDirectionSlots(const DirectionSlots &bars) noexcept
{
    _d->directions = bars;
    _d->playList.forget();
}

std::set<DirectionMark> MasterTrack::directionsAtBarIndex(int barIndex) const
{
    std::set<DirectionMark> marks;
    if (barIndex < 0)
        return marks;
    for (int kind = 0; kind < DirectionMarkCount; ++kind)
        if (_d->directions[static_cast<std::size_t>(kind)] == barIndex)
            marks.insert(static_cast<DirectionMark>(kind));
    return marks;
}

bool MasterTrack::hasAnyDirectionAtBarIndex(int barIndex) const noexcept
{
    return barIndex >= 0
        && std::find(_d->directions.begin(), _d->directions.end(), barIndex)
        != _d->directions.end();
}

int MasterTrack::jumpIndexForDirection(int kind) const noexcept
{
    if (kind < 0 || kind >= DirectionMarkCount || !isJump(static_cast<DirectionMark>(kind)))
        return -1;
    const DirectionMark target = targetOfDirection(static_cast<DirectionMark>(kind));
    if (target != DirectionMark::NoDirection)
        return directionIndex(target);
    const int bar = directionIndex(static_cast<DirectionMark>(kind));
    return bar < 0 ? 0 : static_cast<int>(movementStart(static_cast<unsigned>(bar)));
}

unsigned MasterTrack::movementStart(unsigned bar) const noexcept
{
    if (!hasMasterBarIndex(bar))
        return 0;
    while (bar > 0 && !masterBars()[bar]->isMovementStart())
        --bar;
    return bar;
}

const MasterTrack::PlayList &MasterTrack::playlist() const
{
    return _d->playList.get([this] { return unfoldPlayList(*this); });
}

void MasterTrack::updatePlayList() noexcept
{
    _d->playList.forget();
}

const TempoSettings &MasterTrack::tempoSettings() const noexcept
{
    return _d->tempo;
}

void MasterTrack::setTempoSettings(const TempoSettings &settings)
{
    _d->tempo = settings;
}

void MasterTrack::setTempoValue(double value)
{
    _d->tempo.value = value;
}

void MasterTrack::setTempoUnit(TempoUnit unit)
{
    _d->tempo.unit = unit;
}

void MasterTrack::setTempoLabel(const std::string &label)
{
    _d->tempo.label = label;
}

void MasterTrack::setTempoVisible(bool visible)
{
    _d->tempo.visible = visible;
}

double MasterTrack::quarterTempoValue() const noexcept
{
    // Quarters per unit; no unit counts as quarters.
    constexpr double quarters[] = {1, 0.5, 1, 1.5, 2, 3};
    const auto unit = static_cast<std::size_t>(tempoUnit());
    return tempoValue() * (unit < std::size(quarters) ? quarters[unit] : 1);
}

bool MasterTrack::hasAnacrusis() const noexcept
{
    return _d->anacrusis;
}

void MasterTrack::setAnacrusis(bool anacrusis) noexcept
{
    _d->anacrusis = anacrusis;
}

const Mastering &MasterTrack::mastering() const noexcept
{
    return _d->mastering;
}

Mastering &MasterTrack::mutableMastering() noexcept
{
    return _d->mastering;
}

void MasterTrack::setMastering(const Mastering &mastering)
{
    _d->mastering = mastering;
}

} // namespace zarn
