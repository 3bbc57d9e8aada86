// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/Fields.h>

#include <memory>

namespace zarn::io::native {

/// Whether each node of an array stands on a line of its own.
enum class Layout { Compact, Lines };

/// Writes an array of nodes; nothing when there are none.
template <typename Node, typename Fields>
void writeChildren(DocumentWriter &writer, std::string_view key,
                   const std::vector<std::shared_ptr<Node>> &nodes, const Fields &fields,
                   Layout layout = Layout::Compact)
{
    if (nodes.empty())
        return;
    writer.key(key);
    writer.StartArray();
    std::size_t index = 0;
    for (const auto &node : nodes) {
        if (layout == Layout::Lines)
            writer.startLine();
        else
            writer.StartObject();
        atPlace([&] { return std::to_string(index); }, [&] { writeFields(writer, *node, fields); });
        writer.EndObject();
        ++index;
    }
    writer.EndArray();
}

/// Reads an array of nodes and hands each over when it is complete.
template <typename Node, typename Fields, typename Take>
void readEach(DocumentReader &reader, const Json &json, const Fields &fields, const Take &take)
{
    reader.expectArray(json);
    std::uint32_t index = 0;
    for (const auto &element : json.elements()) {
        const DocumentReader::Step step(reader, index++);
        auto node = std::make_shared<Node>();
        readObject(reader, element, *node, fields);
        take(std::move(node));
    }
}

/// Reads an array of nodes; there are as many as the array has elements.
template <typename Node, typename Fields>
std::vector<std::shared_ptr<Node>> readChildren(DocumentReader &reader, const Json &json,
                                                const Fields &fields)
{
    std::vector<std::shared_ptr<Node>> nodes;
    if (json.isArray())
        nodes.reserve(json.size());
    readEach<Node>(reader, json, fields,
                   [&nodes](std::shared_ptr<Node> node) { nodes.push_back(std::move(node)); });
    return nodes;
}

/// Codec of a plain structure that is written as an object.
template <typename T, const auto &Fields>
struct Struct {
    static void write(DocumentWriter &writer, const T &value)
    {
        writeObject(writer, value, Fields);
    }
    static T read(DocumentReader &reader, const Json &json)
    {
        T value;
        readObject(reader, json, value, Fields);
        return value;
    }
};

} // namespace zarn::io::native
