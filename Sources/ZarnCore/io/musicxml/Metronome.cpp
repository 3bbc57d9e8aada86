// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/Metronome.h>

#include <ZarnCore/io/musicxml/XmlNumber.h>
#include <ZarnCore/io/musicxml/writer/XmlElement.h>
#include <ZarnCore/model/form/ZarnTempoUnitLength.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace zarn::io {

namespace {

struct UnitRow {
    std::string_view type;
    double quarters;
    TempoUnit plain;
    TempoUnit dotted;
};

constexpr UnitRow units[] = {
    {"eighth", 0.5, TempoUnit::Eighth, TempoUnit::None},
    {"quarter", 1, TempoUnit::Quarter, TempoUnit::QuarterDotted},
    {"half", 2, TempoUnit::Half, TempoUnit::HalfDotted},
    {"16th", 0.25, TempoUnit::None, TempoUnit::None},
    {"32nd", 0.125, TempoUnit::None, TempoUnit::None},
    {"whole", 4, TempoUnit::None, TempoUnit::None},
    {"breve", 8, TempoUnit::None, TempoUnit::None},
};

/// The first number of a text such as "ca. 120" or "100-120".
std::optional<double> firstNumber(std::string_view text)
{
    constexpr std::string_view digits = "0123456789";
    const auto begin = text.find_first_of(digits);
    if (begin == text.npos)
        return std::nullopt;
    const auto end = text.find_first_not_of("0123456789.", begin);
    const auto number = parseDecimal(std::string(text.substr(begin, end - begin)).c_str());
    return number ? std::optional<double>(number->toDouble()) : std::nullopt;
}

} // namespace

std::optional<Tempo> metronomeTempo(pugi::xml_node metronome)
{
    const auto perMinute = metronome.child("per-minute");
    const auto unit = metronome.child("beat-unit");
    const auto number = firstNumber(perMinute.child_value());
    const auto *row =
        std::find_if(std::begin(units), std::end(units), [&](const UnitRow &candidate) {
            return candidate.type == unit.child_value();
        });
    if (!number || *number <= 0 || row == std::end(units))
        return std::nullopt;
    int dots = 0;
    double factor = 1;
    for (auto dot = metronome.child("beat-unit-dot"); dot && dots < 4;
         dot = dot.next_sibling("beat-unit-dot"))
        factor += 1.0 / (2 << dots++);
    const auto known = dots == 0 ? row->plain : dots == 1 ? row->dotted : TempoUnit::None;
    if (known != TempoUnit::None)
        return Tempo{*number, known};
    return Tempo{*number * row->quarters * factor, TempoUnit::Quarter};
}

pugi::xml_node writeMetronome(const Tempo &tempo, pugi::xml_node parent)
{
    const auto *const row =
        std::find_if(std::begin(units), std::end(units), [&](const UnitRow &candidate) {
            return candidate.plain == tempo.unit || candidate.dotted == tempo.unit;
        });
    auto metronome = addElement(parent, "metronome");
    addElement(metronome, "beat-unit", row->type.data());
    if (row->dotted == tempo.unit)
        addElement(metronome, "beat-unit-dot");
    addElement(metronome, "per-minute", decimalText(tempo.value));
    return metronome;
}

double quartersOf(const Tempo &tempo)
{
    return tempo.value * zarn::quartersOf(tempo.unit);
}

} // namespace zarn::io
