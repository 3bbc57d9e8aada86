// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/utils/rational.h>

#include <memory>
#include <optional>
#include <vector>

namespace zarn {

class Beat;

/// A rest marked like a beat, but for what takes notes.
std::shared_ptr<Beat> emptyBeat(const Beat &beat, const RhythmValue &rhythm);

/// The rhythms that a length is written with; nothing for one that no rhythms fill.
std::optional<std::vector<RhythmValue>> rhythmsOf(const utils::rational &length);

} // namespace zarn
