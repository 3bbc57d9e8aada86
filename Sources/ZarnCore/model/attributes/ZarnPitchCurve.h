// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace utils {
class TextScanner;
}

namespace zarn {

/// A pitch at a time inside a note: in 60ths of its length, and in quarter-tones from its pitch (2
/// is a semitone).
struct CurvePoint {
    std::uint8_t position = 0;
    std::int16_t value = 0;

    friend bool operator==(const CurvePoint &left, const CurvePoint &right) noexcept
    {
        return left.position == right.position && left.value == right.value;
    }
};

/// How the pitch of a note moves while it sounds: straight from point to point. No point at all
/// means that it stays.
class ZARNCORE_EXPORT PitchCurve {
public:
    using Points = std::vector<CurvePoint>;

    static constexpr unsigned MaxPoints = 16;

    /// The position of the end of the note.
    static constexpr unsigned End = 60;

    PitchCurve() = default;

    /// Raises unless `isCurve`.
    PitchCurve(std::initializer_list<CurvePoint> points);
    explicit PitchCurve(Points points);

    /// No points, or 2 to 16, their positions rising from 0 to 60.
    static bool isCurve(const Points &points) noexcept;

    const Points &points() const noexcept { return _points; }
    bool isEmpty() const noexcept { return _points.empty(); }

    /// Whether every value lies between two numbers, both included.
    bool isWithin(int lowest, int highest) const noexcept;

    /// In quarter-tones, at a position from 0 to 60; 0 for no points.
    utils::rational valueAt(const utils::rational &position) const;

    /// What is heard of it from one position to a later one, stretched over a note of its own.
    /// Values and positions are rounded; the parts on both sides of a cut meet in one value.
    PitchCurve part(const utils::rational &from, const utils::rational &to) const;

    /// "0:0 30:4 60:4".
    std::string toString() const;
    static std::optional<PitchCurve> take(utils::TextScanner &scanner);

    friend bool operator==(const PitchCurve &left, const PitchCurve &right) noexcept
    {
        return left._points == right._points;
    }
    friend bool operator!=(const PitchCurve &left, const PitchCurve &right) noexcept
    {
        return !(left == right);
    }

private:
    Points _points;
};

} // namespace zarn
