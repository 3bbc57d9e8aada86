// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace utils {

/// How a word is compared with the keys of an `EnumTable`.
enum class KeyMatch : unsigned char {
    UpperCase, ///< both in upper case (ASCII)
    Exact,     ///< letter by letter
};

/// One enumerator and its words: `text` is printed, `key` is read. An empty key means that the
/// text is read as it is printed; an empty text means that the value is read, never printed.
template <typename E>
struct EnumText {
    E value;
    std::string_view text;
    std::string_view key = {};
};

/// The texts of an enumeration as compile-time data, looked up in both directions.
///
/// The table finds; what an unknown word or number means is the caller's decision. A word is
/// compared with the keys first and with the printed texts after them, so that whatever a value
/// prints is read again.
template <typename E, std::size_t Count>
class EnumTable {
public:
    constexpr EnumTable(KeyMatch match, const EnumText<E> (&rows)[Count]) noexcept : _match(match)
    {
        for (std::size_t i = 0; i < Count; ++i)
            _rows[i] = rows[i];
    }

    /// The printed text of a value; nothing when the table gives it none.
    constexpr std::optional<std::string_view> text(E value) const noexcept
    {
        const auto guess = static_cast<std::size_t>(value);
        if (guess < Count && _rows[guess].value == value)
            return printed(_rows[guess]);
        for (const EnumText<E> &row : _rows)
            if (row.value == value)
                return printed(row);
        return std::nullopt;
    }

    /// The value that a word stands for; nothing when it stands for none.
    constexpr std::optional<E> value(std::string_view word) const noexcept
    {
        for (const EnumText<E> &row : _rows)
            if (matches(word, row.key.empty() ? row.text : row.key))
                return row.value;
        for (const EnumText<E> &row : _rows)
            if (!row.text.empty() && matches(word, row.text))
                return row.value;
        return std::nullopt;
    }

    /// As `text` and `value`, with the first row standing in for what is unknown.
    constexpr std::string_view textOrFirst(E value) const noexcept
    {
        return text(value).value_or(_rows[0].text);
    }
    constexpr E valueOrFirst(std::string_view word) const noexcept
    {
        return value(word).value_or(_rows[0].value);
    }

    constexpr const std::array<EnumText<E>, Count> &rows() const noexcept { return _rows; }

    /// Each value stands once, the first one prints, every row can be read, and each text and key
    /// leads back to its own value. For a `static_assert` beside the table.
    constexpr bool isConsistent() const noexcept
    {
        for (std::size_t i = 0; i < Count; ++i) {
            const EnumText<E> &row = _rows[i];
            for (std::size_t j = i + 1; j < Count; ++j)
                if (_rows[j].value == row.value)
                    return false;
            if (row.text.empty() && row.key.empty())
                return false;
            if (!row.text.empty() && value(row.text) != row.value)
                return false;
            if (!row.key.empty() && value(row.key) != row.value)
                return false;
        }
        return !_rows[0].text.empty();
    }

private:
    static constexpr std::optional<std::string_view> printed(const EnumText<E> &row) noexcept
    {
        return row.text.empty() ? std::optional<std::string_view>() : row.text;
    }

    static constexpr char upper(char letter) noexcept
    {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    }

    constexpr bool matches(std::string_view word, std::string_view key) const noexcept
    {
        if (word.size() != key.size())
            return false;
        for (std::size_t i = 0; i < key.size(); ++i) {
            const bool same =
                _match == KeyMatch::Exact ? word[i] == key[i] : upper(word[i]) == upper(key[i]);
            if (!same)
                return false;
        }
        return true;
    }

    std::array<EnumText<E>, Count> _rows = {};
    KeyMatch _match;
};

/// Builds the table of an enumeration from its rows, in the order in which it is published.
template <typename E, std::size_t Count>
constexpr EnumTable<E, Count> enumTable(KeyMatch match, const EnumText<E> (&rows)[Count]) noexcept
{
    return EnumTable<E, Count>(match, rows);
}

} // namespace utils
