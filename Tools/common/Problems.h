// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zarn::tool {

struct OpenedDocument;

/// What an import repaired, doubted or could not hold, one line each.
std::vector<std::string> problemLines(const OpenedDocument &document);

/// Says on standard error, in one line, that there is something to look at, if there is.
void warnOfProblems(const OpenedDocument &document);

} // namespace zarn::tool
