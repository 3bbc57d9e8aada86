// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/form/ZarnMetronomeMark.h>

#include <pugixml.hpp>

#include <optional>

namespace zarn::io {

struct Tempo {
    double value; ///< beats per minute
    TempoUnit unit;
};

/// Quarters per minute.
double quartersOf(const Tempo &tempo);

/// What a <metronome> says; nothing for what is neither a number nor an equation of two notes.
std::optional<MetronomeMark> readMetronome(pugi::xml_node metronome);

/// Writes a <metronome>.
pugi::xml_node writeMetronome(const MetronomeMark &mark, pugi::xml_node parent);
pugi::xml_node writeMetronome(const Tempo &tempo, pugi::xml_node parent);

/// The tempo of a mark, in quarters where the tree does not know its note; nothing for an equation.
std::optional<Tempo> tempoOf(const MetronomeMark &mark);

/// Whether a mark tells the tempo that sounds; marks are rounded.
bool tellsTempo(const MetronomeMark &mark, double quarters);

} // namespace zarn::io
