// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/HarmonyText.h>

#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace zarn::io {

namespace {

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

/// Far more than any degree or alteration has, and safe to count with.
constexpr std::int64_t mostCount = 100;

int count(pugi::xml_node node, ImportContext &context)
{
    return static_cast<int>(std::clamp(context.decimal(node, 0).round(), -mostCount, mostCount));
}

chord::HarmonyDegree degreeOf(pugi::xml_node degree, ImportContext &context)
{
    using Type = chord::HarmonyDegree::Type;
    const std::string_view type = degree.child_value("degree-type");
    chord::HarmonyDegree result;
    result.value = count(degree.child("degree-value"), context);
    if (const auto alter = degree.child("degree-alter"))
        result.alter = count(alter, context);
    result.type = type == "subtract" ? Type::Subtract : type == "alter" ? Type::Alter : Type::Add;
    return result;
}

/// A letter with its semitones; invalid when there is no such spelling.
PitchClass pitchOf(const char *step, pugi::xml_node alter, ImportContext &context)
{
    const QString name = QString::fromUtf8(step);
    const int semitones = alter ? count(alter, context) : 0;
    if (!NoteName::isAValidString(name) || semitones < -2 || semitones > 2)
        return {};
    return {NoteName::fromString(name), static_cast<NoteAccidental::Value>(semitones + 2)};
}

/// One chord of the element: what its children say, and as what it reads when they make no chord.
struct Symbol {
    chord::Harmony harmony;
    bool isKindKnown = true;
    std::string root;
    std::string kind;
    std::string degrees;
    std::string bass;

    std::string toString() const
    {
        // A kind of its own is written as the document has it.
        const bool isWritten = harmony.kind == chord::HarmonyKind::Other && !kind.empty();
        const bool isBassKnown = bass.empty() || harmony.bass;
        if (isKindKnown && !isWritten && isBassKnown)
            if (const auto chord = chord::Chord::fromHarmony(harmony))
                return chord->toText();
        return root + kind + (degrees.empty() ? "" : "(" + degrees + ")")
            + (bass.empty() ? "" : "/" + bass);
    }

    void readKind(pugi::xml_node node)
    {
        const auto known = chord::harmonyKindFromString(node.child_value());
        isKindKnown = known.has_value();
        harmony.kind = known.value_or(chord::HarmonyKind::Other);
        kind = harmony.kind == chord::HarmonyKind::Other
            ? node.attribute("text").value()
            : std::string(chord::ChordKind::fromHarmonyKind(harmony.kind).text());
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
    bool isBegun = false;
    const auto begin = [&](std::string root) {
        if (isBegun)
            append(text, symbol);
        symbol = {};
        symbol.root = std::move(root);
        isBegun = true;
    };
    for (const auto child : harmony.children()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Root: {
            const auto alter = child.child("root-alter");
            begin(child.child_value("root-step") + alteration(alter, context));
            symbol.harmony.root = pitchOf(child.child_value("root-step"), alter, context);
            break;
        }
        case Tag::Numeral:
            begin(child.child_value("numeral-root"));
            break;
        case Tag::Function:
            begin(child.child_value());
            break;
        case Tag::Kind:
            isBegun = true;
            symbol.readKind(child);
            break;
        case Tag::Inversion:
            symbol.harmony.inversion = std::max(count(child, context), 0);
            break;
        case Tag::Degree:
            symbol.harmony.degrees.push_back(degreeOf(child, context));
            symbol.degrees += degreeText(child, context);
            break;
        case Tag::Bass: {
            const auto alter = child.child("bass-alter");
            symbol.bass = child.child_value("bass-step") + alteration(alter, context);
            symbol.harmony.bass = pitchOf(child.child_value("bass-step"), alter, context);
            break;
        }
        case Tag::Offset:
        case Tag::Staff:
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
    if (isBegun)
        append(text, symbol);
    return text;
}

} // namespace zarn::io
