// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>

#include <optional>
#include <string>
#include <string_view>

namespace zarn {

/// A glyph of a music font: a note head, or the sign of a playing technique.
///
/// Its value is the SMuFL code point, which a renderer draws as it is; 0 is no glyph. Names are
/// SMuFL's ("noteheadXBlack"). Known are the note heads, articulations, mutes, pedals and all of
/// percussion (beaters, techniques, pictograms).
class ZARNCORE_EXPORT MusicGlyph {
public:
    constexpr MusicGlyph() noexcept = default;
    constexpr explicit MusicGlyph(char16_t codePoint) noexcept : _codePoint(codePoint) { }

    constexpr char16_t codePoint() const noexcept { return _codePoint; }
    constexpr bool isNone() const noexcept { return _codePoint == 0; }

    /// Empty for no glyph and for code points that are not known.
    std::string name() const;

    /// Compares letter by letter; nothing for a name that is not known.
    static std::optional<MusicGlyph> fromName(std::string_view name);

    /// The head that a note gets in place of a glyph: the kind that comes nearest, whatever the
    /// length ("noteheadXHalf" is a cross). `NoteHead::Normal` for what is no head.
    NoteHead noteHead() const noexcept;

    friend constexpr bool operator==(MusicGlyph a, MusicGlyph b) noexcept
    {
        return a._codePoint == b._codePoint;
    }
    friend constexpr bool operator!=(MusicGlyph a, MusicGlyph b) noexcept { return !(a == b); }
    friend constexpr bool operator<(MusicGlyph a, MusicGlyph b) noexcept
    {
        return a._codePoint < b._codePoint;
    }

private:
    char16_t _codePoint = 0;
};

/// noteheadBlack, the head of quarters and shorter notes.
inline constexpr MusicGlyph normalNotehead(0xE0A4);

} // namespace zarn
