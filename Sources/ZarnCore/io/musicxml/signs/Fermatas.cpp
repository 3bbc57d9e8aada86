// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Fermatas.h>

#include <string_view>

namespace zarn::io {

namespace {

/// A shape and how long it holds (fermata-shape of MusicXML 4.0); the first one of a kind is its
/// own.
struct Shape {
    Fermata kind;
    std::string_view name;
};

constexpr Shape shapes[] = {
    {Fermata::Medium, "normal"},    {Fermata::Short, "angled"},
    {Fermata::Long, "square"},      {Fermata::Short, "double-angled"},
    {Fermata::Short, "half-curve"}, {Fermata::Long, "double-square"},
    {Fermata::Long, "double-dot"},  {Fermata::Long, "curlew"},
};

} // namespace

Fermata fermataOf(pugi::xml_node fermata)
{
    const std::string_view name = fermata.child_value();
    for (const auto &shape : shapes)
        if (shape.name == name)
            return shape.kind;
    return Fermata::Medium;
}

const char *shapeOf(Fermata kind)
{
    for (const auto &shape : shapes)
        if (shape.kind == kind)
            return shape.name.data();
    return shapes[0].name.data();
}

} // namespace zarn::io
