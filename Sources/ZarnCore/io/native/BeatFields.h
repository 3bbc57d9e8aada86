// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/DocumentReader.h>
#include <ZarnCore/io/native/DocumentWriter.h>

namespace zarn {
class Voice;
} // namespace zarn

namespace zarn::io::native {

/// The beats of a voice with their notes, from the array that the other function writes.
void writeBeats(DocumentWriter &writer, std::string_view key, const Voice &voice);
void readBeats(DocumentReader &reader, const Json &json, Voice &voice);

} // namespace zarn::io::native
