// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetStemOrientations.h>

namespace zarn::cmd {

SetStemOrientations::SetStemOrientations()
    : SetMark("zarn::cmd::SetStemOrientations::init", QStringLiteral("SetStemOrientations"))
{
}
SetStemOrientations::~SetStemOrientations() = default;

} // namespace zarn::cmd
