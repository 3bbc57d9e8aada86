// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnViews/ZarnViewsExport.h>

class QPrinter;

namespace zarn::views {

/// Prints the sheets that the printer's page range names, or all, in the order and as often as it
/// is set up for. Each is printed as large as it is, from the upper left corner of the paper, and
/// made smaller where the paper is. Answers false when there is nothing to print, when the printer
/// does not begin, or when it was aborted.
ZARNVIEWS_EXPORT bool printLayout(const layout::Layout &layout, QPrinter &printer);

} // namespace zarn::views
