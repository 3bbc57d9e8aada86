// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <string>

namespace zarn {

/// Path of the category in which the sound browser files the sounds of an instrument; empty for
/// `unknown`.
std::string soundCategoryOf(InstrumentSet::Type type);

/// Track icon of the nearest category of a path.
ZarnIconID iconOfSoundCategory(const std::string &path);

} // namespace zarn
