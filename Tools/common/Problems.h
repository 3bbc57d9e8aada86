// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zarn {

namespace io {
class ExportReport;
}

namespace tool {

struct OpenedDocument;

/// What an import repaired, doubted or could not hold, one line each.
std::vector<std::string> problemLines(const OpenedDocument &document);

/// Says on standard error, in one line, that there is something to look at, if there is.
void warnOfProblems(const OpenedDocument &document);

/// Says on standard error what was written otherwise, and what the format of the file could not
/// hold: each kind with the count of it and the place of the first.
void warnOfLosses(const io::ExportReport &report, const std::string &path);

} // namespace tool
} // namespace zarn
