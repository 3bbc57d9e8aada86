// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnMasterBarAttribute.h>

#include <ZarnCore/model/AttributeRows.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/attributes/ZarnLayoutRatio.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <limits>

namespace zarn {

namespace {

using Id = MasterBarAttribute;
using Row = MasterBarAttributeRow;

/// Numbers of the published events.
enum : unsigned {
    sectionChanged = 76,
    attributeChanged = 78,
    timeSignatureChanged,
    keySignatureChanged,
    tripletFeelChanged,
    freeTimeChanged,
    doubleBarChanged,
    repeatChanged = 85,
    endingsChanged,
    beamGroupsChanged,
    fermatasChanged = 89,
    anacrusisChanged = 91,
    ratiosChanged = 108,
};

template <auto Get, auto Set>
constexpr Row row(Id id, std::string_view name, std::string_view key, const AttributeRange &range,
                  unsigned event, Split split = Split::First)
{
    auto row = rowOf<Row, Get, Set>(id, name, key, range);
    row.event = event;
    row.split = split;
    return row;
}

constexpr Row ofForm(Row row)
{
    row.isOfForm = true;
    return row;
}

std::string feelText(TripletFeel feel)
{
    return tripletFeelToQString(feel).toStdString();
}

// Bits are numbers of the range of `int`.
int endings(const MasterBar &bar)
{
    return static_cast<int>(bar.alternateEndings());
}
void setEndings(MasterBar &bar, int passes)
{
    bar.setAlternateEndings(static_cast<std::uint32_t>(passes));
}

/// The flag is the master track's; a detached bar has none.
bool isAnacrusis(const MasterBar &bar)
{
    const auto track = bar.index() == 0 ? bar.parentMasterTrack() : nullptr;
    return track && track->hasAnacrusis();
}
void setAnacrusis(MasterBar &bar, bool isAnacrusis)
{
    const auto track = bar.index() == 0 ? bar.parentMasterTrack() : nullptr;
    if (track)
        track->setAnacrusis(isAnacrusis);
}

constexpr unsigned longestWords = 10'000;

constexpr auto anyBits = numbers(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());

constexpr std::array<Row, MasterBarAttributeCount> rows = {{
    row<&MasterBar::timeSignature, &MasterBar::setTimeSignature>(Id::TimeSignature, "TimeSignature",
                                                                 "", anyOf<TimeSignature>(),
                                                                 timeSignatureChanged, Split::All),
    row<&MasterBar::ownLength, &MasterBar::setOwnLength>(Id::OwnLength, "OwnLength", "",
                                                         anyOf<std::optional<utils::rational>>(),
                                                         attributeChanged, Split::Cut),
    row<&MasterBar::concertKeySignature, &MasterBar::setConcertKeySignature>(
        Id::KeySignature, "KeySignature", "", anyOf<KeySignature>(), keySignatureChanged,
        Split::All),
    row<&MasterBar::tripletFeel, &MasterBar::setTripletFeel>(Id::TripletFeel, "TripletFeel", "",
                                                             enumerators<feelText, 6>(),
                                                             tripletFeelChanged, Split::All),
    row<&MasterBar::isFreeTime, &MasterBar::setFreeTime>(
        Id::FreeTime, "FreeTime", "", anyOf<bool>(), freeTimeChanged, Split::All),
    row<&MasterBar::hasDoubleBar, &MasterBar::setDoubleBar>(
        Id::DoubleBar, "DoubleBar", "", anyOf<bool>(), doubleBarChanged, Split::Last),
    ofForm(row<&MasterBar::isRepeatStart, &MasterBar::setRepeatStart>(
        Id::RepeatStart, "RepeatStart", "", anyOf<bool>(), repeatChanged)),
    ofForm(row<&MasterBar::repeatCount, &MasterBar::setRepeatCount>(
        Id::RepeatCount, "RepeatCount", "", numbers(0, 255), repeatChanged, Split::Last)),
    ofForm(row<endings, setEndings>(Id::AlternateEndings, "AlternateEndings", "", anyBits,
                                    endingsChanged, Split::All)),
    ofForm(row<&MasterBar::isMovementStart, &MasterBar::setMovementStart>(
        Id::MovementStart, "MovementStart", "", anyOf<bool>(), attributeChanged)),
    row<&MasterBar::section, &MasterBar::setSection>(Id::Section, "Section", "", anyOf<Section>(),
                                                     sectionChanged),
    row<&MasterBar::beamGroups, &MasterBar::setBeamGroups>(
        Id::BeamGroups, "BeamGroups", "beamGroups", anyOf<BeamGroups>(), beamGroupsChanged),
    row<&MasterBar::fermatas, &MasterBar::setFermatas>(
        Id::Fermatas, "Fermatas", "fermatas", anyOf<FermataMarks>(), fermatasChanged, Split::Cut),
    row<&MasterBar::barLine, &MasterBar::setBarLine>(Id::BarLine, "BarLine", "barLine",
                                                     enumerators<barLineToString, 6>(),
                                                     attributeChanged, Split::Last),
    row<&MasterBar::meterSign, &MasterBar::setMeterSign>(Id::MeterSign, "MeterSign", "meterSign",
                                                         enumerators<meterSignToString, 4>(),
                                                         timeSignatureChanged, Split::All),
    row<&MasterBar::layoutRatio, &MasterBar::setLayoutRatio>(
        Id::LayoutRatio, "LayoutRatio", "layoutRatio",
        reals(static_cast<double>(lowestLayoutRatio), static_cast<double>(highestLayoutRatio)),
        ratiosChanged, Split::All),
    row<&MasterBar::endingText, &MasterBar::setEndingText>(
        Id::EndingText, "EndingText", "endingText", textsUpTo(longestWords), attributeChanged),
    row<&MasterBar::isEndingHidden, &MasterBar::setEndingHidden>(Id::EndingHidden, "EndingHidden",
                                                                 "endingHidden", anyOf<bool>(),
                                                                 attributeChanged, Split::All),
    ofForm(row<&MasterBar::furtherDirections, &MasterBar::setFurtherDirections>(
        Id::FurtherDirections, "FurtherDirections", "furtherDirections",
        numbers(0, static_cast<int>(AllDirectionBits)), attributeChanged)),
    row<&MasterBar::jumpText, &MasterBar::setJumpText>(Id::JumpText, "JumpText", "jumpText",
                                                       textsUpTo(longestWords), attributeChanged),
    row<isAnacrusis, setAnacrusis>(Id::Anacrusis, "Anacrusis", "", anyOf<bool>(), anacrusisChanged),
}};
static_assert(areInOrder(rows));

} // namespace

const std::array<Row, MasterBarAttributeCount> &masterBarAttributes() noexcept
{
    return rows;
}

} // namespace zarn
