// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>

#include <pugixml.hpp>

#include <optional>

namespace zarn::io {

struct Tempo {
    double value; ///< beats per minute
    TempoUnit unit;
};

/// What a <metronome> says; a unit that the tree does not know is turned into quarters. Nothing
/// for relations between notes and for what is no number.
std::optional<Tempo> metronomeTempo(pugi::xml_node metronome);

/// Writes a <metronome>.
pugi::xml_node writeMetronome(const Tempo &tempo, pugi::xml_node parent);

/// Quarters per minute.
double quartersOf(const Tempo &tempo);

} // namespace zarn::io
