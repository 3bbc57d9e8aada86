// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnTrack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnTrackDefaults.h>

#include <algorithm>

namespace zarn {

Track::Track() : Track(InstrumentSet::unknown) { }

Track::Track(InstrumentSet::Type type) : _type(type)
{
    const TrackDefaults &defaults = trackDefaults(type);
    _icon = defaults.icon;
    _transpositionOffset = defaults.transpositionOffset;
    if (type != InstrumentSet::unknown)
        _name = InstrumentSet::typeName(type);
    for (unsigned i = 0; i < defaults.staffCount; ++i)
        _staves.insert(i, makeStaff(0), {});
    markOrphans();
}

Track &Track::operator=(const Track &other)
{
    if (this == &other)
        return *this;
    copySettings(other);
    _staves = other._staves;
    _automations = other._automations;
    markOrphans();
    return *this;
}

void Track::copySettings(const Track &other)
{
    _type = other._type;
    _sounds = other._sounds;
    _name = other._name;
    _shortName = other._shortName;
    _icon = other._icon;
    _color = other._color;
    _transpositionOffset = other._transpositionOffset;
    _notations = other._notations;
    _settings = other._settings;
}

MidiConnection Track::midiConnection() const noexcept
{
    if (_settings.midiConnection)
        return *_settings.midiConnection;
    constexpr std::uint8_t percussion = MidiConnection::PercussionChannel;
    return InstrumentSet::isUnpitched(_type) ? MidiConnection{0, percussion, percussion}
                                             : MidiConnection();
}

void Track::setSettings(const TrackSettings &settings)
{
    ZARN_ASSERT_IN("zarn::Track::setSettings", settings.isValid());
    _settings = settings;
}

std::shared_ptr<Track> Track::clone() const
{
    return ChildLinkAccess::clone(*this);
}

std::shared_ptr<Track> Track::cloneWithoutBars() const
{
    auto copy = std::make_shared<Track>();
    copy->takeStavesFrom(0);
    copy->copySettings(*this);
    Staves copies;
    for (const auto &staff : staves())
        copies.push_back(staff->cloneWithoutBars());
    copy->addStaves(std::move(copies));
    return copy;
}

void Track::setParentScoreModel(const std::shared_ptr<ScoreModel> &model)
{
    ChildLinkAccess::setParent(*this, model);
}

std::shared_ptr<Staff> Track::makeStaff(unsigned barCount) const
{
    auto staff = std::make_shared<Staff>();
    const TrackDefaults &defaults = trackDefaults(_type);
    std::vector<int> strings;
    for (const int pitch : defaults.strings)
        if (pitch != 0)
            strings.push_back(pitch);
    if (!strings.empty()) {
        GuitarTuning tuning;
        tuning.setMidiNumbers(strings);
        tuning.setInstrument(defaults.tuningInstrument);
        tuning.setShortDroneString(defaults.shortDroneString);
        staff->setTuning(tuning);
    }
    staff->addEmptyBars(barCount);
    return staff;
}

void Track::setStaffCount(unsigned count)
{
    ZARN_ASSERT_IN("zarn::Track::setStaffCount", count > 0);
    if (count < staffCount()) {
        takeStavesFrom(count);
        return;
    }
    const auto model = parentScoreModel();
    const unsigned bars = model ? model->masterTrack()->masterBarCount() : barCount();
    Staves staves;
    for (unsigned i = staffCount(); i < count; ++i) {
        staves.push_back(makeStaff(bars));
        for (const auto &bar : staves.back()->bars())
            bar->setClef(defaultClef(_type, i));
    }
    addStaves(std::move(staves));
}

void Track::setStaff(unsigned index, const std::shared_ptr<Staff> &staff)
{
    ZARN_ASSERT_IN("zarn::Track::setStaff", index < staffCount());
    if (_staves.items()[index] == staff)
        return;
    _staves.replace(index, staff, asParent());
}

void Track::addStaves(Staves staves)
{
    _staves.insert(staffCount(), std::move(staves), asParent());
}

Track::Staves Track::takeStavesFrom(unsigned index)
{
    return staffCount() == 0 ? Staves() : _staves.take(index, staffCount() - 1);
}

unsigned Track::barCount() const noexcept
{
    return staffCount() == 0 ? 0 : staves().front()->barCount();
}

const Staff::Bars &Track::bars(unsigned staffIndex) const
{
    ZARN_ASSERT_IN("zarn::Track::bars", staffIndex < staffCount());
    return staves()[staffIndex]->bars();
}

std::shared_ptr<Bar> Track::bar(unsigned barIndex, unsigned staffIndex) const
{
    return staffIndex < staffCount() ? staves()[staffIndex]->bar(barIndex) : nullptr;
}

void Track::addBar(const std::shared_ptr<Bar> &bar, unsigned staffIndex, LinkMode mode)
{
    if (const auto target = staff(staffIndex))
        target->addBar(bar, mode);
}

void Track::insertBar(unsigned index, const std::shared_ptr<Bar> &bar, unsigned staffIndex,
                      LinkMode mode)
{
    if (const auto target = staff(staffIndex))
        target->insertBar(index, bar, mode);
}

void Track::addEmptyBars(unsigned count, LinkMode mode)
{
    for (const auto &staff : staves())
        staff->addEmptyBars(count, mode);
}

void Track::insertEmptyBars(unsigned index, unsigned count, LinkMode mode)
{
    if (index < barCount() && _automations.hasAutomations())
        _automations.insertBlocks(index, count);
    for (const auto &staff : staves())
        staff->insertEmptyBars(index, count, mode);
}

void Track::removeBar(unsigned index, LinkMode mode)
{
    if (index >= barCount())
        return;
    _automations.eraseBlocks(index, index);
    for (const auto &staff : staves())
        staff->removeBar(index, mode);
}

void Track::removeAllBars()
{
    _automations.clearAutomations();
    for (const auto &staff : staves())
        staff->removeAllBars();
}

void Track::addSound(std::shared_ptr<const Sound> sound)
{
    insertSound(static_cast<unsigned>(_sounds.size()), std::move(sound));
}

void Track::insertSound(unsigned index, std::shared_ptr<const Sound> sound)
{
    ZARN_ASSERT_IN("zarn::Track::insertSound", sound != nullptr);
    const std::size_t at = std::min<std::size_t>(index, _sounds.size());
    _sounds.insert(_sounds.begin() + static_cast<std::ptrdiff_t>(at), std::move(sound));
}

std::shared_ptr<const Sound> Track::replaceSound(unsigned index, std::shared_ptr<const Sound> sound)
{
    ZARN_ASSERT_IN("zarn::Track::replaceSound", index < _sounds.size());
    ZARN_ASSERT_IN("zarn::Track::replaceSound", sound != nullptr);
    _sounds[index].swap(sound);
    return sound;
}

void Track::swapSounds(unsigned first, unsigned second)
{
    ZARN_ASSERT_IN("zarn::Track::swapSounds", std::max(first, second) < _sounds.size());
    _sounds[first].swap(_sounds[second]);
}

std::shared_ptr<const Sound> Track::removeSoundAtIndex(unsigned index)
{
    if (index >= _sounds.size())
        return {};
    auto sound = std::move(_sounds[index]);
    _sounds.erase(_sounds.begin() + static_cast<std::ptrdiff_t>(index));
    return sound;
}

int Track::indexOfSound(const Sound &sound) const noexcept
{
    const auto found = std::find_if(_sounds.begin(), _sounds.end(),
                                    [&](const auto &candidate) { return *candidate == sound; });
    return found == _sounds.end() ? -1 : static_cast<int>(found - _sounds.begin());
}

std::shared_ptr<const InstrumentSet> Track::instrumentSet() const noexcept
{
    const InstrumentSetLibrary *const library = InstrumentSetLibrary::installed();
    return library == nullptr ? nullptr : library->findInstrumentSetWithType(_type);
}

bool Track::isFretted() const
{
    return std::any_of(staves().begin(), staves().end(),
                       [](const auto &staff) { return staff->isFretted(); });
}

TrackNotations Track::notations() const
{
    if (_notations)
        return *_notations;
    TrackNotations notations;
    notations.tablature = InstrumentSet::isStringed(_type) && isFretted();
    return notations;
}

void Track::setChosenNotations(const std::optional<TrackNotations> &notations)
{
    ZARN_ASSERT_IN("zarn::Track::setChosenNotations", !notations || notations->any());
    _notations = notations;
}

bool operator==(const Track &left, const Track &right)
{
    return left._type == right._type && left._name == right._name
        && left._shortName == right._shortName && left._icon == right._icon
        && left._color == right._color && left._transpositionOffset == right._transpositionOffset
        && left._notations == right._notations && left._settings == right._settings
        && std::equal(left._sounds.begin(), left._sounds.end(), right._sounds.begin(),
                      right._sounds.end(), [](const auto &a, const auto &b) { return *a == *b; })
        && left._automations == right._automations && left._staves == right._staves;
}

} // namespace zarn
