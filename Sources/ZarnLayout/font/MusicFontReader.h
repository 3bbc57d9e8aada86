// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/font/ZarnMusicFont.h>

#include <rapidjson/document.h>

namespace zarn::layout {

/// Fills a font from its metadata.
class MusicFont::Reader {
public:
    explicit Reader(MusicFont &font) : _font(font) { }

    void read(const rapidjson::Value &metadata, const rapidjson::Value &glyphNames);

private:
    void readDefaults(const rapidjson::Value &defaults);
    /// Members whose values name a code point: "U+E0A4".
    void readCodePoints(const rapidjson::Value &names, const char *what);
    void readGlyphs(const rapidjson::Value &boxes, const rapidjson::Value *advances);
    void readAnchors(const rapidjson::Value &anchors);

    MusicFont &_font;
    std::unordered_map<std::string, char32_t> _codePoints;
};

} // namespace zarn::layout
