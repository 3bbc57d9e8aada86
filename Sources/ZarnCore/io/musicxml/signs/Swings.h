// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/form/ZarnTripletFeel.h>

#include <pugixml.hpp>

#include <optional>

namespace zarn::io {

/// The feel that a <swing> asks for, the nearest of those that there are; nothing for a ratio that
/// is no number.
std::optional<TripletFeel> swingOf(pugi::xml_node swing);

/// Writes a <swing> into a <sound>: first to second as 2 to 1, 3 to 1 or 1 to 3, or <straight>.
void writeSwing(TripletFeel feel, pugi::xml_node sound);

} // namespace zarn::io
