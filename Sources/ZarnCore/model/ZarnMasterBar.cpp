// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnMasterBar.h>

#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/attributes/ZarnLayoutRatio.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

namespace zarn {

std::shared_ptr<MasterBar> MasterBar::clone() const
{
    return ChildLinkAccess::clone(*this);
}

std::shared_ptr<Bar> MasterBar::barOfTrack(unsigned trackIndex, unsigned staffIndex) const
{
    const auto master = parentMasterTrack();
    const auto model = master ? master->parentScoreModel() : nullptr;
    const auto track = model ? model->track(trackIndex) : nullptr;
    return track ? track->bar(index(), staffIndex) : nullptr;
}

utils::rational MasterBar::length() const
{
    if (_ownLength)
        return *_ownLength;
    return utils::rational(4 * std::int64_t(_timeSignature.getNumerator()),
                           std::int64_t(_timeSignature.getDenominator()));
}

void MasterBar::setTimeSignature(const TimeSignature &signature)
{
    if (_timeSignature != signature)
        _meterSign = MeterSign::Numbers;
    _timeSignature = signature;
    if (!beamGroups().fit(signature))
        setBeamGroups({});
}

void MasterBar::setBeamGroups(const BeamGroups &groups)
{
    ZARN_ASSERT_IN("zarn::MasterBar::setBeamGroups", groups.fit(_timeSignature));
    _details.change([&](Details &details) { details.beamGroups = groups; });
}

void MasterBar::setFermatas(const FermataMarks &marks)
{
    ZARN_ASSERT_IN("zarn::MasterBar::setFermatas", areValid(marks));
    _details.change([&](Details &details) { details.fermatas = marks; });
}

void MasterBar::setEndingText(const std::string &text)
{
    _details.change([&](Details &details) { details.endingText = text; });
}

void MasterBar::setFurtherDirections(std::uint32_t marks)
{
    ZARN_ASSERT_IN("zarn::MasterBar::setFurtherDirections", marks <= AllDirectionBits);
    _details.change([&](Details &details) { details.furtherDirections = marks; });
}

void MasterBar::setJumpText(const std::string &text)
{
    _details.change([&](Details &details) { details.jumpText = text; });
}

void MasterBar::setLayoutRatio(float ratio)
{
    ZARN_ASSERT_IN("zarn::MasterBar::setLayoutRatio", isLayoutRatio(ratio));
    _layoutRatio = ratio;
}

void MasterBar::setOwnLength(const std::optional<utils::rational> &length)
{
    ZARN_ASSERT_IN("zarn::MasterBar::setOwnLength", !length || *length > utils::rational(0));
    _ownLength = length;
}

void MasterBar::setRepeatCount(unsigned count)
{
    ZARN_ASSERT_IN("zarn::MasterBar::setRepeatCount", count != 1 && count <= 255);
    _repeatCount = static_cast<std::uint8_t>(count);
}

bool MasterBar::isPlayedInPass(unsigned pass) const noexcept
{
    if (_alternateEndings == 0)
        return true;
    return pass >= 1 && pass <= MaxEndings && (_alternateEndings >> (pass - 1) & 1u) != 0;
}

bool operator==(const MasterBar &left, const MasterBar &right)
{
    return !(left._timeSignature != right._timeSignature)
        && left._keySignature == right._keySignature && left._ownLength == right._ownLength
        && left._section == right._section && left._alternateEndings == right._alternateEndings
        && left._repeatCount == right._repeatCount && left._tripletFeel == right._tripletFeel
        && left._freeTime == right._freeTime && left._doubleBar == right._doubleBar
        && left._endingHidden == right._endingHidden && left._repeatStart == right._repeatStart
        && left._movementStart == right._movementStart && left._barLine == right._barLine
        && left._meterSign == right._meterSign && left._layoutRatio == right._layoutRatio
        && left._details == right._details;
}

} // namespace zarn
