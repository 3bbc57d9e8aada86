// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/Fields.h>

#include <memory>

namespace zarn::io::native {

/// Whether each node of an array stands on a line of its own.
enum class Layout { Compact, Lines };

/// Writes an array of nodes; nothing when there are none.
template <typename Node, std::size_t Count>
void writeChildren(DocumentWriter &writer, std::string_view key,
                   const std::vector<std::shared_ptr<Node>> &nodes,
                   const std::array<Field<Node>, Count> &fields, Layout layout = Layout::Compact)
{
    if (nodes.empty())
        return;
    writer.key(key);
    writer.StartArray();
    for (const auto &node : nodes) {
        if (layout == Layout::Lines)
            writer.startLine();
        else
            writer.StartObject();
        writeFields(writer, *node, fields);
        writer.EndObject();
    }
    writer.EndArray();
}

/// Reads an array of nodes; there are as many as the array has elements.
template <typename Node, std::size_t Count>
std::vector<std::shared_ptr<Node>> readChildren(DocumentReader &reader,
                                                const rapidjson::Value &json,
                                                const std::array<Field<Node>, Count> &fields)
{
    reader.expectArray(json);
    std::vector<std::shared_ptr<Node>> nodes;
    nodes.reserve(json.Size());
    for (const auto &element : json.GetArray()) {
        const DocumentReader::Step step(reader, static_cast<std::uint32_t>(nodes.size()));
        auto node = std::make_shared<Node>();
        readObject(reader, element, *node, fields);
        nodes.push_back(std::move(node));
    }
    return nodes;
}

/// Codec of a plain structure that is written as an object.
template <typename T, const auto &Fields>
struct Struct {
    static void write(DocumentWriter &writer, const T &value)
    {
        writeObject(writer, value, Fields);
    }
    static T read(DocumentReader &reader, const rapidjson::Value &json)
    {
        T value;
        readObject(reader, json, value, Fields);
        return value;
    }
};

} // namespace zarn::io::native
