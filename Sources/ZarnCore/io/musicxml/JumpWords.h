// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <pugixml.hpp>

#include <optional>
#include <string>

namespace zarn {
class MasterTrack;
}

namespace zarn::io {

struct SpokenJump {
    WrittenJump::Kind kind;
    WrittenJump::Until until;
};

/// The jump that words such as "D.S. al Coda" ask for; nothing when they are about something else.
/// Markup in them, which some programs leave there, is passed over.
std::optional<SpokenJump> jumpOfWords(const std::string &words);

/// The words of a jump without markup, and without signs that only music fonts have.
std::string plainJumpWords(const std::string &words);

/// What the second segno and the second coda are called in documents, and what the first ones are.
constexpr const char *segnoNames[] = {"segno", "segno-segno"};
constexpr const char *codaNames[] = {"coda", "double-coda"};

/// Writes the <direction> of a mark into a measure: its sign or its words, and what it sounds like.
void writeJump(DirectionMark mark, pugi::xml_node measure);

/// Tells in the <direction> of some words how they sound, where they ask for a jump that stands
/// earlier already: readers leave such words as they are.
void writeFurtherJump(const std::string &words, const MasterTrack &master, int bar,
                      pugi::xml_node direction);

} // namespace zarn::io
