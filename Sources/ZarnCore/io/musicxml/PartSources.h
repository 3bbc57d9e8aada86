// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/MusicXmlTag.h>
#include <ZarnCore/io/musicxml/PartList.h>

#include <vector>

namespace zarn::io {

/// One measure of one part. In the partwise layout both are the <measure>; in the timewise one
/// `content` is the <part> in it, or nothing where the part is left out.
struct MeasureSource {
    pugi::xml_node frame;
    pugi::xml_node content;
};

/// A part of a document and where its music stands: in the partwise layout its <part>, which is
/// passed over once, as it is read; in the timewise one its measures.
struct PartSource {
    ListedPart listed;
    pugi::xml_node part;
    std::vector<MeasureSource> measures;

    /// Calls `visit` with each measure in order; and `pass` with elements that are none.
    template <class Visit, class Pass>
    void visitMeasures(Visit visit, Pass pass) const
    {
        for (const auto &measure : measures)
            visit(measure);
        for (auto child = part.first_child(); child; child = child.next_sibling()) {
            if (tagOf(child.name()) == Tag::Measure)
                visit(MeasureSource{child, child});
            else
                pass(child);
        }
    }

    std::size_t measureCount() const
    {
        std::size_t count = 0;
        visitMeasures([&](const MeasureSource &) { ++count; }, [](pugi::xml_node) {});
        return count;
    }
};

/// The parts in the order of the document, whatever its layout.
std::vector<PartSource> partSources(pugi::xml_node root, const PartList &list,
                                    ImportContext &context);

} // namespace zarn::io
