// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/CharacterRow.h>

#include <QVector>

namespace zarn::sheet {

namespace {

/// Select Graphic Rendition codes (ECMA-48), by `Ink`.
constexpr const char *Colours[] = {"0", "2", "0;1", "0;36", "0;33", "0;1;34", "0;35"};

/// The characters that are shown, composed; marks that stay alone and control characters are not.
QVector<uint> shownCharacters(const QString &text)
{
    QVector<uint> shown;
    for (const uint character : text.normalized(QString::NormalizationForm_C).toUcs4())
        if (character >= 0x20 && !(character >= 0x7f && character < 0xa0)
            && !(QChar::category(character) == QChar::Mark_NonSpacing))
            shown.append(character);
    return shown;
}

struct CharacterRange {
    uint first;
    uint last;
};

/// What takes two columns, the same in every locale: East Asian Width W and F (Unicode 15, UAX 11),
/// by blocks.
constexpr CharacterRange WideCharacters[] = {
    {0x1100, 0x115f},   {0x231a, 0x231b},   {0x23e9, 0x23ec},   {0x2e80, 0x303e},
    {0x3041, 0x33ff},   {0x3400, 0x4dbf},   {0x4e00, 0xa4cf},   {0xa960, 0xa97c},
    {0xac00, 0xd7a3},   {0xf900, 0xfaff},   {0xfe30, 0xfe6f},   {0xff01, 0xff60},
    {0xffe0, 0xffe6},   {0x1f300, 0x1f64f}, {0x1f680, 0x1f6ff}, {0x1f900, 0x1f9ff},
    {0x20000, 0x3fffd},
};

int columnsOf(uint character)
{
    for (const CharacterRange &range : WideCharacters)
        if (character <= range.last)
            return character >= range.first ? 2 : 1;
    return 1;
}

} // namespace

int displayWidth(const QString &text)
{
    int width = 0;
    for (const uint character : shownCharacters(text))
        width += columnsOf(character);
    return width;
}

QString shortened(const QString &text, int width, bool asUtf8)
{
    if (displayWidth(text) <= width)
        return text;
    const QString mark = asUtf8 ? QStringLiteral("\u2026") : QStringLiteral(".");
    QString cut;
    int used = 1;
    for (const uint character : shownCharacters(text)) {
        used += columnsOf(character);
        if (used > width)
            break;
        cut += QString::fromUcs4(&character, 1);
    }
    return width > 0 ? cut + mark : QString();
}

CharacterRow::Cell &CharacterRow::at(int column)
{
    if (column >= width())
        _cells.resize(static_cast<std::size_t>(column) + 1);
    return _cells[static_cast<std::size_t>(column)];
}

void CharacterRow::write(int column, const QString &text, Ink ink)
{
    for (const uint character : shownCharacters(text)) {
        const int columns = columnsOf(character);
        at(column) = {static_cast<char32_t>(character), ink};
        for (int i = 1; i < columns; ++i)
            at(column + i) = {0, ink};
        column += columns;
    }
}

void CharacterRow::fill(int from, int to, const QString &character, Ink ink)
{
    for (int column = from; column < to; ++column)
        write(column, character, ink);
}

std::string CharacterRow::toText(bool withColour) const
{
    auto end = _cells.size();
    while (end > 0 && _cells[end - 1].character == U' ')
        --end;
    std::string text;
    QString run;
    Ink ink = Ink::Plain;
    const auto changeInk = [&](Ink to) {
        text += run.toStdString();
        run.clear();
        if (withColour && to != ink)
            text.append("\x1b[").append(Colours[static_cast<std::size_t>(to)]).append("m");
        ink = to;
    };
    for (std::size_t i = 0; i < end; ++i) {
        if (_cells[i].ink != ink && _cells[i].character != U' ')
            changeInk(_cells[i].ink);
        const uint character = _cells[i].character;
        if (character != 0)
            run += QString::fromUcs4(&character, 1);
    }
    changeInk(Ink::Plain);
    return text;
}

} // namespace zarn::sheet
