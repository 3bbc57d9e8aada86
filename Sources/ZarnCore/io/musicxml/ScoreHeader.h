// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class ImportContext;

/// Reads what stands before the part list, titles and names, into the score's properties.
void readScoreHeader(pugi::xml_node root, ScoreModel &model, ImportContext &context);

} // namespace zarn::io
