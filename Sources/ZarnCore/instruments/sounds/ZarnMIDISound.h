// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn {

/// A sound of a General MIDI device: the program and the two bytes of the bank, counted from 0.
class MIDISound {
public:
    constexpr MIDISound() noexcept = default;
    constexpr explicit MIDISound(std::int32_t program, std::int32_t msbBank = 0,
                                 std::int32_t lsbBank = 0) noexcept
        : _program(program), _msbBank(msbBank), _lsbBank(lsbBank)
    {
    }

    constexpr std::int32_t program() const noexcept { return _program; }
    constexpr void setProgram(std::int32_t program) noexcept { _program = program; }

    /// Bank select, controller 0.
    constexpr std::int32_t msbBank() const noexcept { return _msbBank; }
    constexpr void setMsbBank(std::int32_t bank) noexcept { _msbBank = bank; }

    /// Bank select, controller 32.
    constexpr std::int32_t lsbBank() const noexcept { return _lsbBank; }
    constexpr void setLsbBank(std::int32_t bank) noexcept { _lsbBank = bank; }

    friend constexpr bool operator==(const MIDISound &a, const MIDISound &b) noexcept
    {
        return a._program == b._program && a._msbBank == b._msbBank && a._lsbBank == b._lsbBank;
    }
    friend constexpr bool operator!=(const MIDISound &a, const MIDISound &b) noexcept
    {
        return !(a == b);
    }
    friend constexpr bool operator<(const MIDISound &a, const MIDISound &b) noexcept
    {
        if (a._program != b._program)
            return a._program < b._program;
        if (a._msbBank != b._msbBank)
            return a._msbBank < b._msbBank;
        return a._lsbBank < b._lsbBank;
    }

private:
    std::int32_t _program = 0;
    std::int32_t _msbBank = 0;
    std::int32_t _lsbBank = 0;
};

} // namespace zarn
