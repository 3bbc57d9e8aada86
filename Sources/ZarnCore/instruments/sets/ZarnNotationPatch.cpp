// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnNotationPatch.h>

#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>
#include <ZarnCore/utils/JsonMembers.h>

#include <algorithm>

namespace zarn {

namespace {

constexpr const char *parseFunction = "zarn::NotationPatch::parse";
constexpr unsigned maximumLineCount = 16;

/// An enumerator by its text; a word that prints differently is none of the vocabulary.
template <auto FromText, auto ToText>
auto enumerator(const utils::JsonMembers &json, const char *name)
{
    const std::string text(json.text(name));
    const auto value = FromText(text);
    if (ToText(value) != text)
        json.raise(std::string("member \"") + name + "\" does not know \"" + text + "\"");
    return value;
}

NotationPatch::Staff staffFrom(const utils::JsonMembers &json)
{
    NotationPatch::Staff staff;
    if (json.find("clef") != nullptr)
        staff.clef = enumerator<clefFromString, clefToString>(json, "clef");
    if (const auto *count = json.find("lineCount")) {
        if (!count->IsUint() || count->GetUint() < 1 || count->GetUint() > maximumLineCount)
            json.raise("member \"lineCount\" is no whole number from 1 to "
                       + std::to_string(maximumLineCount));
        staff.lineCount = count->GetUint();
    }
    return staff;
}

} // namespace

std::shared_ptr<NotationPatch> NotationPatch::parse(const rapidjson::Value &value)
{
    using rapidjson::Value;
    const utils::JsonMembers json(value, parseFunction);
    auto patch = std::make_shared<NotationPatch>();
    patch->_name = json.text("name");
    if (patch->_name.empty())
        json.raise("member \"name\" is empty");
    patch->_description = json.textOr("description", {});
    json.forEach("instrumentSets", [&patch](const Value &element, unsigned) {
        const std::string text(utils::jsonText(element, parseFunction));
        const auto type = InstrumentSet::typeFromString(text);
        if (type == InstrumentSet::unknown)
            throw utils::JsonError({}, "\"" + text + "\" is no category", parseFunction);
        patch->_types.push_back(type);
    });
    patch->_hasStdNotation = json.flagOr("standardNotation", false);
    patch->_hasTablature = json.flagOr("tablature", false);
    patch->_hasSlash = json.flagOr("slash", false);
    if (!patch->_hasStdNotation && !patch->_hasTablature && !patch->_hasSlash)
        json.raise("none of \"standardNotation\", \"tablature\" and \"slash\" is true");
    if (json.find("staves") != nullptr)
        json.forEach("staves", [&patch](const Value &element, unsigned) {
            patch->_staves.push_back(staffFrom(utils::JsonMembers(element, parseFunction)));
        });
    if (patch->_staves.empty())
        patch->_staves.emplace_back();
    if (json.find("noteHead") != nullptr)
        patch->_noteHead = enumerator<noteHeadFromString, noteHeadToString>(json, "noteHead");
    if (json.find("stems") != nullptr)
        patch->_stemOrientation =
            enumerator<stemOrientationFromString, stemOrientationToString>(json, "stems");
    return patch;
}

bool NotationPatch::suits(InstrumentSet::Type type) const noexcept
{
    return std::any_of(_types.begin(), _types.end(), [type](InstrumentSet::Type group) {
        return detail::isInGroup(type, group);
    });
}

} // namespace zarn
