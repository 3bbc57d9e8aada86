// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterKeySignature.h>

namespace zarn::cmd {

SetMasterKeySignature::SetMasterKeySignature()
    : SetAttribute(QStringLiteral("SetMasterKeySignature"))
{
}
SetMasterKeySignature::~SetMasterKeySignature() = default;

bool SetMasterKeySignature::init(Score *score, unsigned first, unsigned last,
                                 const KeySignature &signature)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterKeySignature::init", score != NULL);
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    addArg(QStringLiteral("Type"), signature.toQString());
    return prepare(score, {first, last}, signature);
}

} // namespace zarn::cmd
