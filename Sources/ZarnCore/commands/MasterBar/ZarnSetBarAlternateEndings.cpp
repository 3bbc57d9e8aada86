// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetBarAlternateEndings.h>

namespace zarn::cmd {

SetBarAlternateEndings::SetBarAlternateEndings()
    : SetPlayOrder(QStringLiteral("SetBarAlternateEndings"))
{
}
SetBarAlternateEndings::~SetBarAlternateEndings() = default;

bool SetBarAlternateEndings::init(Score *score, unsigned first, unsigned last, std::uint32_t passes)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBarAlternateEndings::init", score != NULL);
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    addArg(QStringLiteral("Type"), QString::number(passes));
    return prepare(score, {first, last}, passes);
}

} // namespace zarn::cmd
