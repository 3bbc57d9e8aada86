// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <string>

namespace zarn {

// The texts of instrument categories; `InstrumentSet` says what they are.

std::string textOfInstrumentType(InstrumentSet::Type type);
InstrumentSet::Type instrumentTypeFromText(const std::string &text);

/// English name for people.
std::string nameOfInstrumentType(InstrumentSet::Type type);

} // namespace zarn
