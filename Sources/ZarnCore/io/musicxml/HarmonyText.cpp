// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/HarmonyText.h>

#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <string_view>

namespace zarn::io {

namespace {

struct KindText {
    std::string_view kind;
    std::string_view text;
};

/// MusicXML 4.0, kind-value, with the suffixes that lead sheets use.
constexpr KindText kindTexts[] = {
    {"major", ""},
    {"minor", "m"},
    {"augmented", "aug"},
    {"diminished", "dim"},
    {"dominant", "7"},
    {"major-seventh", "maj7"},
    {"minor-seventh", "m7"},
    {"diminished-seventh", "dim7"},
    {"augmented-seventh", "aug7"},
    {"half-diminished", "m7b5"},
    {"major-minor", "m(maj7)"},
    {"major-sixth", "6"},
    {"minor-sixth", "m6"},
    {"dominant-ninth", "9"},
    {"major-ninth", "maj9"},
    {"minor-ninth", "m9"},
    {"dominant-11th", "11"},
    {"major-11th", "maj11"},
    {"minor-11th", "m11"},
    {"dominant-13th", "13"},
    {"major-13th", "maj13"},
    {"minor-13th", "m13"},
    {"suspended-second", "sus2"},
    {"suspended-fourth", "sus4"},
    {"Neapolitan", "N6"},
    {"Italian", "It6"},
    {"French", "Fr6"},
    {"German", "Ger6"},
    {"pedal", "ped"},
    {"power", "5"},
    {"Tristan", "Tristan"},
};

std::string alteration(pugi::xml_node node, ImportContext &context)
{
    const int semitones = node ? static_cast<int>(context.decimal(node, 0).round()) : 0;
    return std::string(static_cast<std::size_t>(std::min(std::abs(semitones), 4)),
                       semitones < 0 ? 'b' : '#');
}

std::string degreeText(pugi::xml_node degree, ImportContext &context)
{
    const std::string_view type = degree.child_value("degree-type");
    const std::string value = degree.child_value("degree-value");
    const auto sign = alteration(degree.child("degree-alter"), context);
    if (type == "subtract")
        return "no" + value;
    return (type == "add" && sign.empty() ? "add" : "") + sign + value;
}

std::string kindText(pugi::xml_node kind)
{
    const std::string_view value = kind.child_value();
    const auto *found = std::find_if(std::begin(kindTexts), std::end(kindTexts),
                                     [&](const KindText &row) { return row.kind == value; });
    return found != std::end(kindTexts) ? std::string(found->text) : kind.attribute("text").value();
}

/// The parts of one chord symbol, in the order in which they are written.
struct Symbol {
    std::string root;
    std::string kind;
    std::string degrees;
    std::string bass;
    bool none = false;

    std::string toString() const
    {
        if (none)
            return "N.C.";
        return root + kind + (degrees.empty() ? "" : "(" + degrees + ")")
            + (bass.empty() ? "" : "/" + bass);
    }
};

void append(std::string &text, const Symbol &symbol)
{
    const auto word = symbol.toString();
    text += (text.empty() || word.empty() ? "" : " ") + word;
}

} // namespace

std::string harmonyText(pugi::xml_node harmony, ImportContext &context)
{
    std::string text;
    Symbol symbol;
    const auto begin = [&](std::string root) {
        append(text, symbol);
        symbol = {};
        symbol.root = std::move(root);
    };
    for (const auto child : harmony.children()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Root:
            begin(child.child_value("root-step") + alteration(child.child("root-alter"), context));
            break;
        case Tag::Numeral:
            begin(child.child_value("numeral-root"));
            break;
        case Tag::Function:
            begin(child.child_value());
            break;
        case Tag::Kind:
            symbol.none = std::string_view(child.child_value()) == "none";
            symbol.kind = kindText(child);
            break;
        case Tag::Degree:
            symbol.degrees += degreeText(child, context);
            break;
        case Tag::Bass:
            symbol.bass =
                child.child_value("bass-step") + alteration(child.child("bass-alter"), context);
            break;
        case Tag::Offset:
        case Tag::Staff:
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
    append(text, symbol);
    return text;
}

} // namespace zarn::io
