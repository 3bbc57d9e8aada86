// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Swings.h>

#include <ZarnCore/io/musicxml/XmlNumber.h>
#include <ZarnCore/io/musicxml/writer/XmlElement.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>

namespace zarn::io {

namespace {

/// How pairs of a value are played (swing of MusicXML 4.0).
struct Swing {
    TripletFeel feel;
    int first;
    int second;
    std::string_view type;
};

constexpr Swing swings[] = {
    {TripletFeel::Triplet8th, 2, 1, "eighth"},  {TripletFeel::Triplet16th, 2, 1, "16th"},
    {TripletFeel::Dotted8th, 3, 1, "eighth"},   {TripletFeel::Dotted16th, 3, 1, "16th"},
    {TripletFeel::Scottish8th, 1, 3, "eighth"}, {TripletFeel::Scottish16th, 1, 3, "16th"},
};

} // namespace

std::optional<TripletFeel> swingOf(pugi::xml_node swing)
{
    if (swing.child("straight"))
        return TripletFeel::NoTripletFeel;
    const auto first = parseInteger(swing.child_value("first"));
    const auto second = parseInteger(swing.child_value("second"));
    if (!first || !second || *first < 1 || *second < 1)
        return std::nullopt;
    if (*first == *second)
        return TripletFeel::NoTripletFeel;
    const std::string_view type = swing.child_value("swing-type");
    const double share = static_cast<double>(*first) / (static_cast<double>(*first) + *second);
    const auto distance = [&](const Swing &row) {
        const double other = static_cast<double>(row.first) / (row.first + row.second);
        return std::abs(share - other) + (row.type == (type.empty() ? "eighth" : type) ? 0 : 1);
    };
    return std::min_element(std::begin(swings), std::end(swings),
                            [&](const Swing &left, const Swing &right) {
                                return distance(left) < distance(right);
                            })
        ->feel;
}

void writeSwing(TripletFeel feel, pugi::xml_node sound)
{
    auto swing = addElement(sound, "swing");
    const auto *const row = std::find_if(std::begin(swings), std::end(swings),
                                         [feel](const Swing &other) { return other.feel == feel; });
    if (row == std::end(swings)) {
        addElement(swing, "straight");
        return;
    }
    addElement(swing, "first", row->first);
    addElement(swing, "second", row->second);
    addElement(swing, "swing-type", row->type.data());
}

} // namespace zarn::io
