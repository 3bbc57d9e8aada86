// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnAttribute.h>

#include <ZarnCore/utils/TextScanner.h>

#include <QLocale>

#include <algorithm>
#include <array>
#include <charconv>

namespace zarn {

namespace {

std::string numberText(double number)
{
    return QByteArray::number(number, 'g', QLocale::FloatingPointShortest).toStdString();
}

/// Nodes hold real numbers as floats: the shortest text that means the same one.
std::string realText(double number)
{
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, static_cast<float>(number)).ptr;
    return std::string(text, end);
}

/// Characters of a text in UTF-8.
std::size_t lengthOf(const std::string &text) noexcept
{
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char letter) { return (letter & 0xC0) != 0x80; }));
}

template <class List, class Text>
std::string joined(const List &list, Text text)
{
    std::string all;
    for (const auto &item : list)
        all += (all.empty() ? "" : ", ") + text(item);
    return all;
}

/// How each kind of value reads.
struct Writer {
    const AttributeRange &range;

    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(int value) const
    {
        if (range.texts != nullptr) {
            const auto &texts = range.texts();
            const auto number = static_cast<std::size_t>(value);
            if (number < texts.size() && !texts[number].empty())
                return texts[number];
        }
        return std::to_string(value);
    }
    std::string operator()(double value) const { return realText(value); }
    std::string operator()(const std::string &value) const { return value; }
    std::string operator()(const RhythmValue &value) const
    {
        return value.toQString().toStdString();
    }
    std::string operator()(const ChordMark &value) const
    {
        return value.symbol + (value.diagram ? " [" + value.diagram->name + "]" : std::string());
    }
    std::string operator()(const Syllables &value) const
    {
        return joined(value, [](const Syllable &syllable) {
            return std::to_string(syllable.line + 1) + ": " + syllable.toString();
        });
    }
    std::string operator()(const SlurEnds &value) const
    {
        return joined(value, [](const SlurEnd &end) {
            return (end.isBegin ? "begin " : "end ") + std::to_string(end.number)
                + (end.line == SlurLine::Solid ? "" : " " + slurLineToString(end.line))
                + (end.side == SlurSide::Auto ? "" : " " + markSideToString(end.side));
        });
    }
    std::string operator()(const TimeSignature &value) const
    {
        return std::to_string(value.getNumerator()) + "/" + std::to_string(value.getDenominator());
    }
    std::string operator()(const KeySignature &value) const
    {
        return std::to_string(value.accidentalCount()) + (value.isMajor() ? " major" : " minor");
    }
    std::string operator()(const std::optional<utils::rational> &value) const
    {
        return value ? value->toString() : "None";
    }
    std::string operator()(const Section &value) const
    {
        return value.letter + ";" + value.text + (value.isCircled ? ";circled" : "");
    }
    std::string operator()(const FermataMarks &value) const
    {
        return joined(value, [](const FermataMark &mark) { return mark.toString(); });
    }
    std::string operator()(const std::vector<ClefChange> &value) const
    {
        return joined(value, [](const ClefChange &change) {
            return change.position.toString() + " " + clefToString(change.clef);
        });
    }
    template <class T>
    std::string operator()(const T &value) const
    {
        return value.toString();
    }
};

using Parsed = std::optional<AttributeValue>;

template <class T>
Parsed parsed(const std::optional<T> &value)
{
    return value ? Parsed(AttributeValue(*value)) : Parsed();
}

/// Whether values of a kind are read back from their texts.
template <class T, class = void>
struct HasText : std::false_type {
};
template <class T>
struct HasText<T, std::void_t<decltype(AttributeValue(*T::fromString(std::string_view())))>>
    : std::true_type {
};

/// How each kind is read from its text.
struct Parser {
    const AttributeRange &range;
    std::string_view text;

    template <class Number>
    Parsed number() const
    {
        Number value{};
        utils::TextScanner scanner(text);
        return scanner.takeNumber(value) && scanner.isAtEnd() ? Parsed(value) : Parsed();
    }

