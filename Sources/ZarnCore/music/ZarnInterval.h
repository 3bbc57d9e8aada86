// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnSpellingTables.h>

#include <QString>

#include <cstdint>
#include <vector>

class QDebug;
class QDomDocument;
class QDomElement;

namespace zarn {

class PitchClass;
class Tone;

/// A spelled interval: a degree and its quality. Compound degrees count as perfect ones: there is
/// no major ninth, its plain form is "P9".
///
/// Not every pair is an interval; arithmetic on a pair that is none gives the invalid interval.
class ZARNCORE_EXPORT Interval {
public:
    enum class Value : std::uint8_t {
        Unison,
        Second,
        Third,
        Fourth,
        Fifth,
        Sixth,
        Seventh,
        Octave,
        Ninth,
        Eleventh = 10,
        Thirteenth = 12,
        Invalid = 14
    };
    enum class Alteration : std::uint8_t {
        DoublyDiminished,
        Diminished,
        Minor,
        Perfect,
        Major,
        Augmented,
        DoublyAugmented,
        Invalid = 8
    };

    /// Invalid.
    Interval() noexcept = default;

    /// The plain form, perfect or major; a number that is no degree gives the invalid interval.
    explicit Interval(Value value) noexcept;

    /// Any pair is kept; `isValid` tells whether it is an interval.
    Interval(Value value, Alteration alteration) noexcept : _alteration(alteration), _value(value)
    {
    }
    Interval(const Interval &) noexcept = default;
    Interval &operator=(const Interval &) noexcept = default;
    virtual ~Interval();

    /// Order by degree, then quality.
    virtual bool operator==(const Interval &other) const noexcept;
    virtual bool operator<(const Interval &other) const noexcept;
    virtual bool operator<=(const Interval &other) const noexcept;
    virtual bool operator>(const Interval &other) const noexcept;
    virtual bool operator>=(const Interval &other) const noexcept;
    bool operator!=(const Interval &other) const noexcept { return !(*this == other); }

    /// The n-th next higher or lower quality of the same degree; past the last one the invalid
    /// interval. Negative steps go the other way.
    virtual Interval operator+(int steps) const noexcept;
    virtual Interval operator+(unsigned steps) const noexcept;
    virtual Interval operator-(int steps) const noexcept;
    virtual Interval operator-(unsigned steps) const noexcept;

    /// "M3", "dim5"; "na" for a pair that is no interval.
    virtual QString toString() const;

    /// A "Degree" element with the attributes "interval" and "alteration".
    virtual QDomElement toXML(QDomDocument &document) const;

    Value value() const noexcept { return _value; }
    Alteration alteration() const noexcept { return _alteration; }
    bool isValid() const noexcept
    {
        return static_cast<int>(_value) < spelling::degreeCount
            && static_cast<int>(_alteration) < spelling::qualityCount
            && spelling::cells[cell()].isValid;
    }

    /// Size; 0 for a pair that is no interval.
    int semitones() const noexcept { return isValid() ? spelling::cells[cell()].semitones : 0; }

    /// Offset of the quality against the plain form. Unison and octave count with the thirds here
    /// (a doubly diminished one is -3), though they are perfect everywhere else. 0 where the
    /// degree has no name or the quality is none.
    int alterationSemitones() const noexcept;

    void setValue(Value value) noexcept { _value = value; }
    void setAlteration(Alteration alteration) noexcept { _alteration = alteration; }

    /// Reads what `toXML` writes; anything else gives invalid values.
    static Interval fromXML(const QDomElement &element);

    /// "Third"; a degree without a name raises. The parser reads any case and gives `Invalid` for
    /// an unknown text.
    static QString valueToString(Value value);
    static Value valueFromString(const QString &text);

    /// "Major"; as with the degrees.
    static QString alterationToString(Alteration alteration);
    static Alteration alterationFromString(const QString &text);

    /// The intervals up to an octave that lead from the key of `a` to the key of `b`, whatever the
    /// octaves, in the order of intervals.
    static const std::vector<Interval> &fromPitches(int a, int b) noexcept;
    static const std::vector<Interval> &fromTones(Tone a, Tone b) noexcept;

    /// All valid intervals, compound ones included, whose transposition of `from` is `to`, in the
    /// order of intervals; none for an invalid pitch class.
    static const std::vector<Interval> &fromPitchClasses(const PitchClass &from,
                                                         const PitchClass &to);

    friend uint qHash(const Interval &interval, uint seed = 0) noexcept
    {
        return (static_cast<uint>(interval._value) * 16 + static_cast<uint>(interval._alteration))
            * 2654435761u
            ^ seed;
    }

private:
    friend class PitchClass;

    /// Number in the tables; only when both parts lie inside.
    std::size_t cell() const noexcept
    {
        return static_cast<std::size_t>(_value) * spelling::qualityCount
            + static_cast<std::size_t>(_alteration);
    }
    void _inc() noexcept { step(1); }
    void _dec() noexcept { step(-1); }
    void step(int direction) noexcept;

    Alteration _alteration = Alteration::Invalid;
    Value _value = Value::Invalid;
};

ZARNCORE_EXPORT QDebug operator<<(QDebug debug, const Interval &interval);

} // namespace zarn
