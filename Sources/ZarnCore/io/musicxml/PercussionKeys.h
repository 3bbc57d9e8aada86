// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <optional>

namespace zarn::io {

class ImportContext;
struct ListedInstrument;

/// The General MIDI percussion key of an instrument that names none: by its standard sound, else by
/// its name.
std::optional<int> usualPercussionKey(const ListedInstrument &instrument);

/// Gives unpitched notes that have no key that of the set's articulation at their place on the
/// staff, with their kind of head if there is one, or else at the nearest place, and tells it.
void setUsualKeys(const InstrumentSet &set, const Staff::Bars &bars, ImportContext &context);

} // namespace zarn::io
