// SPDX-License-Identifier: MIT
#include <ZarnCore/scales/ZarnScaleKind.h>

#include <ZarnCore/scales/ScaleKindTable.h>

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>

namespace zarn::scale {

namespace {

constexpr std::size_t kindCount = sizeof(scaleKindTable) / sizeof(scaleKindTable[0]);

/// Every scale begins on its tonic and ascends, no two have the same tones, and those of seven
/// tones have seven letters.
constexpr bool tableIsConsistent() noexcept
{
    for (std::size_t i = 0; i < kindCount; ++i) {
        const chord::DegreeList &degrees = scaleKindTable[i].degrees();
        if (degrees.isEmpty() || degrees[0] != chord::Degree{1, 0})
            return false;
        for (std::size_t j = 1; j < degrees.size(); ++j) {
            if (degrees[j - 1].semitones() >= degrees[j].semitones())
                return false;
            if (degrees.size() == 7 && degrees[j].number != j + 1)
                return false;
        }
        for (std::size_t j = 0; j < i; ++j)
            if (scaleKindTable[i].tones() == scaleKindTable[j].tones())
                return false;
    }
    return true;
}
static_assert(tableIsConsistent());

/// Row plus one of every set of tones.
using KindsOfTones = std::array<std::uint8_t, ToneSet::possibleSets>;

constexpr KindsOfTones kindsOfTones() noexcept
{
    KindsOfTones kinds = {};
    for (std::size_t i = 0; i < kindCount; ++i)
        kinds[scaleKindTable[i].tones().bits()] = static_cast<std::uint8_t>(i + 1);
    return kinds;
}
constexpr KindsOfTones kindOfTones = kindsOfTones();

/// Lower case, one space between words and in place of hyphens, ASCII accidentals.
std::string plainName(std::string_view name)
{
    constexpr std::pair<std::string_view, std::string_view> signs[] = {
        {"♭", "b"}, {"♯", "#"}, {"’", "'"}};
    std::string text;
    while (!name.empty()) {
        const auto *const sign =
            std::find_if(std::begin(signs), std::end(signs), [&](const auto &row) {
                return name.substr(0, row.first.size()) == row.first;
            });
        if (sign != std::end(signs)) {
            text += sign->second;
            name.remove_prefix(sign->first.size());
            continue;
        }
        const char letter = name.front() == '-' ? ' ' : name.front();
        name.remove_prefix(1);
        if (letter != ' ')
            text += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
        else if (!text.empty() && text.back() != ' ')
            text += ' ';
    }
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
    return text;
}

/// What people write of a name, put into one form: short words in full, in the order of the
/// alphabet, without "scale" and "mode". "Minor harmonic", "harmonic min." and "harmonic minor
/// scale" are one.
std::string looseName(std::string_view name)
{
    constexpr std::pair<std::string_view, std::string_view> words[] = {
        {"scale", ""},          {"mode", ""},
        {"min", "minor"},       {"maj", "major"},
        {"pent", "pentatonic"}, {"harm", "harmonic"},
        {"mel", "melodic"},     {"dim", "diminished"},
        {"aug", "augmented"},   {"wholetone", "whole tone"},
        {"dom", "dominant"},
    };
    std::vector<std::string> parts(1);
    for (const char letter : plainName(name) + " ") {
        if (letter != ' ' && letter != '.') {
            parts.back() += letter;
            continue;
        }
        for (const auto &[written, full] : words)
            if (parts.back() == written)
                parts.back() = full;
        if (!parts.back().empty())
            parts.emplace_back();
    }
    parts.pop_back();
    std::sort(parts.begin(), parts.end());
    std::string text;
    for (const std::string &part : parts)
        text += part + " ";
    return text;
}

using KindsByName = std::unordered_map<std::string, const ScaleKind *>;

template <class Put>
void forAllNames(Put &&put)
{
    for (const ScaleKind &kind : scaleKindTable) {
        put(kind.name(), kind);
        for (const std::string_view alias : kind.aliases())
            put(alias, kind);
    }
}

/// By loose names; null where two scales share one: "bebop minor" is not "minor bebop".
KindsByName kindsByLooseName()
{
    KindsByName kinds;
    forAllNames([&kinds](std::string_view name, const ScaleKind &kind) {
        const auto [row, isNew] = kinds.emplace(looseName(name), &kind);
        if (!isNew && row->second != &kind)
            row->second = nullptr;
    });
    return kinds;
}

} // namespace

std::vector<std::string_view> ScaleKind::aliases() const
{
    std::vector<std::string_view> words;
    for (std::string_view rest = _aliases; !rest.empty();) {
        const auto end = std::min(rest.find(','), rest.size());
        words.push_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return words;
}

int ScaleKind::rank() const noexcept
{
    return static_cast<int>(this - scaleKindTable);
}

const ScaleKind *ScaleKind::fromName(std::string_view name)
{
    static const auto index = [] {
        KindsByName kinds;
        forAllNames([&kinds](std::string_view own, const ScaleKind &kind) {
            kinds.emplace(plainName(own), &kind);
        });
        return kinds;
    }();
    if (const auto found = index.find(plainName(name)); found != index.end())
        return found->second;
    static const KindsByName loose = kindsByLooseName();
    const auto found = loose.find(looseName(name));
    return found != loose.end() ? found->second : nullptr;
}

const ScaleKind *ScaleKind::fromTones(ToneSet tones) noexcept
{
    const std::uint8_t row = kindOfTones[tones.bits()];
    return row != 0 ? &scaleKindTable[row - 1] : nullptr;
}

ScaleKinds ScaleKind::all() noexcept
{
    return {scaleKindTable, scaleKindTable + kindCount};
}

} // namespace zarn::scale
