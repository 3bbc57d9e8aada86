// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace zarn::io {

/// Bytes of a MIDI file one after the other. What is not there is answered with nothing, and the
/// position stays.
class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) noexcept : _bytes(bytes) { }

    std::size_t position() const noexcept { return _position; }
    std::size_t size() const noexcept { return _bytes.size(); }
    bool isAtEnd() const noexcept { return _position >= _bytes.size(); }
    std::size_t rest() const noexcept { return _bytes.size() - _position; }

    /// Beyond the end is the end.
    void seek(std::size_t position) noexcept
    {
        _position = position < _bytes.size() ? position : _bytes.size();
    }

    bool standsAt(std::string_view text) const noexcept
    {
        return _bytes.compare(_position, text.size(), text) == 0;
    }

    std::optional<std::uint8_t> peek() const noexcept
    {
        if (isAtEnd())
            return std::nullopt;
        return static_cast<std::uint8_t>(_bytes[_position]);
    }

    std::optional<std::uint8_t> byte() noexcept
    {
        const auto found = peek();
        _position += found.has_value();
        return found;
    }

    std::optional<std::string_view> block(std::size_t count) noexcept
    {
        if (rest() < count)
            return std::nullopt;
        const auto found = _bytes.substr(_position, count);
        _position += count;
        return found;
    }

    /// A whole number of so many bytes, high byte first or low byte first.
    std::optional<std::uint32_t> number(std::size_t count, bool isLowFirst = false) noexcept
    {
        const auto found = block(count);
        if (!found)
            return std::nullopt;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < count; ++i)
            value =
                value << 8 | static_cast<std::uint8_t>((*found)[isLowFirst ? count - 1 - i : i]);
        return value;
    }

    /// Seven bits a byte, all but the last one marked, at most four bytes.
    std::optional<std::uint32_t> variableNumber() noexcept
    {
        constexpr std::size_t mostBytes = 4;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < mostBytes && _position + i < _bytes.size(); ++i) {
            const auto next = static_cast<std::uint8_t>(_bytes[_position + i]);
            value = value << 7 | (next & 0x7Fu);
            if (next < 0x80) {
                _position += i + 1;
                return value;
            }
        }
        return std::nullopt;
    }

private:
    std::string_view _bytes;
    std::size_t _position = 0;
};

} // namespace zarn::io
