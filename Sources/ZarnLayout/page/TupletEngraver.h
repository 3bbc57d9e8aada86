// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SideItem.h>

#include <ZarnCore/model/form/ZarnTupletGroup.h>

#include <string>

namespace zarn::engraving {

/// Numbers and brackets of tuplets: the number alone where one beam shows what belongs together.
void addTuplets(RowDraft &row, const SystemDraft &draft);

/// How a tuplet is named: "3", or "5:3" where the first number does not say enough.
std::string tupletText(const TupletGroup::Ratio &ratio);

} // namespace zarn::engraving
