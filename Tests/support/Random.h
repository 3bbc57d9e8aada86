// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <random>
#include <string_view>

/// Numbers that are the same for a seed on every machine, or that the bytes of a fuzzer choose.
class Random {
public:
    explicit Random(std::uint64_t seed) : _engine(seed) { }

    /// Each number takes as many bytes as it needs; behind the end there are zeros.
    explicit Random(std::string_view bytes) : _bytes(bytes) { }

    bool isUsedUp() const noexcept { return !_engine.has_value() && _bytes.empty(); }

    /// 0 to `count` - 1; 0 for nothing to choose from.
    unsigned below(std::uint64_t count)
    {
        return count == 0 ? 0 : static_cast<unsigned>(next(count) % count);
    }
    int between(int first, int last)
    {
        return first + static_cast<int>(below(static_cast<unsigned>(last - first + 1)));
    }
    bool percent(unsigned chance) { return below(100) < chance; }
    bool coin() { return percent(50); }

private:
    std::uint64_t next(std::uint64_t count)
    {
        if (_engine.has_value())
            return (*_engine)();
        std::uint64_t number = 0;
        for (std::uint64_t rest = count - 1; rest > 0 && !_bytes.empty(); rest >>= 8) {
            number = number << 8 | static_cast<unsigned char>(_bytes.front());
            _bytes.remove_prefix(1);
        }
        return number;
    }

    std::optional<std::mt19937_64> _engine;
    std::string_view _bytes;
};
