// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/TuningData.h>

#include <iosfwd>

namespace zarn {

/// Writes all that two tunings are compared on in one line.
void writeTuning(std::ostream &stream, const TuningData &data);

/// Reads such a line into fresh data, all but the id. Any other text sets the stream's fail bit.
void readTuning(std::istream &stream, TuningData &data);

} // namespace zarn
