// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn {

class ScoreModel;

namespace io {
class ExportReport;
}

namespace lilypond {

/// A score as a document for LilyPond 2.24, in UTF-8.
std::string documentOf(const ScoreModel &model, io::ExportReport &report);

} // namespace lilypond
} // namespace zarn
