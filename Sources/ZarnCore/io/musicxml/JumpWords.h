// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>

#include <optional>
#include <string>

namespace zarn::io {

struct SpokenJump {
    WrittenJump::Kind kind;
    WrittenJump::Until until;
};

/// The jump that words such as "D.S. al Coda" ask for; nothing when they are about something else.
std::optional<SpokenJump> jumpOfWords(const std::string &words);

} // namespace zarn::io
