// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterTimeSignature.h>

namespace zarn::cmd {

bool SetMasterTimeSignature::isWritable(const TimeSignature &signature) noexcept
{
    const unsigned unit = signature.getDenominator();
    const bool isNoteValue = unit != 0 && unit <= smallestUnit && (unit & (unit - 1)) == 0;
    return isNoteValue && signature.getNumerator() >= 1 && signature.getNumerator() <= mostUnits;
}

SetMasterTimeSignature::SetMasterTimeSignature()
    : SetAttribute(QStringLiteral("SetMasterTimeSignature"))
{
}
SetMasterTimeSignature::~SetMasterTimeSignature() = default;

bool SetMasterTimeSignature::init(Score *score, unsigned first, unsigned last,
                                  const TimeSignature &signature)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterTimeSignature::init", score != NULL);
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    addArg(QStringLiteral("Type"),
           QStringLiteral("%1/%2").arg(signature.getNumerator()).arg(signature.getDenominator()));
    return isWritable(signature) && prepare(score, {first, last}, signature);
}

} // namespace zarn::cmd
