// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnAttribute.h>

/// How the rows of the tables of attributes are made.
namespace zarn {

/// Number of a type among the alternatives of a variant.
template <class T, class Variant>
struct AlternativeOf;
template <class T, class... Others>
struct AlternativeOf<T, std::variant<T, Others...>> : std::integral_constant<std::size_t, 0> {
};
template <class T, class First, class... Others>
struct AlternativeOf<T, std::variant<First, Others...>>
    : std::integral_constant<std::size_t, 1 + AlternativeOf<T, std::variant<Others...>>::value> {
};

/// Yes or no, a text, or a structure: what its type alone says.
template <class T>
constexpr AttributeRange anyOf() noexcept
{
    return {AlternativeOf<T, AttributeValue::Held>::value, 0, 0, nullptr};
}

constexpr AttributeRange numbers(int lowest, int highest) noexcept
{
    return {AlternativeOf<int, AttributeValue::Held>::value, static_cast<double>(lowest),
            static_cast<double>(highest), nullptr};
}

constexpr AttributeRange reals(double lowest, double highest) noexcept
{
    return {AlternativeOf<double, AttributeValue::Held>::value, lowest, highest, nullptr};
}

constexpr AttributeRange textsUpTo(unsigned characters) noexcept
{
    return {AlternativeOf<std::string, AttributeValue::Held>::value, 0,
            static_cast<double>(characters), nullptr};
}

/// The text of each number, empty where it is that of a number before it, or of none.
template <auto ToText, int Highest>
const std::vector<std::string> &enumeratorTexts()
{
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> list;
        for (int number = 0; number <= Highest; ++number) {
            const std::string text(ToText(number));
            bool isTaken = false;
            for (const std::string &other : list)
                isTaken = isTaken || other == text;
            list.push_back(isTaken ? std::string() : text);
        }
        return list;
    }();
    return texts;
}

template <class Function>
struct ArgumentOf;
template <class Result, class Argument>
struct ArgumentOf<Result (*)(Argument)> {
    using Type = Argument;
};

/// The text of the enumerator of a number, by the function of its enumeration.
template <auto ToText>
std::string textOfNumber(int number)
{
    return ToText(static_cast<typename ArgumentOf<decltype(ToText)>::Type>(number));
}

template <auto ToText, int Highest>
constexpr AttributeRange enumerators() noexcept
{
    return {AlternativeOf<int, AttributeValue::Held>::value, 0, Highest,
            &enumeratorTexts<&textOfNumber<ToText>, Highest>};
}

/// Of an enumeration whose numbers leave some out.
template <auto ToText, int Highest>
constexpr AttributeRange enumeratorsWithGaps() noexcept
{
    auto range = enumerators<ToText, Highest>();
    range.hasGaps = true;
    return range;
}

template <class Node>
const Node &nodeWithDefaults()
{
    static const Node node;
    return node;
}

/// The part of a row that getter and setter give, which are members of the node or functions on it.
template <class Row, auto Get, auto Set>
constexpr Row rowOf(typename Row::Id id, std::string_view name, std::string_view key,
                    const AttributeRange &range)
{
    using Node = typename Row::Node;
    using Value = std::decay_t<std::invoke_result_t<decltype(Get), const Node &>>;
    Row row;
    row.id = id;
    row.name = name;
    row.key = key;
    row.range = range;
    row.get = [](const Node &node) -> AttributeValue { return std::invoke(Get, node); };
    row.set = [](Node &node, const AttributeValue &value) {
        std::invoke(Set, node, value.to<Value>());
    };
    row.isDefault = [](const Node &node) {
        static const Value atFirst = std::invoke(Get, nodeWithDefaults<Node>());
        return std::invoke(Get, node) == atFirst;
    };
    return row;
}

/// Whether each row stands at the place that the number of its id names.
template <class Rows>
constexpr bool areInOrder(const Rows &rows) noexcept
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (static_cast<std::size_t>(rows[i].id) != i)
            return false;
    return true;
}

} // namespace zarn
