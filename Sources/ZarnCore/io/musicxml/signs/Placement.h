// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesSigns.h>

#include <pugixml.hpp>

namespace zarn::io {

/// The side that a sign is placed on, by itself or by the <direction> that it stands in. Where none
/// is said, what is moved off the staff is on the side that it is moved to.
MarkSide sideOf(pugi::xml_node sign);

/// The placement of MusicXML 4.0; null for the side that a program chooses.
const char *placementOf(MarkSide side) noexcept;

} // namespace zarn::io
