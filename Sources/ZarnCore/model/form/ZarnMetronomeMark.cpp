// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnMetronomeMark.h>

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace zarn {

using NoteValue = RhythmValue::NoteValue;

namespace {

/// Signs of Unicode, the quarter and the eighth as they are in most fonts.
constexpr std::array<std::pair<NoteValue, std::string_view>, 7> signs = {{
    {NoteValue::Quarter, "♩"},
    {NoteValue::Eighth, "♪"},
    {NoteValue::Half, "\U0001D15E"},
    {NoteValue::Whole, "\U0001D15D"},
    {NoteValue::DWhole, "\U0001D15C"},
    {NoteValue::Sixteenth, "\U0001D161"},
    {NoteValue::ThirtySecond, "\U0001D162"},
}};

constexpr std::string_view equalSign = " = ";

std::string signOf(const MetronomeMark::Note &note)
{
    const auto *const row = std::find_if(
        signs.begin(), signs.end(), [&note](const auto &sign) { return sign.first == note.value; });
    return std::string(row == signs.end() ? "" : row->second)
        + std::string(static_cast<std::size_t>(note.dots), '.');
}

std::string numberText(double number)
{
    return QString::number(number, 'g', 10).toStdString();
}

/// Takes a note from the start of a text.
std::optional<MetronomeMark::Note> takeNote(std::string_view &text)
{
    const auto *const row = std::find_if(signs.begin(), signs.end(), [text](const auto &sign) {
        return text.substr(0, sign.second.size()) == sign.second;
    });
    if (row == signs.end())
        return std::nullopt;
    text.remove_prefix(row->second.size());
    MetronomeMark::Note note = {row->first};
    for (; note.dots < MetronomeMark::MostDots && !text.empty() && text.front() == '.'; ++note.dots)
        text.remove_prefix(1);
    return note;
}

double takeNumber(std::string_view &text)
{
    const auto size = std::min(text.find_first_not_of("0123456789."), text.size());
    const double number = QByteArray(text.data(), static_cast<int>(size)).toDouble();
    text.remove_prefix(size);
    return number;
}

/// Takes a mark from the start of a text, as `text` writes it.
std::optional<MetronomeMark> takeMark(std::string_view &text)
{
    auto rest = text;
    MetronomeMark mark;
    mark.isInParentheses = !rest.empty() && rest.front() == '(';
    if (mark.isInParentheses)
        rest.remove_prefix(1);
    const auto note = takeNote(rest);
    if (!note || rest.substr(0, equalSign.size()) != equalSign)
        return std::nullopt;
    mark.note = *note;
    rest.remove_prefix(equalSign.size());
    mark.equal = takeNote(rest);
    if (!mark.equal) {
        mark.perMinute = takeNumber(rest);
        if (mark.perMinute <= 0)
            return std::nullopt;
    }
    if (mark.isInParentheses) {
        if (rest.empty() || rest.front() != ')')
            return std::nullopt;
        rest.remove_prefix(1);
    }
    const auto taken = text.substr(0, text.size() - rest.size());
    if (mark.text() != taken || (!rest.empty() && rest.front() != ' '))
        return std::nullopt;
    text = rest;
    return mark;
}

} // namespace

double MetronomeMark::Note::quarters() const
{
    return RhythmValue::noteValueToTimeUnit(value).toDouble() * (2 - std::ldexp(1.0, -dots));
}

double MetronomeMark::factor() const
{
    return equal ? equal->quarters() / note.quarters() : 1;
}

std::string MetronomeMark::text() const
{
    const auto inside =
        signOf(note) + std::string(equalSign) + (equal ? signOf(*equal) : numberText(perMinute));
    return isInParentheses ? '(' + inside + ')' : inside;
}

std::vector<TempoPiece> tempoPieces(const std::string &text)
{
    std::vector<TempoPiece> pieces;
    std::string words;
    const auto endWords = [&](bool hasSpace) {
        if (hasSpace && !words.empty())
            words.pop_back();
        if (!words.empty())
            pieces.emplace_back(std::exchange(words, {}));
    };
    std::string_view rest = text;
    while (!rest.empty()) {
        const bool mayBegin = words.empty() || words.back() == ' ';
        if (const auto mark = mayBegin ? takeMark(rest) : std::nullopt) {
            endWords(true);
            pieces.emplace_back(*mark);
            if (!rest.empty())
                rest.remove_prefix(1);
            continue;
        }
        words += rest.front();
        rest.remove_prefix(1);
    }
    endWords(false);
    return pieces;
}

bool hasMetronomeMark(const std::string &text)
{
    const auto pieces = tempoPieces(text);
    return std::any_of(pieces.begin(), pieces.end(), [](const TempoPiece &piece) {
        return std::holds_alternative<MetronomeMark>(piece);
    });
}

} // namespace zarn
