// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartList.h>

#include <vector>

namespace zarn::io {

/// One measure of one part. In the partwise layout both are the <measure>; in the timewise one
/// `content` is the <part> in it, or nothing where the part is left out.
struct MeasureSource {
    pugi::xml_node frame;
    pugi::xml_node content;
};

/// A part of a document and where its music stands.
struct PartSource {
    ListedPart listed;
    std::vector<MeasureSource> measures;
};

/// The parts in the order of the document, whatever its layout.
std::vector<PartSource> partSources(pugi::xml_node root, const PartList &list,
                                    ImportContext &context);

} // namespace zarn::io
