// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/writer/PartPlan.h>

#include <pugixml.hpp>

#include <deque>

namespace zarn::io {

class ExportContext;

/// Writes the <part-list>: the parts with their instruments, and the groups that they form.
void writePartList(const ScoreModel &model, const std::deque<PartPlan> &parts, pugi::xml_node root,
                   ExportContext &context);

} // namespace zarn::io
