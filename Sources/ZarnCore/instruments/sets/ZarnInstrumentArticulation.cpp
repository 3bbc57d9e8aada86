// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnInstrumentArticulation.h>

#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/utils/EnumTable.h>
#include <ZarnCore/utils/JsonMembers.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace zarn {
namespace {

using Placement = InstrumentArticulation::TechniquePlacement;

constexpr const char *parseFunction = "zarn::InstrumentArticulation::parse";

constexpr auto placementTexts = utils::enumTable<Placement>(utils::KeyMatch::Exact,
                                                            {
                                                                {Placement::Outside, "outside"},
                                                                {Placement::Inside, "inside"},
                                                                {Placement::Above, "above"},
                                                                {Placement::Below, "below"},
                                                            });
static_assert(placementTexts.isConsistent());

MusicGlyph glyphNamed(std::string_view name, MusicGlyph fallback)
{
    const auto glyph = MusicGlyph::fromName(name);
    if (!glyph && !name.empty())
        qCWarning(log::core) << "[InstrumentArticulation] unknown glyph"
                             << QString::fromUtf8(name.data(), static_cast<int>(name.size()));
    return glyph.value_or(fallback);
}

/// "kick.center.hit" in its components; one, an empty one, for an empty text.
std::vector<std::string> componentsOf(std::string_view path)
{
    std::vector<std::string> components;
    components.reserve(static_cast<std::size_t>(std::count(path.begin(), path.end(), '.') + 1));
    for (auto dot = path.find('.'); dot != path.npos; dot = path.find('.')) {
        components.emplace_back(path.substr(0, dot));
        path.remove_prefix(dot + 1);
    }
    components.emplace_back(path);
    return components;
}

InstrumentArticulation::Noteheads noteheadsOf(const utils::JsonMembers &notation)
{
    InstrumentArticulation::Noteheads heads;
    heads.fill(normalNotehead);
    notation.forEach("noteheads", [&heads](const rapidjson::Value &value, unsigned index) {
        const auto name = utils::jsonText(value, parseFunction);
        if (index < heads.size())
            std::fill(heads.begin() + index, heads.end(), glyphNamed(name, normalNotehead));
    });
    return heads;
}

} // namespace

MusicGlyph InstrumentArticulation::notehead(unsigned index) const noexcept
{
    return _noteheads[std::min(index, headCount - 1)];
}

std::string InstrumentArticulation::stringFromTechniquePlacement(TechniquePlacement placement)
{
    return std::string(placementTexts.textOrFirst(placement));
}

InstrumentArticulation::TechniquePlacement
InstrumentArticulation::techniquePlacementFromString(const std::string &text)
{
    return placementTexts.valueOrFirst(text);
}

void InstrumentArticulation::parse(const rapidjson::Value &value)
{
    using utils::JsonMembers;
    const JsonMembers members(value, parseFunction);
    InstrumentArticulation read;
    read._name = members.text("name");
    members.object("musicalNotation", [&read](const JsonMembers &notation) {
        read._staffLine = notation.integer("staffLine");
        read._noteheads = noteheadsOf(notation);
        read._techniqueSymbol = glyphNamed(notation.text("techniqueSymbol"), MusicGlyph());
        read._techniquePlacement =
            techniquePlacementFromString(std::string(notation.text("techniquePlacement")));
    });
    members.object("inputs", [&read](const JsonMembers &inputs) {
        read._inputMidiNumbers.reserve(inputs.sizeOf("midiNumbers"));
        inputs.forEach("midiNumbers", [&read](const rapidjson::Value &number, unsigned) {
            read._inputMidiNumbers.push_back(utils::jsonInteger(number, parseFunction));
        });
    });
    members.object("outputs", [&read](const JsonMembers &outputs) {
        read._outputMidiNumber = outputs.integer("midiNumber");
        read._outputOrkaSound = componentsOf(outputs.text("orkaSound"));
    });
    std::swap(read._element, _element);
    *this = std::move(read);
}

auto InstrumentArticulation::fields() const noexcept
{
    return std::tie(_element, _name, _staffLine, _inputMidiNumbers, _outputMidiNumber,
                    _outputOrkaSound, _noteheads, _techniqueSymbol, _techniquePlacement);
}

bool operator==(const InstrumentArticulation &a, const InstrumentArticulation &b) noexcept
{
    return a.fields() == b.fields();
}

bool operator<(const InstrumentArticulation &a, const InstrumentArticulation &b) noexcept
{
    return a.fields() < b.fields();
}

} // namespace zarn
