// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypesDocument.h>

#include <pugixml.hpp>

#include <string_view>
#include <vector>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

/// What documents of the library's own name as the software that wrote them.
constexpr const char *ownSoftware = "ZarnCore";

class ImportContext;

/// A property of the score by the name that documents have for it: the type of a <creator>, or the
/// name of a <miscellaneous-field>. Several types are read as one property; the first is written.
struct NamedProperty {
    std::string_view type;
    ScoreProperty property;
    bool isWritten = true;
};
const std::vector<NamedProperty> &creatorTypes();
const std::vector<NamedProperty> &miscellaneousFields();

/// Reads what stands before the part list, titles and names, into the score's properties.
void readScoreHeader(pugi::xml_node root, ScoreModel &model, ImportContext &context);

} // namespace zarn::io
