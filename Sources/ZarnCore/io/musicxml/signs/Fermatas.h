// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesNotation.h>

#include <pugixml.hpp>

namespace zarn::io {

/// What a <fermata> says by its shape.
Fermata fermataOf(pugi::xml_node fermata);

/// The shape of a kind, as it is written.
const char *shapeOf(Fermata kind);

} // namespace zarn::io
