// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/DocumentReader.h>
#include <ZarnCore/io/native/DocumentWriter.h>

namespace zarn {
class ScoreModel;
} // namespace zarn

namespace zarn::io::native {

void writeTracks(DocumentWriter &writer, std::string_view key, const ScoreModel &model);
void readTracks(DocumentReader &reader, const Json &json, ScoreModel &model);

void writeAudioTracks(DocumentWriter &writer, std::string_view key, const ScoreModel &model);
void readAudioTracks(DocumentReader &reader, const Json &json, ScoreModel &model);

} // namespace zarn::io::native
