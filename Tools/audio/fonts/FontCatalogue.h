// SPDX-License-Identifier: MIT
#pragma once

#include "catalog/Catalogue.h"

namespace zarn::tool {

/// The sound fonts of this machine. Raises `Failure` when there is none.
Catalogue soundFontCatalogue();

} // namespace zarn::tool
