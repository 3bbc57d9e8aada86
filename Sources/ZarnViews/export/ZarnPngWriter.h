// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnViews/ZarnViewsExport.h>

#include <QImage>

#include <cstddef>

class QIODevice;

namespace zarn::views {

/// Writes sheets as images, black on white.
class ZARNVIEWS_EXPORT PngWriter {
public:
    /// `dotsPerInch` is at least 1.
    explicit PngWriter(int dotsPerInch);

    /// Raises `CoreException` when there is no such page, or when the image would have more than
    /// 32,767 pixels on a side or 300 million in all.
    QImage image(const layout::Layout &layout, std::size_t page) const;

    /// Writes one sheet to an open device; raises as `image`, or with the device's own words when
    /// it does not take everything.
    void write(const layout::Layout &layout, std::size_t page, QIODevice &device) const;

private:
    int _dotsPerInch;
};

} // namespace zarn::views
