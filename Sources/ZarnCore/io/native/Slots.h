// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/Fields.h>

namespace zarn::io::native {

/// A fixed list of places, written as an object with a member for each place whose value is not
/// at its default. `Places` tells
///     using Node, Value, and the codec `As` of a value
///     static constexpr unsigned count
///     static std::string name(unsigned place)
///     static Value get(const Node &node, unsigned place)
///     static void set(Node &node, unsigned place, const Value &value).
template <typename Places>
struct Slots {
    using Node = typename Places::Node;
    using Value = typename Places::Value;
    static_assert(Places::count <= 64);

    static void write(DocumentWriter &writer, std::string_view key, const Node &node)
    {
        bool isOpen = false;
        for (unsigned place = 0; place < Places::count; ++place) {
            const Value value = Places::get(node, place);
            if (value == Places::get(freshNode<Node>(), place))
                continue;
            if (!isOpen) {
                writer.key(key);
                writer.StartObject();
                isOpen = true;
            }
            writer.key(Places::name(place));
            atPlace([&] { return Places::name(place); }, [&] { Places::As::write(writer, value); });
        }
        if (isOpen)
            writer.EndObject();
    }

    static void read(DocumentReader &reader, const Json &json, Node &node)
    {
        reader.expectObject(json);
        std::uint64_t seen = 0;
        for (const auto &member : json.members()) {
            unsigned place = 0;
            while (place < Places::count && Places::name(place) != member.key)
                ++place;
            if (place == Places::count) {
                reader.meetUnknownKey(member.key);
                continue;
            }
            const DocumentReader::Step step(reader, member.key);
            if ((seen >> place & 1) != 0)
                reader.refuse("stands twice");
            seen |= std::uint64_t(1) << place;
            Places::set(node, place, Places::As::read(reader, member.value));
        }
    }
};

} // namespace zarn::io::native
