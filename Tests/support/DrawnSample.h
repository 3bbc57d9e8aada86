// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnDrawListBuilder.h>
#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnLayout/font/ZarnTextMeasure.h>

#include <memory>
#include <string_view>
#include <utility>

namespace zarn::test {

/// A text at a place, measured as layouts do.
inline void addText(layout::DrawListBuilder &list, layout::MarkKind kind,
                    const layout::DrawPlace &place, std::string_view characters, layout::Point at,
                    layout::TextStyle style = {})
{
    list.text(kind, place, characters, style, at,
              layout::builtInTextMeasure().measure(characters, style));
}

/// Two sheets drawn by hand, with a mark of every shape and form: the first has a title and a
/// system, the second the same system.
inline std::shared_ptr<const layout::Layout> drawnSample()
{
    using namespace layout;
    constexpr Unit sp = staffSpace;
    const auto &font = MusicFont::builtIn();
    const auto place = [](int beat, int note = -1) {
        DrawPlace result;
        result.track = 0;
        result.bar = 2;
        result.staff = 0;
        if (beat >= 0)
            result.voice = 0;
        result.beat = static_cast<std::int16_t>(beat);
        result.note = static_cast<std::int16_t>(note);
        return result;
    };
    DrawListBuilder list;
    for (int line = 0; line < 5; ++line)
        list.line(MarkKind::StaffLine, place(-1), {0, line * sp}, {40 * sp, line * sp},
                  font->defaults().staffLineThickness);
    list.glyph(MarkKind::Clef, place(-1), font->glyph("gClef"), {sp, 3 * sp});
    list.glyph(MarkKind::NoteHead, place(0, 0), font->glyph("noteheadBlack"), {8 * sp, 2 * sp});
    list.line(MarkKind::Stem, place(0), {9 * sp, 2 * sp}, {9 * sp, -fromSpaces(1.5)},
              fromSpaces(0.12));
    list.fill(MarkKind::Beam, place(0),
              PathShape::polygon({{9 * sp, -sp},
                                  {15 * sp, -2 * sp},
                                  {15 * sp, -fromSpaces(1.5)},
                                  {9 * sp, -fromSpaces(0.5)}}));
    list.glyph(MarkKind::Arpeggio, place(1), font->glyph("wiggleArpeggiatoUp"), {20 * sp, 4 * sp},
               {{1024, 1024}, 1});
    list.glyph(MarkKind::Brace, {}, font->glyph("brace"), {-sp, 4 * sp}, {{1024, 2048}, 0});
    list.glyph(MarkKind::NoteHead, place(1, 1), font->glyph("noteheadHalf"), {22 * sp, sp},
               GlyphForm::scaled(0.7));
    list.line(MarkKind::PalmMute, place(1), {22 * sp, -3 * sp}, {30 * sp, -3 * sp},
              fromSpaces(0.16), {sp, sp / 2}, LineCap::Round);
    list.stroke(MarkKind::Enclosure, place(1),
                PathShape::rectangle({30 * sp, -5 * sp, 35 * sp, -3 * sp}), fromSpaces(0.16));
    list.fill(MarkKind::Slur, place(1),
              PathShape()
                  .moveTo({22 * sp, 0})
                  .curveTo({24 * sp, -2 * sp}, {28 * sp, -2 * sp}, {30 * sp, 0})
                  .curveTo({28 * sp, -fromSpaces(1.7)}, {24 * sp, -fromSpaces(1.7)}, {22 * sp, 0})
                  .close());
    addText(list, MarkKind::Fret, place(1, 0), "12", {24 * sp, 8 * sp}, {TextFace::Bold, 2 * sp});
    addText(list, MarkKind::Lyric, place(1), "Größe & <AVA>", {24 * sp, 12 * sp},
            {TextFace::Italic, 2 * sp});
    addText(list, MarkKind::Lyric, place(0), "日本 \x01", {8 * sp, 12 * sp});

    auto system = std::make_shared<SystemDrawing>();
    system->marks = list.build();
    system->staves.push_back({0, 0, StaffKind::Notation, 5, 0, 4 * sp});
    system->bars.push_back({2, 1, 0, 40 * sp, {{0, 8 * sp}, {utils::rational(1), 22 * sp}}});

    DrawListBuilder page;
    addText(page, MarkKind::Title, {}, "A Study", {40 * sp, 15 * sp}, {TextFace::Bold, 4 * sp});

    Layout::Content content;
    content.font = font;
    content.staffSpace = 1750;
    content.title = "A Study";
    content.pages.resize(2);
    content.pages[0].marks = std::make_shared<DrawList>(page.build());
    content.pages[0].systems = {{{system, {10 * sp, 25 * sp}}}};
    content.pages[1].systems = {{{system, {10 * sp, 15 * sp}}}};
    content.pages[1].width = 148000;
    content.pages[1].height = 210000;
    content.problems.push_back({place(1, 0), "The string is missing."});
    return std::make_shared<Layout>(std::move(content));
}

} // namespace zarn::test
