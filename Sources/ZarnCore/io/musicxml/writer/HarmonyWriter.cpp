// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/HarmonyWriter.h>

#include <ZarnCore/chords/ChordSymbolParts.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>

#include <algorithm>
#include <string>

namespace zarn::io {

namespace {

constexpr int thumbOfDiagram = 5;

void writePitch(const PitchClass &pitch, const char *name, const std::string &text,
                pugi::xml_node harmony)
{
    auto node = addElement(harmony, name);
    const std::string prefix = name;
    auto step = addElement(node, (prefix + "-step").c_str(), pitch.note().toString().toStdString());
    if (text == "H")
        addAttribute(step, "text", text);
    if (const int alter = pitch.accidental().alteration(); alter != 0)
        addElement(node, (prefix + "-alter").c_str(), alter);
}

void writeDegree(const chord::HarmonyDegree &degree, pugi::xml_node harmony)
{
    using Type = chord::HarmonyDegree::Type;
    auto node = addElement(harmony, "degree");
    addElement(node, "degree-value", degree.value);
    addElement(node, "degree-alter", degree.alter);
    addElement(node, "degree-type",
               degree.type == Type::Add         ? "add"
                   : degree.type == Type::Alter ? "alter"
                                                : "subtract");
}

/// "7#5" names the fifth that is raised in a dominant, "aug7" does not.
bool namesRaisedFifth(const std::string &symbol)
{
    return symbol.find("#5") != symbol.npos || symbol.find("+5") != symbol.npos;
}

void writeChord(const chord::Chord &chord, const std::string &symbol, pugi::xml_node harmony)
{
    auto elements = chord.toHarmony();
    const auto parts = chord::ChordSymbolParts::of(symbol, chord);
    const bool isAugmented = elements.kind == chord::HarmonyKind::AugmentedSeventh;
    const bool hasRaisedFifth = isAugmented && namesRaisedFifth(symbol);
    if (hasRaisedFifth) {
        elements.kind = chord::HarmonyKind::Dominant;
        elements.degrees.insert(elements.degrees.begin(),
                                {5, 1, chord::HarmonyDegree::Type::Alter});
    }
    if (chord.isNone())
        addElement(addElement(harmony, "root"), "root-step", "C"); // The schema asks for one.
    else
        writePitch(elements.root, "root", parts.root, harmony);
    auto kind = addElement(harmony, "kind", std::string(chord::harmonyKindToString(elements.kind)));
    addAttribute(kind, "text", chord.isNone() ? "N.C." : parts.kind);
    if (elements.inversion)
        addElement(harmony, "inversion", *elements.inversion);
    if (elements.bass)
        writePitch(elements.bass, "bass", parts.bass, harmony);
    for (const auto &degree : elements.degrees)
        writeDegree(degree, harmony);
}

/// The strings of a frame count from the highest.
void writeFrame(const ChordDiagram &diagram, pugi::xml_node harmony)
{
    constexpr int usualFrets = 5;
    const int strings = static_cast<int>(diagram.frets.size());
    const int highest = *std::max_element(diagram.frets.begin(), diagram.frets.end());
    auto frame = addElement(harmony, "frame");
    addElement(frame, "frame-strings", strings);
    addElement(frame, "frame-frets", std::max(usualFrets, highest - diagram.firstFret + 1));
    addElement(frame, "first-fret", static_cast<int>(diagram.firstFret));
    const auto barres = barresOf(diagram);
    for (int string = strings; string-- > 0;) {
        const auto at = static_cast<std::size_t>(string);
        const int fret = diagram.frets[at];
        if (fret < 0)
            continue;
        auto note = addElement(frame, "frame-note");
        addElement(note, "string", strings - string);
        addElement(note, "fret", fret);
        if (at < diagram.fingers.size() && diagram.fingers[at] != 0)
            addElement(note, "fingering",
                       diagram.fingers[at] == thumbOfDiagram ? std::string("T")
                                                             : std::to_string(diagram.fingers[at]));
        for (const auto &barre : barres)
            if (barre.fret == fret && (string == barre.firstString || string == barre.lastString))
                addAttribute(addElement(note, "barre"), "type",
                             string == barre.lastString ? "start" : "stop");
    }
}

} // namespace

void writeHarmony(const ChordMark &mark, pugi::xml_node harmony, ExportContext &context)
{
    const auto symbol = context.text(mark.symbol);
    const auto chord = chord::Chord::fromText(symbol);
    if (chord) {
        writeChord(*chord, symbol, harmony);
    } else {
        addElement(harmony, "function", symbol);
        addAttribute(addElement(harmony, "kind", "other"), "text", "");
    }
    if (!mark.diagram)
        return;
    const auto &frets = mark.diagram->frets;
    const auto name = chord ? chord->toText() : symbol;
    context.addUnheldIf(mark.diagram->name != name, "name of a chord diagram");
    if (std::any_of(frets.begin(), frets.end(), [](std::int8_t fret) { return fret >= 0; }))
        writeFrame(*mark.diagram, harmony);
    else
        context.addUnheld("chord diagram without a played string");
}

} // namespace zarn::io
