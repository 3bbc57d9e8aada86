// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/Page.h>

#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/io/sheet/SheetPainter.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/io/sheet/TrackText.h>
#include <ZarnCore/io/sheet/WrappedText.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::sheet {

std::string pageOf(const ScoreModel &model, const ShownPart &part, const PageStyle &style)
{
    const Glyphs &glyphs = style.usesUtf8 ? Glyphs::utf8() : Glyphs::ascii();
    const Signs signs = style.usesUtf8 ? Signs::Symbols : Signs::Letters;
    Legend legend;
    const Sheet sheet = buildSheet(model, part, glyphs, legend);
    std::vector<CharacterRow> rows;
    for (const QString &line : titleLines(model, part.track, signs))
        addWrapped(rows, line, style.width, Ink::Plain);
    rows.emplace_back();
    for (CharacterRow &row : paintSheet(sheet, glyphs, style.width))
        rows.push_back(std::move(row));
    QStringList legendTexts = legend.texts();
    if (!legendTexts.isEmpty()) {
        rows.emplace_back();
        legendTexts.first().prepend(QStringLiteral("Signs: "));
    }
    addWrapped(rows, legendTexts, style.width);
    std::string text;
    for (const CharacterRow &row : rows)
        text += row.toText(style.usesColours) + '\n';
    return text;
}

} // namespace zarn::sheet
