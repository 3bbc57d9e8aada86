// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zarn::io::text {

/// Walks through a text letter by letter and knows its place for messages.
class TextScanner {
public:
    explicit TextScanner(std::string_view text) noexcept : _text(text) { }

    bool isAtEnd() const noexcept { return _at == _text.size(); }

    /// The letter at hand or `ahead` of it; 0 past the end.
    char peek(std::size_t ahead = 0) const noexcept
    {
        return _at + ahead < _text.size() ? _text[_at + ahead] : '\0';
    }
    bool isDigit(std::size_t ahead = 0) const noexcept;
    bool startsWith(std::string_view word) const noexcept
    {
        return _text.substr(_at, word.size()) == word;
    }

    /// What has not been read yet.
    std::string_view rest() const noexcept { return _text.substr(_at); }

    /// Steps over a letter or word when it is at hand; answers whether it was.
    bool take(char letter) noexcept;
    bool take(std::string_view word) noexcept;

    /// Blanks and line ends.
    void skipBlanks() noexcept;

    /// Letters and digits; empty when none is at hand.
    std::string_view takeWord() noexcept;

    /// A number without sign; raises when none is at hand or it lies outside the bounds.
    unsigned takeNumber(const char *what, unsigned lowest, unsigned highest);

    std::size_t place() const noexcept { return _at; }

    /// Raises "line 1, column 5: expected ..., found ...".
    [[noreturn]] void failExpecting(const std::string &expected) const;

    /// Raises a message for a place passed before.
    [[noreturn]] void failAt(std::size_t place, const std::string &message) const;

private:
    std::string_view _text;
    std::size_t _at = 0;
};

} // namespace zarn::io::text
