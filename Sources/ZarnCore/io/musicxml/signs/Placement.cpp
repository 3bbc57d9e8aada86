// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Placement.h>

#include <ZarnCore/io/musicxml/MusicXmlTag.h>

#include <cstring>

namespace zarn::io {

namespace {

MarkSide placedSide(pugi::xml_node node)
{
    const char *const placement = node.attribute("placement").value();
    for (const MarkSide side : {MarkSide::Above, MarkSide::Below})
        if (std::strcmp(placement, placementOf(side)) == 0)
            return side;
    return MarkSide::Auto;
}

} // namespace

MarkSide sideOf(pugi::xml_node sign)
{
    if (const MarkSide own = placedSide(sign); own != MarkSide::Auto)
        return own;
    const auto type = sign.parent();
    if (tagOf(type.name()) != Tag::DirectionType)
        return MarkSide::Auto;
    if (const MarkSide side = placedSide(type.parent()); side != MarkSide::Auto)
        return side;
    // In tenths above the top line of the staff, whose lines are ten apart.
    constexpr double bottomLine = -40;
    const double y = sign.attribute("default-y").as_double(bottomLine / 2);
    return y > 0 ? MarkSide::Above : y < bottomLine ? MarkSide::Below : MarkSide::Auto;
}

const char *placementOf(MarkSide side) noexcept
{
    switch (side) {
    case MarkSide::Above:
        return "above";
    case MarkSide::Below:
        return "below";
    case MarkSide::Auto:
        break;
    }
    return nullptr;
}

} // namespace zarn::io
