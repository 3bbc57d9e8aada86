// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnToneSet.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zarn::chord {

/// A degree above a root or a tonic, measured against the major scale: the third of a minor chord
/// is {3, -1}, the seventh of a dominant chord {7, -1}, that of a diminished one {7, -2}.
struct Degree {
    static constexpr int lastNumber = 13;

    /// 1 for the root, to 13.
    std::uint8_t number = 1;

    /// Semitones above (or, negative, below) the plain degree.
    std::int8_t alteration = 0;

    /// Semitones above the root: 14 for a ninth.
    constexpr int semitones() const noexcept
    {
        const int steps = number - 1;
        return spelling::naturalSemitones[static_cast<std::size_t>(steps % 7)] + steps / 7 * 12
            + alteration;
    }

    /// The same within an octave, 0 to 11.
    constexpr Tone tone() const noexcept { return Tone(semitones()); }

    /// The spelling on the degree's own letter; past double accidentals the letter moves on, so
    /// that the pitch stays right.
    ZARNCORE_EXPORT PitchClass above(const PitchClass &root) const noexcept;

    /// "5", "b7", "#11", "bb7".
    ZARNCORE_EXPORT std::string toText() const;

    friend constexpr bool operator==(Degree left, Degree right) noexcept
    {
        return left.number == right.number && left.alteration == right.alteration;
    }
    friend constexpr bool operator!=(Degree left, Degree right) noexcept
    {
        return !(left == right);
    }
    /// By number, then alteration.
    friend constexpr bool operator<(Degree left, Degree right) noexcept
    {
        return left.number != right.number ? left.number < right.number
                                           : left.alteration < right.alteration;
    }
};

/// A few degrees, held in place.
class DegreeList {
public:
    static constexpr std::size_t capacity = 13;

    constexpr DegreeList() noexcept = default;

    /// Reads "1 b3 5 b7"; for the tables, which check that all of it was read.
    static constexpr DegreeList fromText(std::string_view text) noexcept
    {
        DegreeList list;
        Degree degree = {0, 0};
        for (const char letter : text) {
            if (letter == 'b' || letter == '#')
                degree.alteration =
                    static_cast<std::int8_t>(degree.alteration + (letter == 'b' ? -1 : 1));
            else if (letter >= '0' && letter <= '9')
                degree.number = static_cast<std::uint8_t>(degree.number * 10 + (letter - '0'));
            else {
                list.append(degree);
                degree = {0, 0};
            }
        }
        if (degree.number != 0)
            list.append(degree);
        return list;
    }

    constexpr const Degree *begin() const noexcept { return _degrees.data(); }
    constexpr const Degree *end() const noexcept { return _degrees.data() + _size; }
    constexpr std::size_t size() const noexcept { return _size; }
    constexpr bool isEmpty() const noexcept { return _size == 0; }
    constexpr Degree operator[](std::size_t index) const noexcept { return _degrees[index]; }

    /// The first degree with a number; null when there is none.
    constexpr const Degree *find(int number) const noexcept
    {
        for (const Degree &degree : *this)
            if (degree.number == number)
                return &degree;
        return nullptr;
    }
    constexpr bool contains(Degree degree) const noexcept
    {
        for (const Degree &own : *this)
            if (own == degree)
                return true;
        return false;
    }

    /// False, and nothing changes, when the list is full.
    constexpr bool append(Degree degree) noexcept
    {
        if (_size == capacity)
            return false;
        _degrees[_size++] = degree;
        return true;
    }

    /// Appends in order, unless the degree is there already; false when the list is full.
    ZARNCORE_EXPORT bool insert(Degree degree) noexcept;
    ZARNCORE_EXPORT void remove(Degree degree) noexcept;

    /// Whether players leave the degree out of a chord of these without being misunderstood: the
    /// perfect fifth of four and more, the root of five, the ninth of six and the eleventh of
    /// seven. Never the third, a seventh or what is altered.
    ZARNCORE_EXPORT bool isOmissible(Degree degree) const noexcept;

    /// The tones above a root.
    constexpr ToneSet tones(Tone root = Tone()) const noexcept
    {
        ToneSet set;
        for (const Degree &degree : *this)
            set.insert(root + degree.semitones());
        return set;
    }

    friend constexpr bool operator==(const DegreeList &left, const DegreeList &right) noexcept
    {
        if (left._size != right._size)
            return false;
        for (std::size_t i = 0; i < left._size; ++i)
            if (left._degrees[i] != right._degrees[i])
                return false;
        return true;
    }
    friend constexpr bool operator!=(const DegreeList &left, const DegreeList &right) noexcept
    {
        return !(left == right);
    }

private:
    std::array<Degree, capacity> _degrees = {};
    std::uint8_t _size = 0;
};

} // namespace zarn::chord
