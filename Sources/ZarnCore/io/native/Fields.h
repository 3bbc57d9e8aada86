// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/native/Codec.h>

#include <array>
#include <functional>

namespace zarn::io::native {

/// One attribute of a node, described once for both directions.
template <typename Node>
struct Field {
    std::string_view key;
    /// Writes key and value, or nothing when the attribute is at its default.
    void (*write)(DocumentWriter &writer, std::string_view key, const Node &node);
    /// Reads the value into the node.
    void (*read)(DocumentReader &reader, const Json &json, Node &node);
};

/// What an attribute is compared with when it is written: the attribute of a fresh node.
template <typename Node>
const Node &freshNode()
{
    static const Node node;
    return node;
}

template <auto Get, typename Node>
using ValueOf = std::decay_t<std::invoke_result_t<decltype(Get), const Node &>>;

/// An attribute with a getter and a setter, which are members of the node or functions on it.
template <typename Node, auto Get, auto Set, typename As = Codec<ValueOf<Get, Node>>>
constexpr Field<Node> field(std::string_view key)
{
    return {key,
            [](DocumentWriter &writer, std::string_view name, const Node &node) {
                static const ValueOf<Get, Node> atFirst = std::invoke(Get, freshNode<Node>());
                if (const auto &value = std::invoke(Get, node); !(value == atFirst)) {
                    writer.key(name);
                    As::write(writer, value);
                }
            },
            [](DocumentReader &reader, const Json &json, Node &node) {
                std::invoke(Set, node, As::read(reader, json));
            }};
}

/// A public member of a plain structure.
template <typename Node, auto Member, typename As = Codec<ValueOf<Member, Node>>>
constexpr Field<Node> member(std::string_view key)
{
    return {key,
            [](DocumentWriter &writer, std::string_view name, const Node &node) {
                if (node.*Member == freshNode<Node>().*Member)
                    return;
                writer.key(name);
                As::write(writer, node.*Member);
            },
            [](DocumentReader &reader, const Json &json, Node &node) {
                node.*Member = As::read(reader, json);
            }};
}

/// How many fields, from the first, may have to be written for a node: for nodes with many that are
/// at their defaults nearly always.
template <typename Node>
struct FieldsToWrite {
    static std::size_t count(const Node &, std::size_t all) { return all; }
};

// `Fields` is an array or a vector of `Field<Node>`, at most 64 of them.

template <typename Node, typename Fields>
void writeFields(DocumentWriter &writer, const Node &node, const Fields &fields)
{
    const std::size_t count = FieldsToWrite<Node>::count(node, fields.size());
    for (std::size_t i = 0; i < count; ++i)
        atPlace([&] { return fields[i].key; },
                [&] { fields[i].write(writer, fields[i].key, node); });
}

/// Writes a node as an object.
template <typename Node, typename Fields>
void writeObject(DocumentWriter &writer, const Node &node, const Fields &fields)
{
    writer.StartObject();
    writeFields(writer, node, fields);
    writer.EndObject();
}

/// Finds a key; looks at `start` first, as members usually come in the order of the table.
template <typename Fields>
std::size_t indexOfField(const Fields &fields, std::string_view key, std::size_t start)
{
    for (std::size_t i = start; i < fields.size(); ++i)
        if (fields[i].key == key)
            return i;
    for (std::size_t i = 0; i < start; ++i)
        if (fields[i].key == key)
            return i;
    return fields.size();
}

/// Reads an object into a node, in whatever order its members come.
template <typename Node, typename Fields>
void readObject(DocumentReader &reader, const Json &json, Node &node, const Fields &fields)
{
    reader.expectObject(json);
    std::uint64_t seen = 0;
    std::size_t next = 0;
    for (const auto &member : json.members()) {
        const std::string_view key = member.key;
        const std::size_t at = indexOfField(fields, key, next);
        if (at == fields.size()) {
            reader.meetUnknownKey(key);
            continue;
        }
        const DocumentReader::Step step(reader, fields[at].key);
        const std::uint64_t mark = std::uint64_t(1) << at;
        if ((seen & mark) != 0)
            reader.refuse("stands twice");
        seen |= mark;
        try {
            fields[at].read(reader, member.value, node);
        } catch (const ImportException &) {
            throw;
        } catch (const CoreException &problem) { // what a node does not take
            reader.refuse(problem.message());
        }
        next = at + 1;
    }
}

} // namespace zarn::io::native