    Parsed operator()(const bool &) const
    {
        if (text == "true" || text == "false")
            return AttributeValue(text == "true");
        return std::nullopt;
    }
    Parsed operator()(const int &) const
    {
        if (range.texts != nullptr && !text.empty()) {
            const auto &texts = range.texts();
            const auto found = std::find(texts.begin(), texts.end(), text);
            if (found != texts.end())
                return AttributeValue(static_cast<int>(found - texts.begin()));
        }
        return number<int>();
    }
    Parsed operator()(const double &) const { return number<float>(); }
    Parsed operator()(const std::string &) const { return AttributeValue(std::string(text)); }
    Parsed operator()(const ChordMark &) const
    {
        return AttributeValue(ChordMark{std::string(text), nullptr});
    }
    Parsed operator()(const TimeSignature &) const
    {
        utils::TextScanner scanner(text);
        unsigned numerator = 0;
        unsigned denominator = 0;
        if (!scanner.takeNumber(numerator) || !scanner.take("/") || !scanner.takeNumber(denominator)
            || !scanner.isAtEnd() || denominator == 0)
            return std::nullopt;
        return AttributeValue(TimeSignature(numerator, denominator));
    }
    Parsed operator()(const std::optional<utils::rational> &) const
    {
        const auto value = utils::rational::fromString(text);
        if (text == "None" || value)
            return AttributeValue(value);
        return std::nullopt;
    }
    Parsed operator()(const FermataMarks &) const
    {
        FermataMarks marks;
        for (std::string_view rest = text; !rest.empty();) {
            const std::size_t end = std::min(rest.find(", "), rest.size());
            const auto mark = FermataMark::fromString(rest.substr(0, end));
            if (!mark)
                return std::nullopt;
            marks.push_back(*mark);
            rest.remove_prefix(std::min(end + 2, rest.size()));
        }
        return AttributeValue(marks);
    }
    template <class T>
    Parsed operator()(const T &) const
    {
        if constexpr (HasText<T>::value)
            return parsed(T::fromString(text));
        else
            return std::nullopt;
    }
};

/// A value of each kind, to choose by its number.
template <std::size_t... Kinds>
std::vector<AttributeValue> samples(std::index_sequence<Kinds...>)
{
    return {AttributeValue(std::variant_alternative_t<Kinds, AttributeValue::Held>())...};
}

} // namespace

const AttributeValue &AttributeRange::sample() const
{
    static const std::vector<AttributeValue> all =
        samples(std::make_index_sequence<std::variant_size_v<AttributeValue::Held>>());
    return all[alternative];
}

bool AttributeRange::isGap(int number) const
{
    return hasGaps && texts()[static_cast<std::size_t>(number)].empty();
}

bool AttributeRange::contains(const AttributeValue &value) const
{
    if (value.alternative() != alternative)
        return false;
    if (const int *const number = std::get_if<int>(&value.held()))
        return *number >= lowest && *number <= highest && !isGap(*number);
    if (const double *const number = std::get_if<double>(&value.held())) {
        // A document writes the float that is nearest to 0.1 as 0.1, which is a little less.
        const auto held = static_cast<float>(*number);
        return held >= static_cast<float>(lowest) && held <= static_cast<float>(highest);
    }
    if (const auto *const text = std::get_if<std::string>(&value.held()))
        return static_cast<double>(lengthOf(*text)) <= highest;
    return value.isValid();
}

std::string AttributeRange::toText(const AttributeValue &value) const
{
    return std::visit(Writer{*this}, value.held());
}

std::optional<AttributeValue> AttributeRange::fromText(std::string_view text) const
{
    auto value = std::visit(Parser{*this, text}, sample().held());
    return value && contains(*value) ? value : std::nullopt;
}

std::string AttributeRange::description() const
{
    if (texts != nullptr)
        return "one of " + joined(texts(), [number = 0](const std::string &text) mutable {
                   const int here = number++;
                   return text.empty() ? std::to_string(here) : text;
               });
    const AttributeValue::Held &sample = this->sample().held();
    if (std::holds_alternative<bool>(sample))
        return "true or false";
    if (std::holds_alternative<std::string>(sample))
        return "a text of at most " + numberText(highest) + " characters";
    if (std::holds_alternative<int>(sample))
        return "a whole number from " + numberText(lowest) + " to " + numberText(highest);
    if (std::holds_alternative<double>(sample))
        return "a number from " + realText(lowest) + " to " + realText(highest);
    static const std::array<std::pair<AttributeValue::Held, const char *>, 7> forms = {{
        {Strum(), "a strum such as \"Up\" or \"Down 480 EndsOnBeat\""},
        {WhammyBar(), "a whammy bar such as \"Dive 0:0 60:-4\""},
        {Bend(), "a bend such as \"Bend 0:0 30:4 60:4\""},
        {Barre(), "a barre such as \"7\" or \"7 3,4,5\""},
        {Trill(), "a trill such as \"2\" or \"1 Sixteenth\""},
        {Harmonic(), "a harmonic such as \"Natural 2\""},
        {BeamGroups(), "groups such as \"3+2+2\""},
    }};
    for (const auto &form : forms)
        if (form.first.index() == alternative)
            return form.second;
    return std::holds_alternative<FermataMarks>(sample)
        ? "fermatas in order such as \"0 Medium, 3/2 Short 50\""
        : "a value of this attribute";
}

} // namespace zarn
