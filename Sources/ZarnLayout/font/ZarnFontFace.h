// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnGeometry.h>

#include <QByteArray>

#include <cstdint>
#include <string_view>

namespace zarn::layout {

/// The faces of Edwin, the text font that the library carries.
enum class TextFace : std::uint8_t { Roman, Italic, Bold, BoldItalic };

/// How a text is set.
struct TextStyle {
    TextFace face = TextFace::Roman;
    /// Height of the em square.
    Unit size = 2 * staffSpace;

    friend constexpr bool operator==(const TextStyle &a, const TextStyle &b) noexcept
    {
        return a.face == b.face && a.size == b.size;
    }
    friend constexpr bool operator!=(const TextStyle &a, const TextStyle &b) noexcept
    {
        return !(a == b);
    }
};

/// A file of the fonts that the library carries, as they were published: "bravura/bravura.otf",
/// "edwin/edwin-roman.otf". Raises `CoreException` when there is none.
ZARNLAYOUT_EXPORT QByteArray builtInFontFile(std::string_view path);

/// The path of a face for `builtInFontFile`.
ZARNLAYOUT_EXPORT std::string_view fontFileOf(TextFace face) noexcept;

} // namespace zarn::layout
