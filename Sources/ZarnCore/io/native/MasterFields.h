// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/DocumentReader.h>
#include <ZarnCore/io/native/DocumentWriter.h>

namespace zarn {
class MasterTrack;
} // namespace zarn

namespace zarn::io::native {

/// The master track with its master bars, as an object.
void writeMasterTrack(DocumentWriter &writer, const MasterTrack &track);
void readMasterTrack(DocumentReader &reader, const Json &json, MasterTrack &track);

} // namespace zarn::io::native
