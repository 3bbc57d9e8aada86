// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <ZarnCore/utils/JsonMembers.h>

#include <cstddef>
#include <utility>

namespace zarn {
namespace {

constexpr const char *parseFunction = "zarn::InstrumentSet::parse";

} // namespace

void InstrumentSet::parse(const rapidjson::Value &value)
{
    using utils::JsonMembers;
    const JsonMembers members(value, parseFunction);
    InstrumentSet read;
    read._name = members.text("name");
    read._lineCount = members.count("lineCount");
    read._type = typeFromString(std::string(members.text("type")));
    std::size_t articulationCount = 0;
    members.forEach("elements", [&](const rapidjson::Value &object, unsigned) {
        articulationCount += JsonMembers(object, parseFunction).sizeOf("articulations");
    });
    read._elements.reserve(members.sizeOf("elements"));
    read._articulations.reserve(articulationCount);
    members.forEach("elements", [&read](const rapidjson::Value &object, unsigned index) {
        const JsonMembers element(object, parseFunction);
        read._elements.emplace_back(
            std::string(element.text("name")), std::string(element.textOr("orkaSoundBank", {})),
            Instrument::typeFromString(std::string(element.text("type"))), index);
        element.forEach("articulations", [&read](const rapidjson::Value &articulation, unsigned) {
            InstrumentArticulation &added = read._articulations.emplace_back();
            added.setElement(read._elements.back());
            added.parse(articulation);
        });
    });
    read.indexArticulations();
    *this = std::move(read);
}

} // namespace zarn
