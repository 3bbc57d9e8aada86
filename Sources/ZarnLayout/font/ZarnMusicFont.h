// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnGeometry.h>
#include <ZarnLayout/font/ZarnEngravingDefaults.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace utils {
enum class JsonSource;
}

class QByteArray;

namespace zarn::layout {

class FontOutlines;

/// A glyph of one music font: its number there. Numbers of different fonts say nothing to each
/// other.
enum class GlyphId : std::uint16_t {};

/// Points of glyphs that other signs are put to, as SMuFL's `glyphsWithAnchors` names them.
enum class GlyphAnchor : std::uint8_t {
    StemUpSE,   ///< where the right edge of an upward stem meets the head
    StemDownNW, ///< where the left edge of a downward stem meets the head
    StemUpNW,   ///< of flags: where an upward stem ends
    StemDownSW,
    SplitStemUpSE,
    SplitStemUpSW,
    SplitStemDownNE,
    SplitStemDownNW,
    CutOutNE, ///< corners of the box that hold no ink: the inner corner of what is cut out
    CutOutSE,
    CutOutSW,
    CutOutNW,
    GraceNoteSlashNE,
    GraceNoteSlashNW,
    GraceNoteSlashSE,
    GraceNoteSlashSW,
    NumeralBottom,
    RepeatOffset,
    NoteheadOrigin,
    OpticalCenter,
};

/// What a layout knows of a music font: names, boxes, advances and anchors of its glyphs, and the
/// thicknesses that go with it, read from the metadata that SMuFL 1.4 asks fonts to come with; and
/// where the outlines are. Immutable: any thread may ask.
class ZARNLAYOUT_EXPORT MusicFont {
public:
    /// Bravura, which the library carries. The same object at each call.
    static const std::shared_ptr<const MusicFont> &builtIn();

    /// Reads a font's metadata and the code points of SMuFL's glyph names (its `glyphnames.json`);
    /// `name` stands in messages. Raises `CoreException` with the place in the document. Glyphs
    /// whose code point is unknown are left out. Layouts are measured by these sizes; painters and
    /// writers draw the outlines of the built-in font, whatever the metadata are of.
    static std::shared_ptr<const MusicFont>
    parse(std::string_view metadata, std::string_view glyphNames, const std::string &name);

    /// A SMuFL font from its file and its metadata. Glyphs that it lacks are those of the built-in
    /// font; without metadata (an empty text) its glyphs have the sizes of their outlines, and
    /// thicknesses are the built-in font's. Raises `CoreException` when `file` is no font, and for
    /// broken metadata as `parse`.
    static std::shared_ptr<const MusicFont> open(const QByteArray &file, std::string_view metadata,
                                                 const std::string &name);

    bool hasMetadata() const noexcept { return _hasMetadata; }
    /// Whether a glyph is the built-in font's, because this one lacks it.
    bool isBorrowed(GlyphId glyph) const { return at(glyph).isBorrowed; }
    bool hasBorrowedGlyphs() const noexcept { return _hasBorrowedGlyphs; }

    /// The outlines that a glyph is drawn with, in which it has its code point.
    const FontOutlines &outlines(GlyphId glyph) const;

    /// No other font of this process has it, not even after this one is gone.
    std::uint64_t serialNumber() const noexcept { return _serialNumber; }

    /// As the metadata give them: "Bravura", "1.392".
    const std::string &fontName() const noexcept { return _fontName; }
    const std::string &version() const noexcept { return _version; }
    const EngravingDefaults &defaults() const noexcept { return _defaults; }

    std::size_t glyphCount() const noexcept { return _glyphs.size(); }

    /// The glyph with this SMuFL name ("noteheadBlack").
    std::optional<GlyphId> find(std::string_view name) const;
    /// The glyph that is drawn for this code point.
    std::optional<GlyphId> find(char32_t codePoint) const;

    /// As `find`, for names that every font has; raises `CoreException` when this one does not.
    GlyphId glyph(std::string_view name) const;

    /// The queries below raise `CoreException` for a number that is no glyph of this font.
    const std::string &name(GlyphId glyph) const { return at(glyph).name; }
    char32_t codePoint(GlyphId glyph) const { return at(glyph).codePoint; }

    /// The ink around the glyph's origin.
    const Box &box(GlyphId glyph) const { return at(glyph).box; }
    Unit advance(GlyphId glyph) const { return at(glyph).advance; }
    std::optional<Point> anchor(GlyphId glyph, GlyphAnchor anchor) const;

    MusicFont(const MusicFont &) = delete;
    MusicFont &operator=(const MusicFont &) = delete;
    ~MusicFont();

private:
    class Reader;
    struct Glyph {
        std::string name;
        char32_t codePoint = 0;
        Box box;
        Unit advance = 0;
        std::uint32_t firstAnchor = 0;
        std::uint32_t anchorCount = 0;
        bool isBorrowed = false;
    };
    struct Anchor {
        GlyphAnchor kind = GlyphAnchor::StemUpSE;
        Point at;
    };

    MusicFont();
    static std::shared_ptr<MusicFont> read(std::string_view metadata, std::string_view glyphNames,
                                           const std::string &name, utils::JsonSource source);
    const Glyph &at(GlyphId glyph) const;
    void measureGlyphs();
    void borrowGlyphs();
    void add(Glyph glyph);

    const std::uint64_t _serialNumber;
    std::unique_ptr<const FontOutlines> _outlines; ///< null where the built-in font's are used
    bool _hasMetadata = true;
    bool _hasBorrowedGlyphs = false;
    std::string _fontName;
    std::string _version;
    EngravingDefaults _defaults;
    std::vector<Glyph> _glyphs;
    std::vector<Anchor> _anchors;
    std::unordered_map<std::string, GlyphId> _byName;
    std::unordered_map<char32_t, GlyphId> _byCodePoint;
};

} // namespace zarn::layout
