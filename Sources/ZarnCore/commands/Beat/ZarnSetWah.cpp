// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetWah.h>

namespace zarn::cmd {

SetWah::SetWah() : SetMark("zarn::cmd::SetWah::init", QStringLiteral("SetWah")) { }
SetWah::~SetWah() = default;

} // namespace zarn::cmd
