// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnAttributeValue.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// What all attributes of bars, beats and notes have in common. The tables that say what each node
/// has are in ZarnBeatAttribute.h and its neighbours; commands, documents and tests go by them.
namespace zarn {

/// What becomes of an attribute when its beat is cut into pieces, or its bar into halves.
enum class Split : std::uint8_t {
    First, ///< stays with the first piece
    Last,  ///< goes with the last one
    All,   ///< all pieces have it
    Cut,   ///< each piece has its part of it
};

/// The staves on which an attribute means something; commands pass the others over.
enum class OnStaves : std::uint8_t {
    All,
    Fretted,
    Pitched,
    Unpitched,
};

/// Attributes of one kind of node, as a set.
template <class Id>
class AttributeSet {
public:
    constexpr AttributeSet() noexcept = default;
    constexpr AttributeSet(std::initializer_list<Id> ids) noexcept
    {
        for (const Id id : ids)
            insert(id);
    }

    constexpr void insert(Id id) noexcept { _bits |= bit(id); }
    constexpr bool has(Id id) const noexcept { return (_bits & bit(id)) != 0; }
    constexpr bool isEmpty() const noexcept { return _bits == 0; }

private:
    static constexpr std::uint64_t bit(Id id) noexcept
    {
        return std::uint64_t(1) << static_cast<unsigned>(id);
    }

    std::uint64_t _bits = 0;
};

/// The values that an attribute takes.
struct ZARNCORE_EXPORT AttributeRange {
    /// Number of the alternative of `AttributeValue::Held` that holds it.
    std::size_t alternative = 0;

    /// Of numbers, both included; of a text, its most characters.
    double lowest = 0;
    double highest = 0;

    /// For enumerators: their texts by number, empty where an enumerator has none of its own.
    const std::vector<std::string> &(*texts)() = nullptr;

    /// Whether the numbers without a text are none of an enumerator.
    bool hasGaps = false;

    /// Some value of the kind.
    const AttributeValue &sample() const;

    /// Whether the value is of the kind, inside the range, and its parts fit together.
    bool contains(const AttributeValue &value) const;

    /// A short text, such as "Crescendo", "true", "3", "Up 480" or "3+2+2".
    std::string toText(const AttributeValue &value) const;

    /// What the text says, when it is in the range. Nothing for other texts, and for the few kinds
    /// whose texts cannot be read back: rhythms, chords with diagrams, lyrics, slurs, keys,
    /// sections, changes of clefs.
    std::optional<AttributeValue> fromText(std::string_view text) const;

    /// Whether a number between the others is none of an enumerator.
    bool isGap(int number) const;

    /// What is taken, for a message: "one of None, Up, Down", "a whole number from 0 to 127".
    std::string description() const;
};

/// A row of a table: one attribute of a node.
template <class NodeType, class IdType>
struct Attribute {
    using Node = NodeType;
    using Id = IdType;

    Id id{};

    /// Its name in the arguments of commands, and what a user types.
    std::string_view name;

    /// Its name in documents; empty where they hold it in a form of its own.
    std::string_view key;

    AttributeValue (*get)(const Node &) = nullptr;
    void (*set)(Node &, const AttributeValue &) = nullptr;
    bool (*isDefault)(const Node &) = nullptr;
    AttributeRange range;

    /// Number of the event that tells of a change.
    unsigned event = 0;

    Split split = Split::First;
};

/// The tables: `attributesOf<Node>()` is a container of the rows, in the order of their ids.
template <class Node>
const auto &attributesOf() noexcept;

/// The value of a node to which nothing was done.
template <class Row>
AttributeValue defaultOf(const Row &row)
{
    return row.get(typename Row::Node());
}

template <class Row>
void reset(typename Row::Node &node, const Row &row)
{
    if (!row.isDefault(node))
        row.set(node, defaultOf(row));
}

} // namespace zarn
