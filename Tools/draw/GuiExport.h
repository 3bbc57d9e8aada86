// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>

#include <cstddef>
#include <vector>

class QIODevice;

namespace zarn::tool {

/// What needs QtGui. It is loaded when it is asked for, so that the program runs without QtGui
/// wherever it can.
class GuiExport {
public:
    virtual ~GuiExport() = default;

    virtual void writePdf(const layout::Layout &layout, QIODevice &device) = 0;
    virtual void writePng(const layout::Layout &layout, std::size_t page, int dotsPerInch,
                          QIODevice &device) = 0;
    /// Texts with characters for which the machine has no font.
    virtual std::vector<layout::LayoutProblem> undrawableTexts(const layout::Layout &layout) = 0;
};

/// Loads it, and begins an application that needs no display. Raises `Failure`, which says what
/// this machine lacks.
GuiExport &guiExport();

/// The function by which the loaded library hands it out; as `guiExport` otherwise.
inline constexpr const char *guiExportFunction = "zarnGuiExport";
using GuiExportFunction = GuiExport *(*)();

} // namespace zarn::tool
