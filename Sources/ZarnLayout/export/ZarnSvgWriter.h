// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnLayout.h>

#include <cstddef>

class QIODevice;

namespace zarn::layout {

/// How texts stand in an SVG.
enum class SvgText : std::uint8_t {
    Outlines,   ///< as shapes, which look the same everywhere
    Characters, ///< as `<text>` in Edwin, which can be searched and edited; readers need the font
};

/// Writes sheets as SVG 1.1, each a document of its own.
///
/// Each glyph is one `<symbol>`, whose id is its SMuFL name, and each mark that draws it a `<use>`.
/// Every mark has `data-kind` (`markKindText`), and `data-place`: track, bar, staff, voice, beat
/// and note, counted from 0, with nothing between commas for what does not apply and nothing at all
/// behind the last number. Texts have theirs in `data-text`, the numbers of frets too. A staff
/// space has 128 user units.
class ZARNLAYOUT_EXPORT SvgWriter {
public:
    explicit SvgWriter(SvgText text = SvgText::Outlines) noexcept : _text(text) { }

    /// Writes one sheet to an open device. Raises `CoreException` when there is no such page, or
    /// with the device's own words when it does not take everything.
    void write(const Layout &layout, std::size_t page, QIODevice &device) const;

private:
    SvgText _text;
};

} // namespace zarn::layout
