// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnViews/ZarnViewsExport.h>

class QIODevice;

namespace zarn::views {

/// Writes a layout as PDF: a page for each sheet, as large as the sheet, with Bravura and Edwin
/// embedded, so that texts can be searched and copied. Needs a `QGuiApplication`.
class ZARNVIEWS_EXPORT PdfWriter {
public:
    /// Writes all to an open device. Raises `CoreException` for a layout without pages, or with the
    /// device's own words when it does not take everything.
    void write(const layout::Layout &layout, QIODevice &device) const;
};

} // namespace zarn::views
