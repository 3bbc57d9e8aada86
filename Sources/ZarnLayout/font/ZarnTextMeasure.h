// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/font/ZarnFontFace.h>

#include <string_view>

namespace zarn::layout {

/// Room that a line of text takes, seen from the left end of its base line.
struct TextExtent {
    /// Where the next text would begin.
    Unit advance = 0;
    /// The ink, which may reach over both ends. Empty for blanks.
    Box ink;
    /// Whether all characters are in the font. Others are drawn with fonts of the system, so that
    /// their widths are estimates.
    bool isExact = true;

    friend bool operator==(const TextExtent &a, const TextExtent &b) noexcept
    {
        return a.advance == b.advance && a.ink == b.ink && a.isExact == b.isExact;
    }
};

/// How large texts are. Layouts ask nothing else of a text font.
class ZARNLAYOUT_EXPORT TextMeasure {
public:
    virtual ~TextMeasure();

    /// `text` is one line in UTF-8. May be called by any thread.
    virtual TextExtent measure(std::string_view text, const TextStyle &style) const = 0;

    /// Of the font, not of a text: how far capitals rise above the base line.
    virtual Unit capHeight(const TextStyle &style) const = 0;
    /// How far letters rise above the base line and fall below it.
    virtual Unit ascent(const TextStyle &style) const = 0;
    virtual Unit descent(const TextStyle &style) const = 0;

protected:
    TextMeasure() = default;
    TextMeasure(const TextMeasure &) = default;
    TextMeasure &operator=(const TextMeasure &) = default;
};

/// Sizes of texts in Edwin, with its kerning, from the font file itself: the same on every machine,
/// with and without a display. Remembers what it was asked.
ZARNLAYOUT_EXPORT const TextMeasure &builtInTextMeasure();

} // namespace zarn::layout
