// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <ZarnCore/model/ZarnLazy.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/Directions.h>
#include <ZarnCore/model/form/ZarnPlayList.h>
#include <ZarnCore/model/form/ZarnTempoUnitLength.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <algorithm>

namespace zarn {

/// State of a master track beside its master bars and automations.
struct MasterTrack::Private {
    Mastering mastering = Mastering::makeDefault();
    TempoSettings tempo;
    Directions directions;
    Lazy<PlayList> playList;
    bool anacrusis = false;
};

MasterTrack::MasterTrack() : _d(std::make_unique<Private>()) { }

MasterTrack::MasterTrack(const MasterTrack &other)
    : AutomationContainer(other), std::enable_shared_from_this<MasterTrack>(),
      ChildLink<ScoreModel>(), ParentNode<MasterTrack>(other), DirectionAccessors<MasterTrack>(),
      _masterBars(other._masterBars), _d(std::make_unique<Private>(*other._d))
{
}

MasterTrack &MasterTrack::operator=(const MasterTrack &other)
{
    if (this == &other)
        return *this;
    AutomationContainer::operator=(other);
    _masterBars = other._masterBars;
    *_d = *other._d;
    markOrphans();
    return *this;
}

MasterTrack::~MasterTrack() = default;

std::shared_ptr<MasterTrack> MasterTrack::cloneMasterTrack() const
{
    return ChildLinkAccess::clone(*this);
}

void MasterTrack::copyFrom(const MasterTrack &other, const ScoreModelRange *range)
{
    if (this != &other)
        *this = other;
    if (!range || !hasMasterBars())
        return;
    const int last = std::min(range->second().barIndex(), static_cast<int>(masterBarCount()) - 1);
    const int first = std::max(range->first().barIndex(), 0);
    if (first > last) {
        clear();
        return;
    }
    if (static_cast<unsigned>(last) + 1 < masterBarCount())
        removeMasterBars(static_cast<unsigned>(last) + 1, masterBarCount() - 1);
    if (first > 0)
        removeMasterBars(0, static_cast<unsigned>(first) - 1);
}

void MasterTrack::setParentScoreModel(const std::shared_ptr<ScoreModel> &model)
{
    ChildLinkAccess::setParent(*this, model);
}

void MasterTrack::addMasterBar(const std::shared_ptr<MasterBar> &bar)
{
    insertMasterBar(masterBarCount(), bar);
}

void MasterTrack::insertMasterBar(unsigned index, const std::shared_ptr<MasterBar> &bar)
{
    ChildLinkAccess::requireDetached(bar);
    moveMarks(index, 1);
    insertMasterBarBlock(index, {bar});
}

void MasterTrack::addEmptyMasterBars(unsigned count)
{
    insertEmptyMasterBars(masterBarCount(), count);
}

void MasterTrack::insertEmptyMasterBars(unsigned index, unsigned count)
{
    if (count == 0)
        return;
    MasterBar model;
    if (hasMasterBars()) {
        const unsigned at = std::min(index, masterBarCount());
        const MasterBar &near = *masterBars()[at == 0 ? 0 : at - 1];
        model.setTimeSignature(near.timeSignature());
        model.setMeterSign(near.meterSign());
        model.setConcertKeySignature(near.concertKeySignature());
        model.setTripletFeel(near.tripletFeel());
    }
    MasterBars bars(count);
    for (auto &bar : bars)
        bar = std::make_shared<MasterBar>(model);
    moveMarks(index, count);
    insertMasterBarBlock(index, std::move(bars));
}

void MasterTrack::removeMasterBar(unsigned index)
{
    removeMasterBars(index, index);
}

void MasterTrack::removeMasterBars(unsigned first, unsigned last)
{
    if (first >= masterBarCount() || first > last)
        return;
    last = std::min(last, masterBarCount() - 1);
    eraseBlocks(first, last);
    removeDirections(first, last);
    handOnMovementStart(first, last);
    takeMasterBarBlock(first, last);
}

void MasterTrack::clear()
{
    clearAutomations();
    _d->directions = Directions();
    if (hasMasterBars())
        takeMasterBarBlock(0, masterBarCount() - 1);
}

void MasterTrack::insertMasterBarBlock(unsigned index, MasterBars bars)
{
    _masterBars.insert(index, std::move(bars), asParent());
    _d->playList.forget();
}

MasterTrack::MasterBars MasterTrack::takeMasterBarBlock(unsigned first, unsigned last)
{
    _d->playList.forget();
    return _masterBars.take(first, last);
}

void MasterTrack::moveMarks(unsigned index, unsigned count)
{
    if (index >= masterBarCount())
        return;
    insertBlocks(index, count);
    _d->directions.insertBars(index, count);
}

void MasterTrack::removeDirections(unsigned first, unsigned last) noexcept
{
    _d->directions.eraseBars(first, last);
}

/// Makes the bar behind `last` begin the movement of which bars from `first` on go away, when its
/// first bar is among them; whether that changed the bar.
bool MasterTrack::handOnMovementStart(unsigned first, unsigned last) noexcept
{
    const auto &bars = masterBars();
    if (last + 1 >= bars.size() || bars[last + 1]->isMovementStart())
        return false;
    const bool losesStart = std::any_of(bars.begin() + first, bars.begin() + last + 1,
                                        [](const auto &bar) { return bar->isMovementStart(); });
    bars[last + 1]->setMovementStart(losesStart);
    return losesStart;
}

int MasterTrack::directionIndex(DirectionMark mark) const noexcept
{
    return _d->directions.barOf(mark);
}

void MasterTrack::setDirection(int kind, int barIndex) noexcept
{
    if (_d->directions.set(kind, barIndex))
        _d->playList.forget();
}

const MasterTrack::DirectionSlots &MasterTrack::directionSlots() const noexcept
{
    return _d->directions.bars();
}

void MasterTrack::setDirectionSlots(const DirectionSlots &bars) noexcept
{
    _d->directions = Directions(bars);
    _d->playList.forget();
}

std::set<DirectionMark> MasterTrack::directionsAtBarIndex(int barIndex) const
{
    auto marks = _d->directions.marksAt(barIndex);
    const auto further = furtherDirectionsAt(barIndex);
    for (int kind = 0; further != 0 && kind < DirectionMarkCount; ++kind)
        if (const auto mark = static_cast<DirectionMark>(kind); (further & directionBit(mark)) != 0)
            marks.insert(mark);
    return marks;
}

bool MasterTrack::hasAnyDirectionAtBarIndex(int barIndex) const noexcept
{
    return _d->directions.hasAnyAt(barIndex) || furtherDirectionsAt(barIndex) != 0;
}

std::uint32_t MasterTrack::furtherDirectionsAt(int bar) const noexcept
{
    const bool isThere = bar >= 0 && hasMasterBarIndex(static_cast<unsigned>(bar));
    return isThere ? masterBars()[static_cast<std::size_t>(bar)]->furtherDirections() : 0;
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
    return tempoValue() * quartersOf(tempoUnit());
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

bool operator==(const MasterTrack &left, const MasterTrack &right)
{
    return left._d->mastering == right._d->mastering && left._d->tempo == right._d->tempo
        && left._d->directions == right._d->directions && left._d->anacrusis == right._d->anacrusis
        && static_cast<const AutomationContainer &>(left)
        == static_cast<const AutomationContainer &>(right)
        && left._masterBars == right._masterBars;
}

} // namespace zarn
