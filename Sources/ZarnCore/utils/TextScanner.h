// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <cstddef>
#include <string_view>
#include <system_error>

namespace utils {

/// Reads a short text from its start, piece by piece. What is not there is not taken.
class TextScanner {
public:
    explicit TextScanner(std::string_view text) noexcept : _rest(text) { }

    bool isAtEnd() const noexcept { return _rest.empty(); }

    bool take(std::string_view word) noexcept
    {
        if (_rest.substr(0, word.size()) != word)
            return false;
        _rest.remove_prefix(word.size());
        return true;
    }

    /// Numbers stand without leading zeros, so that each is written in one way.
    template <typename T>
    bool takeNumber(T &number) noexcept
    {
        if (_rest.size() > 1 && _rest[0] == '0' && _rest[1] >= '0' && _rest[1] <= '9')
            return false;
        const auto result = std::from_chars(_rest.data(), _rest.data() + _rest.size(), number);
        if (result.ec != std::errc())
            return false;
        _rest.remove_prefix(static_cast<std::size_t>(result.ptr - _rest.data()));
        return true;
    }

    /// All up to the next space or comma, or to the end; may be empty.
    std::string_view takeWord() noexcept
    {
        const std::string_view word = _rest.substr(0, _rest.find_first_of(" ,"));
        _rest.remove_prefix(word.size());
        return word;
    }

private:
    std::string_view _rest;
};

} // namespace utils
