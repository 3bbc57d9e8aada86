// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnInterval.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnTone.h>
#include <ZarnCore/utils/EnumTable.h>

#include <QDebug>
#include <QDomDocument>

#include <array>

namespace zarn {

namespace {

using Value = Interval::Value;
using Alteration = Interval::Alteration;

constexpr auto valueTexts = utils::enumTable<Value>(utils::KeyMatch::UpperCase,
                                                    {{Value::Unison, "Unison"},
                                                     {Value::Second, "Second"},
                                                     {Value::Third, "Third"},
                                                     {Value::Fourth, "Fourth"},
                                                     {Value::Fifth, "Fifth"},
                                                     {Value::Sixth, "Sixth"},
                                                     {Value::Seventh, "Seventh"},
                                                     {Value::Octave, "Octave"},
                                                     {Value::Ninth, "Ninth"},
                                                     {Value::Eleventh, "Eleventh"},
                                                     {Value::Thirteenth, "Thirteenth"}});
static_assert(valueTexts.isConsistent());

constexpr auto alterationTexts =
    utils::enumTable<Alteration>(utils::KeyMatch::UpperCase,
                                 {{Alteration::DoublyDiminished, "DoublyDiminished"},
                                  {Alteration::Diminished, "Diminished"},
                                  {Alteration::Minor, "Minor"},
                                  {Alteration::Perfect, "Perfect"},
                                  {Alteration::Major, "Major"},
                                  {Alteration::Augmented, "Augmented"},
                                  {Alteration::DoublyAugmented, "DoublyAugmented"}});
static_assert(alterationTexts.isConsistent());

QString toQString(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

/// All valid pairs up to a degree, in the order of intervals.
std::vector<Interval> intervalsUpTo(int lastDegree)
{
    std::vector<Interval> result;
    for (int degree = 0; degree <= lastDegree; ++degree)
        for (int quality = 0; quality < spelling::qualityCount; ++quality) {
            const Interval interval(static_cast<Value>(degree), static_cast<Alteration>(quality));
            if (interval.isValid())
                result.push_back(interval);
        }
    return result;
}

const QString &intervalAttribute()
{
    static const QString name = QStringLiteral("interval");
    return name;
}

const QString &alterationAttribute()
{
    static const QString name = QStringLiteral("alteration");
    return name;
}

} // namespace

Interval::Interval(Value value) noexcept
{
    for (const Alteration plain : {Alteration::Perfect, Alteration::Major}) {
        const Interval interval(value, plain);
        if (interval.isValid())
            *this = interval;
    }
}

Interval::~Interval() = default;

bool Interval::operator==(const Interval &other) const noexcept
{
    return _value == other._value && _alteration == other._alteration;
}

bool Interval::operator<(const Interval &other) const noexcept
{
    return _value != other._value ? _value < other._value : _alteration < other._alteration;
}

bool Interval::operator<=(const Interval &other) const noexcept
{
    return !(other < *this);
}

bool Interval::operator>(const Interval &other) const noexcept
{
    return other < *this;
}

bool Interval::operator>=(const Interval &other) const noexcept
{
    return !(*this < other);
}

/// Moves to the next quality that the degree has.
void Interval::step(int direction) noexcept
{
    if (isValid())
        for (int quality = static_cast<int>(_alteration) + direction;
             quality >= 0 && quality < spelling::qualityCount; quality += direction) {
            const Interval next(_value, static_cast<Alteration>(quality));
            if (next.isValid()) {
                *this = next;
                return;
            }
        }
    *this = Interval();
}

Interval Interval::operator+(int steps) const noexcept
{
    return steps < 0 ? *this - (0u - static_cast<unsigned>(steps))
                     : *this + static_cast<unsigned>(steps);
}

Interval Interval::operator+(unsigned steps) const noexcept
{
    Interval result = isValid() ? *this : Interval();
    for (; steps > 0 && result.isValid(); --steps)
        result._inc();
    return result;
}

Interval Interval::operator-(int steps) const noexcept
{
    return steps < 0 ? *this + (0u - static_cast<unsigned>(steps))
                     : *this - static_cast<unsigned>(steps);
}

Interval Interval::operator-(unsigned steps) const noexcept
{
    Interval result = isValid() ? *this : Interval();
    for (; steps > 0 && result.isValid(); --steps)
        result._dec();
    return result;
}

int Interval::alterationSemitones() const noexcept
{
    constexpr std::array<int, spelling::qualityCount> wide = {-3, -2, -1, 0, 0, 1, 2};
    constexpr std::array<int, spelling::qualityCount> narrow = {-2, -1, -1, 0, 0, 1, 2};
    if (static_cast<int>(_alteration) >= spelling::qualityCount || !valueTexts.text(_value))
        return 0;
    const bool isNarrow =
        _value == Value::Fourth || _value == Value::Fifth || _value > Value::Octave;
    return (isNarrow ? narrow : wide)[static_cast<std::size_t>(_alteration)];
}

QString Interval::toString() const
{
    return QString::fromLatin1(isValid() ? spelling::cells[cell()].name : spelling::none.name);
}

QDomElement Interval::toXML(QDomDocument &document) const
{
    const auto value = valueTexts.text(_value);
    const auto alteration = alterationTexts.text(_alteration);
    QDomElement element = document.createElement(QStringLiteral("Degree"));
    element.setAttribute(intervalAttribute(), toQString(value.value_or("invalid")));
    element.setAttribute(alterationAttribute(), toQString(alteration.value_or("invalid")));
    return element;
}

Interval Interval::fromXML(const QDomElement &element)
{
    if (element.tagName() != QLatin1String("Degree"))
        return {};
    return Interval(valueFromString(element.attribute(intervalAttribute())),
                    alterationFromString(element.attribute(alterationAttribute())));
}

QString Interval::valueToString(Value value)
{
    if (const auto text = valueTexts.text(value))
        return toQString(*text);
    ZARN_RAISE_IN("zarn::Interval::valueToString", "Bad interval value.");
}

Interval::Value Interval::valueFromString(const QString &text)
{
    return valueTexts.value(text.toStdString()).value_or(Value::Invalid);
}

QString Interval::alterationToString(Alteration alteration)
{
    if (const auto text = alterationTexts.text(alteration))
        return toQString(*text);
    ZARN_RAISE_IN("zarn::Interval::alterationToString", "Bad interval alteration value.");
}

Interval::Alteration Interval::alterationFromString(const QString &text)
{
    return alterationTexts.value(text.toStdString()).value_or(Alteration::Invalid);
}

const std::vector<Interval> &Interval::fromPitches(int a, int b) noexcept
{
    return fromTones(Tone(a), Tone(b));
}

const std::vector<Interval> &Interval::fromTones(Tone a, Tone b) noexcept
{
    static const auto lists = [] {
        std::array<std::vector<Interval>, 12> result;
        for (const Interval &interval : intervalsUpTo(static_cast<int>(Value::Octave)))
            result[static_cast<std::size_t>(spelling::wrapped(interval.semitones(), 12))].push_back(
                interval);
        return result;
    }();
    return lists[static_cast<std::size_t>(spelling::wrapped(b.value() - a.value(), 12))];
}

const std::vector<Interval> &Interval::fromPitchClasses(const PitchClass &from,
                                                        const PitchClass &to)
{
    using Row = std::array<std::vector<Interval>, spelling::spellingCount>;
    static const auto lists = [] {
        std::vector<Row> result(spelling::spellingCount);
        const auto intervals = intervalsUpTo(static_cast<int>(Value::Thirteenth));
        for (std::size_t i = 0; i < result.size(); ++i)
            for (const Interval &interval : intervals)
                result[i][spelling::transposed[i][interval.cell()]].push_back(interval);
        return result;
    }();
    static const std::vector<Interval> nothing;
    return from && to ? lists[from.spellingIndex()][to.spellingIndex()] : nothing;
}

QDebug operator<<(QDebug debug, const Interval &interval)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "Interval(" << interval.toString() << ')';
    return debug;
}

} // namespace zarn
