// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarLayoutRatios.h>

#include <ZarnCore/commands/NumbersText.h>
#include <ZarnCore/model/attributes/ZarnLayoutRatio.h>

namespace zarn::cmd {

SetMasterBarLayoutRatios::SetMasterBarLayoutRatios()
    : SetEach(QStringLiteral("SetMasterBarLayoutRatios"))
{
}
SetMasterBarLayoutRatios::~SetMasterBarLayoutRatios() = default;

bool SetMasterBarLayoutRatios::init(Score *score, unsigned first, const std::vector<float> &ratios)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterBarLayoutRatios::init", score != NULL);
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Value"), numbersText(ratios));
    _ratios = ratios;
    return areLayoutRatios(ratios) && first < MasterTrack::MaxBars
        && prepare(score, {first, first + static_cast<unsigned>(ratios.size()) - 1});
}

std::optional<float> SetMasterBarLayoutRatios::next(std::size_t number, const MasterBar &) const
{
    return _ratios[number];
}

} // namespace zarn::cmd
