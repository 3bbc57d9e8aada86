// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class ExportContext;

/// Writes what stands before the part list: titles and names, for programs and for the eye, and
/// the size of the page.
void writeHeader(const ScoreModel &model, pugi::xml_node root, ExportContext &context);

} // namespace zarn::io
