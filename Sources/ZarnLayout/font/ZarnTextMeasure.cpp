// SPDX-License-Identifier: MIT
#include <ZarnLayout/font/ZarnTextMeasure.h>

#include <ZarnLayout/font/ShapedFont.h>

#include <array>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <unordered_map>

namespace zarn::layout {

TextMeasure::~TextMeasure() = default;

namespace {

constexpr std::array faces{TextFace::Roman, TextFace::Italic, TextFace::Bold, TextFace::BoldItalic};

/// Texts of one face that were measured before.
class RememberingFont {
public:
    explicit RememberingFont(TextFace face) : _font(builtInFontFile(fontFileOf(face))) { }

    const ShapedFont &font() const noexcept { return _font; }

    ShapedFont::Extent measure(std::string_view text) const
    {
        std::string key(text);
        {
            const std::shared_lock lock(_mutex);
            const auto known = _known.find(key);
            if (known != _known.end())
                return known->second;
        }
        const auto extent = _font.measure(text);
        const std::unique_lock lock(_mutex);
        if (_known.size() >= mostKnown)
            _known.clear();
        _known.emplace(std::move(key), extent);
        return extent;
    }

private:
    static constexpr std::size_t mostKnown = 20000;

    ShapedFont _font;
    mutable std::shared_mutex _mutex;
    mutable std::unordered_map<std::string, ShapedFont::Extent> _known;
};

class BuiltInTextMeasure final : public TextMeasure {
public:
    TextExtent measure(std::string_view text, const TextStyle &style) const override
    {
        if (text.empty())
            return {};
        const auto &face = fontOf(style);
        const auto extent = face.measure(text);
        const auto scaled = [&](hb_position_t length) { return scale(face.font(), style, length); };
        TextExtent result;
        result.advance = scaled(extent.advance);
        if (extent.hasInk)
            result.ink = {scaled(extent.left), -scaled(extent.top), scaled(extent.right),
                          -scaled(extent.bottom)};
        result.isExact = extent.isExact;
        return result;
    }

    Unit capHeight(const TextStyle &style) const override
    {
        return scale(fontOf(style).font(), style, fontOf(style).font().capHeight());
    }
    Unit ascent(const TextStyle &style) const override
    {
        return scale(fontOf(style).font(), style, fontOf(style).font().ascent());
    }
    Unit descent(const TextStyle &style) const override
    {
        return scale(fontOf(style).font(), style, fontOf(style).font().descent());
    }

private:
    const RememberingFont &fontOf(const TextStyle &style) const
    {
        const auto index = static_cast<std::size_t>(style.face);
        return _fonts[index < _fonts.size() ? index : 0];
    }

    static Unit scale(const ShapedFont &font, const TextStyle &style, hb_position_t length)
    {
        const std::int64_t doubled = std::int64_t{2} * length * style.size;
        const std::int64_t em = font.unitsPerEm();
        return static_cast<Unit>((doubled + (doubled < 0 ? -em : em)) / (2 * em));
    }

    const std::array<RememberingFont, faces.size()> _fonts{
        RememberingFont(faces[0]), RememberingFont(faces[1]), RememberingFont(faces[2]),
        RememberingFont(faces[3])};
};

} // namespace

const TextMeasure &builtInTextMeasure()
{
    static const BuiltInTextMeasure measure;
    return measure;
}

} // namespace zarn::layout
