// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/CharacterRow.h>

namespace zarn::tool {

// Tables and diagrams are drawn as the pages are.
using sheet::CharacterRow;
using sheet::displayWidth;
using sheet::Ink;
using sheet::shortened;

} // namespace zarn::tool
