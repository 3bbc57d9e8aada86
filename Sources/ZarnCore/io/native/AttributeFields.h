// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/Fields.h>
#include <ZarnCore/model/ZarnAttribute.h>

#include <utility>
#include <vector>

namespace zarn::io::native {

/// The value of an attribute: by its kind as true or false, a number, or a text.
void writeAttribute(DocumentWriter &writer, const AttributeRange &range,
                    const AttributeValue &value);
AttributeValue readAttribute(DocumentReader &reader, const Json &json, const AttributeRange &range);

/// The field of the attribute in a row of the table of its node.
template <typename Node, std::size_t Row>
Field<Node> attributeField()
{
    return {attributesOf<Node>()[Row].key,
            [](DocumentWriter &writer, std::string_view key, const Node &node) {
                const auto &row = attributesOf<Node>()[Row];
                if (row.isDefault(node))
                    return;
                writer.key(key);
                writeAttribute(writer, row.range, row.get(node));
            },
            [](DocumentReader &reader, const Json &json, Node &node) {
                const auto &row = attributesOf<Node>()[Row];
                row.set(node, readAttribute(reader, json, row.range));
            }};
}

template <typename Node, std::size_t... Rows>
void addAttributeFields(std::vector<Field<Node>> &fields, std::index_sequence<Rows...>)
{
    for (const Field<Node> &field : {attributeField<Node, Rows>()...})
        if (!field.key.empty())
            fields.push_back(field);
}

/// Fields of their own form, then those of the attributes in the table that have a key, then others
/// of their own form.
template <typename Node, std::size_t Front, std::size_t Back>
std::vector<Field<Node>> withAttributes(const std::array<Field<Node>, Front> &front,
                                        const std::array<Field<Node>, Back> &back)
{
    std::vector<Field<Node>> fields(front.begin(), front.end());
    constexpr std::size_t rows = std::tuple_size_v<std::decay_t<decltype(attributesOf<Node>())>>;
    addAttributeFields(fields, std::make_index_sequence<rows>());
    fields.insert(fields.end(), back.begin(), back.end());
    return fields;
}

} // namespace zarn::io::native
