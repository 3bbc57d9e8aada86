// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/TuningData.h>

#include <rapidjson/fwd.h>

namespace zarn {

/// Reads an object of a catalogue; see `GuitarTuning::parse`. What it does not hold has its
/// default.
TuningData tuningFromJson(const rapidjson::Value &value);

} // namespace zarn
