// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/io/sheet/SheetBuilder.h>

#include <string>

namespace zarn::sheet {

/// What a page of text is drawn for.
struct PageStyle {
    int width = 80;       ///< columns
    bool usesUtf8 = true; ///< box drawing and musical signs; ASCII otherwise
    bool usesColours = false;
};

/// A part of a score as a text in UTF-8, with its title and the legend of its signs: fretted tracks
/// as tablature, drums as a grid, all others as note names.
ZARNCORE_EXPORT std::string pageOf(const ScoreModel &model, const ShownPart &part,
                                   const PageStyle &style);

} // namespace zarn::sheet
