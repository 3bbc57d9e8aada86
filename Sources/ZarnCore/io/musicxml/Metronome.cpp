// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/Metronome.h>

#include <ZarnCore/io/musicxml/NoteReader.h>
#include <ZarnCore/io/musicxml/XmlNumber.h>
#include <ZarnCore/io/musicxml/writer/XmlElement.h>
#include <ZarnCore/model/form/ZarnTempoUnitLength.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <string_view>

namespace zarn::io {

using NoteValue = RhythmValue::NoteValue;

namespace {

struct UnitRow {
    NoteValue value;
    int dots;
    TempoUnit unit;
};

constexpr UnitRow units[] = {
    {NoteValue::Eighth, 0, TempoUnit::Eighth},         {NoteValue::Quarter, 0, TempoUnit::Quarter},
    {NoteValue::Quarter, 1, TempoUnit::QuarterDotted}, {NoteValue::Half, 0, TempoUnit::Half},
    {NoteValue::Half, 1, TempoUnit::HalfDotted},
};

const char *typeOf(NoteValue value)
{
    return noteTypeName(static_cast<int>(value) + 1);
}

/// The first number of a text such as "ca. 120" or "100-120"; 0 for none.
double firstNumber(std::string_view text)
{
    const auto begin = text.find_first_of("0123456789");
    if (begin == text.npos)
        return 0;
    const auto end = text.find_first_not_of("0123456789.", begin);
    const auto number = parseDecimal(std::string(text.substr(begin, end - begin)).c_str());
    return number ? number->toDouble() : 0;
}

/// The note that an element begins; the element becomes the one behind it.
std::optional<MetronomeMark::Note> takeNote(pugi::xml_node &node)
{
    if (node.name() != std::string_view("beat-unit"))
        return std::nullopt;
    MetronomeMark::Note note = {NoteValue::DWhole};
    while (note.value <= NoteValue::ThirtySecond
           && node.child_value() != std::string_view(typeOf(note.value)))
        note.value = static_cast<NoteValue>(static_cast<int>(note.value) + 1);
    if (note.value > NoteValue::ThirtySecond)
        return std::nullopt;
    node = node.next_sibling();
    for (; node.name() == std::string_view("beat-unit-dot"); node = node.next_sibling())
        note.dots = std::min(note.dots + 1, MetronomeMark::MostDots);
    return note;
}

void writeNote(const MetronomeMark::Note &note, pugi::xml_node metronome)
{
    addElement(metronome, "beat-unit", typeOf(note.value));
    for (int dot = 0; dot < note.dots; ++dot)
        addElement(metronome, "beat-unit-dot");
}

} // namespace

double quartersOf(const Tempo &tempo)
{
    return tempo.value * zarn::quartersOf(tempo.unit);
}

std::optional<MetronomeMark> readMetronome(pugi::xml_node metronome)
{
    auto node = metronome.first_child();
    const auto note = takeNote(node);
    if (!note)
        return std::nullopt;
    MetronomeMark mark;
    mark.note = *note;
    mark.isInParentheses = metronome.attribute("parentheses").value() == std::string_view("yes");
    mark.equal = takeNote(node);
    if (!mark.equal)
        mark.perMinute = firstNumber(node.child_value());
    if (node.next_sibling() || (mark.equal ? static_cast<bool>(node) : mark.perMinute <= 0))
        return std::nullopt;
    return mark;
}

pugi::xml_node writeMetronome(const MetronomeMark &mark, pugi::xml_node parent)
{
    auto metronome = addElement(parent, "metronome");
    if (mark.isInParentheses)
        addAttribute(metronome, "parentheses", "yes");
    writeNote(mark.note, metronome);
    if (mark.equal)
        writeNote(*mark.equal, metronome);
    else
        addElement(metronome, "per-minute", decimalText(mark.perMinute));
    return metronome;
}

pugi::xml_node writeMetronome(const Tempo &tempo, pugi::xml_node parent)
{
    const auto *const row =
        std::find_if(std::begin(units), std::end(units),
                     [&tempo](const UnitRow &unit) { return unit.unit == tempo.unit; });
    MetronomeMark mark;
    if (row != std::end(units))
        mark.note = {row->value, row->dots};
    mark.perMinute = tempo.value;
    return writeMetronome(mark, parent);
}

std::optional<Tempo> tempoOf(const MetronomeMark &mark)
{
    if (mark.equal)
        return std::nullopt;
    const auto *const row =
        std::find_if(std::begin(units), std::end(units), [&mark](const UnitRow &unit) {
            return unit.value == mark.note.value && unit.dots == mark.note.dots;
        });
    return row != std::end(units)
        ? Tempo{mark.perMinute, row->unit}
        : Tempo{mark.perMinute * mark.note.quarters(), TempoUnit::Quarter};
}

bool tellsTempo(const MetronomeMark &mark, double quarters)
{
    const auto tempo = tempoOf(mark);
    return tempo && std::abs(quartersOf(*tempo) - quarters) <= 0.5;
}

} // namespace zarn::io
