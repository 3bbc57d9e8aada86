// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

/// Numbers that are the same for a seed on every machine.
class Random {
public:
    explicit Random(std::uint64_t seed) : _engine(seed) { }

    /// 0 to `count` - 1; 0 for nothing to choose from.
    unsigned below(std::uint64_t count)
    {
        return count == 0 ? 0 : static_cast<unsigned>(_engine() % count);
    }
    int between(int first, int last)
    {
        return first + static_cast<int>(below(static_cast<unsigned>(last - first + 1)));
    }
    bool percent(unsigned chance) { return below(100) < chance; }
    bool coin() { return percent(50); }

private:
    std::mt19937_64 _engine;
};
