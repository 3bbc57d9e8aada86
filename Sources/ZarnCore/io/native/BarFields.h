// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/Fields.h>

namespace zarn {
class Bar;
class Staff;
} // namespace zarn

namespace zarn::io::native {

/// The bars of a staff, from the array that the other function writes.
void writeBars(DocumentWriter &writer, std::string_view key, const Staff &staff);
void readBars(DocumentReader &reader, const rapidjson::Value &json, Staff &staff);

} // namespace zarn::io::native
