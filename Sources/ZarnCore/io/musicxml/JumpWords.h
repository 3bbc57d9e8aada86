// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <pugixml.hpp>

#include <optional>
#include <string>

namespace zarn::io {

struct SpokenJump {
    WrittenJump::Kind kind;
    WrittenJump::Until until;
};

/// The jump that words such as "D.S. al Coda" ask for; nothing when they are about something else.
/// Markup in them, which some programs leave there, is passed over.
std::optional<SpokenJump> jumpOfWords(const std::string &words);

/// What the second segno and the second coda are called in documents, and what the first ones are.
constexpr const char *segnoNames[] = {"segno", "segno-segno"};
constexpr const char *codaNames[] = {"coda", "double-coda"};

/// Writes the <direction> of a mark into a measure: its sign or these words, and what it sounds
/// like.
void writeJump(DirectionMark mark, const std::string &words, pugi::xml_node measure);

} // namespace zarn::io
