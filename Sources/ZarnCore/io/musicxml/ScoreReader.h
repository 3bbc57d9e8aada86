// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class ImportReport;
class XmlDocument;

/// Reads a parsed MusicXML document into a model of its own.
std::shared_ptr<ScoreModel> readScore(const XmlDocument &document, ImportReport &report);

} // namespace zarn::io
