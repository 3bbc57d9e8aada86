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
    : SetMasterBarsByTable(QStringLiteral("SetMasterTimeSignature"))
{
}
SetMasterTimeSignature::~SetMasterTimeSignature() = default;

bool SetMasterTimeSignature::init(Score *score, unsigned first, unsigned last,
                                  const TimeSignature &signature)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterTimeSignature::init", score != NULL);
    return prepare(score, first, last, {{MasterBarAttribute::TimeSignature, signature}});
}

} // namespace zarn::cmd
