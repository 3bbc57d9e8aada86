// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/DocumentReader.h>
#include <ZarnCore/io/native/DocumentWriter.h>
#include <ZarnCore/io/native/Misfit.h>

namespace zarn {
class ScoreModel;
struct Clip;
} // namespace zarn

namespace zarn::io::native {

/// The version that is written. A document of another major version is refused; a newer minor
/// version has members that are left out here.
constexpr unsigned majorVersion = 1;
constexpr unsigned minorVersion = 6;

/// Name of the member that says that a document is one of this format, and of which version.
constexpr std::string_view formatKey = "zarn";

/// The whole document.
void writeScore(DocumentWriter &writer, const ScoreModel &model);
void readScore(DocumentReader &reader, const Json &json, ScoreModel &model);

/// Music that was copied: a document of its own, with a member that says what it was copied from.
/// Any other document is a clip of all its bars. The model of the clip is not touched.
void writeClip(DocumentWriter &writer, const Clip &clip);
void readClip(DocumentReader &reader, const Json &json, Clip &clip);

/// Refuses a version that cannot be read.
void readVersion(DocumentReader &reader, const Json &version);

/// Nothing when every staff has a bar per master bar and directions stand at bars.
Misfit findMisfit(const ScoreModel &model);

} // namespace zarn::io::native
