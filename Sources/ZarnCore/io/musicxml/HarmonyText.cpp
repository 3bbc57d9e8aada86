// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/HarmonyText.h>

#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <optional>
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

/// A letter, as the document prints it where that is the German one.
std::string stepText(pugi::xml_node step)
{
    return step.attribute("text").value() == std::string_view("H") ? "H" : step.child_value();
}

/// "II", "bVI", "ii": a number as the document prints it, or in Roman.
std::string numeralText(pugi::xml_node numeral, ImportContext &context)
{
    constexpr const char *romans[] = {"I", "II", "III", "IV", "V", "VI", "VII"};
    const auto root = numeral.child("numeral-root");
    const int number = count(root, context);
    const bool isRoman = number >= 1 && number <= static_cast<int>(std::size(romans));
    std::string text = root.attribute("text").value();
    if (text.empty())
        text = isRoman ? romans[number - 1] : root.child_value();
    return alteration(numeral.child("numeral-alter"), context) + text;
}

/// One chord of the element: what its children say, and as what it reads when they make no chord.
struct Symbol {
    chord::Harmony harmony;
    bool isKindKnown = true;
    std::string root;
    std::string kind;
    std::optional<std::string> kindText; ///< as the document wants it to be printed
    std::string degrees;
    std::string bass;

    std::string toString() const
    {
        // A kind of its own is written as the document has it.
        const bool isWritten = harmony.kind == chord::HarmonyKind::Other && !kind.empty();
        const bool isBassKnown = bass.empty() || harmony.bass;
        if (const auto printed = printedText())
            return *printed;
        if (harmony.kind == chord::HarmonyKind::AugmentedSeventh && degrees.empty()
            && !harmony.inversion)
            return root + "aug7" + (bass.empty() ? "" : "/" + bass);
        if (isKindKnown && !isWritten && isBassKnown)
            if (const auto chord = chord::Chord::fromHarmony(harmony))
                return chord->toText();
        return root + kind + (degrees.empty() ? "" : "(" + degrees + ")")
            + (bass.empty() ? "" : "/" + bass);
    }

    /// The chord in the writing of the document, when it reads as what the elements say.
    std::optional<std::string> printedText() const
    {
        const auto chord = chord::Chord::fromHarmony(harmony);
        if (!kindText || !isKindKnown || !chord || chord->isNone())
            return std::nullopt;
        const auto simple = chord->simplified();
        const auto over = bass.empty() ? simple.bass().toString().toStdString() : bass;
        const auto text = root + *kindText + (simple.hasBass() ? "/" + over : "");
        const auto read = chord::Chord::fromText(text);
        return read && read->simplified() == simple ? std::make_optional(text) : std::nullopt;
    }

    void readKind(pugi::xml_node node)
    {
        if (const auto text = node.attribute("text"))
            kindText = text.value();
        const auto known = chord::harmonyKindFromString(node.child_value());
        isKindKnown = known.has_value();
        harmony.kind = known.value_or(chord::HarmonyKind::Other);
        kind = harmony.kind == chord::HarmonyKind::Other
            ? node.attribute("text").value()
            : std::string(chord::ChordKind::fromHarmonyKind(harmony.kind).text());
        // "ii" is minor already.
        const bool isSmallRoman = !root.empty() && (root.back() == 'i' || root.back() == 'v');
        if (isSmallRoman && kind.compare(0, 1, "m") == 0 && kind.compare(0, 3, "maj") != 0)
            kind.erase(0, 1);
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
            begin(stepText(child.child("root-step")) + alteration(alter, context));
            symbol.harmony.root = pitchOf(child.child_value("root-step"), alter, context);
            break;
        }
        case Tag::Numeral:
            begin(numeralText(child, context));
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
            symbol.bass = stepText(child.child("bass-step")) + alteration(alter, context);
            symbol.harmony.bass = pitchOf(child.child_value("bass-step"), alter, context);
            break;
        }
        case Tag::Offset:
        case Tag::Staff:
        case Tag::Frame:
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
    if (isBegun)
        append(text, symbol);
    return text;
}

std::shared_ptr<const ChordDiagram> readFrame(pugi::xml_node frame, const std::string &name,
                                              ImportContext &context)
{
    constexpr int mostStrings = 16;
    constexpr int mostFrets = 127;
    constexpr std::uint8_t thumb = 5;
    const int strings = frame ? context.integer(frame.child("frame-strings"), 0) : 0;
    if (strings < 1 || strings > mostStrings) {
        if (frame)
            context.addUnheld(frame, Tag::Frame);
        return nullptr;
    }
    auto diagram = std::make_shared<ChordDiagram>();
    diagram->name = name;
    const auto firstFret = parseInteger(frame.child_value("first-fret"));
    diagram->firstFret = static_cast<std::uint8_t>(std::clamp(firstFret.value_or(1), 1, mostFrets));
    diagram->frets.assign(static_cast<std::size_t>(strings), -1);
    for (const auto note : frame.children("frame-note")) {
        const auto string = parseInteger(note.child_value("string"));
        const auto fret = parseInteger(note.child_value("fret"));
        if (!string || !fret || *string < 1 || *string > strings || *fret < 0
            || *fret > mostFrets) {
            context.addUnheld(note);
            continue;
        }
        const auto at = static_cast<std::size_t>(strings - *string);
        diagram->frets[at] = static_cast<std::int8_t>(*fret);
        const std::string_view finger = note.child_value("fingering");
        if (finger.size() != 1 || (finger != "T" && (finger[0] < '1' || finger[0] > '5')))
            continue;
        diagram->fingers.resize(diagram->frets.size());
        diagram->fingers[at] = finger == "T" ? thumb : static_cast<std::uint8_t>(finger[0] - '0');
    }
    return diagram;
}

} // namespace zarn::io
