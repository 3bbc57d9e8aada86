// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

#include <ZarnCore/io/ZarnMidiImporter.h>

namespace zarn::tool {

/// The options of commands that read MIDI files: "--grid" and "--no-tuplets".
const std::vector<Option> &midiOptions();

/// A command's own options with those behind them.
std::vector<Option> withMidiOptions(std::vector<Option> options);

/// What the user chose of them. Raises `UsageError` for a grid that is no note value.
io::MidiImportOptions chosenMidiOptions(const Arguments &arguments);

} // namespace zarn::tool
