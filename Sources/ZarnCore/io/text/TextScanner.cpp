// SPDX-License-Identifier: MIT
#include <ZarnCore/io/text/TextScanner.h>

#include <ZarnCore/ZarnAssert.h>

#include <algorithm>
#include <cctype>

namespace zarn::io::text {

namespace {

bool isBlank(char letter) noexcept
{
    return letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r';
}

bool isWordLetter(char letter) noexcept
{
    return std::isalnum(static_cast<unsigned char>(letter)) != 0;
}

} // namespace

bool TextScanner::isDigit(std::size_t ahead) const noexcept
{
    return peek(ahead) >= '0' && peek(ahead) <= '9';
}

bool TextScanner::take(char letter) noexcept
{
    if (isAtEnd() || _text[_at] != letter)
        return false;
    ++_at;
    return true;
}

bool TextScanner::take(std::string_view word) noexcept
{
    if (!startsWith(word))
        return false;
    _at += word.size();
    return true;
}

void TextScanner::skipBlanks() noexcept
{
    while (!isAtEnd() && isBlank(_text[_at]))
        ++_at;
}

std::string_view TextScanner::takeWord() noexcept
{
    const std::size_t start = _at;
    while (!isAtEnd() && isWordLetter(_text[_at]))
        ++_at;
    return _text.substr(start, _at - start);
}

unsigned TextScanner::takeNumber(const char *what, unsigned lowest, unsigned highest)
{
    const std::string range =
        std::string(what) + " from " + std::to_string(lowest) + " to " + std::to_string(highest);
    if (!isDigit())
        failExpecting(range);
    const std::size_t start = _at;
    unsigned number = 0;
    for (; isDigit(); ++_at)
        number = std::min(number * 10 + static_cast<unsigned>(peek() - '0'), 100000u);
    if (number < lowest || number > highest) {
        _at = start;
        failExpecting(range);
    }
    return number;
}

void TextScanner::failExpecting(const std::string &expected) const
{
    std::size_t end = _at;
    while (end < _text.size() && end < _at + 20 && !isBlank(_text[end]))
        ++end;
    const std::string found(_text.substr(_at, end - _at));
    failAt(_at,
           "expected " + expected + (isAtEnd() ? ", found the end" : ", found \"" + found + "\""));
}

void TextScanner::failAt(std::size_t place, const std::string &message) const
{
    const std::string_view before = _text.substr(0, place);
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const std::size_t lineEnd = before.rfind('\n');
    const std::size_t column = lineEnd == std::string_view::npos ? place + 1 : place - lineEnd;
    ZARN_RAISE_IN("zarn::ZarnCoreUtils::make_from_string",
                  "line " + std::to_string(line) + ", column " + std::to_string(column) + ": "
                      + message);
}

} // namespace zarn::io::text
