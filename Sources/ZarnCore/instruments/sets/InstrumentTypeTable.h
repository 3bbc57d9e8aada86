// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The instrument categories and their texts, shared by sets and by elements.
namespace zarn::detail {

/// Bits of a code that its group fixes: a byte of 0 stands for all that may follow.
constexpr std::uint32_t groupMask(std::uint32_t type) noexcept
{
    if (type == 0)
        return 0;
    std::uint32_t mask = 0xFFFFFFFF;
    for (std::uint32_t low = 0xFF; (type & low) == 0; low = low << 8 | 0xFF)
        mask = ~low;
    return mask;
}

/// Whether a code is a group's or one of its members'. 0 is the group of all.
constexpr bool isInGroup(std::uint32_t type, std::uint32_t group) noexcept
{
    return (type & groupMask(group)) == group;
}

/// Whether no row of a table of categories hides one behind it, and the last takes all the rest:
/// members stand in front of their groups.
template <typename Row, std::size_t Count>
constexpr bool membersStandBeforeGroups(const Row (&rows)[Count]) noexcept
{
    for (std::size_t group = 0; group < Count; ++group)
        for (std::size_t row = group + 1; row < Count; ++row)
            if (isInGroup(rows[row].type, rows[group].type))
                return false;
    return rows[Count - 1].type == 0;
}

/// The first row of such a table that holds a category.
template <typename Row, std::size_t Count>
constexpr const Row &rowOfType(const Row (&rows)[Count], std::uint32_t type) noexcept
{
    std::size_t row = 0;
    while (!isInGroup(type, rows[row].type))
        ++row;
    return rows[row];
}

/// How many bytes two codes share from the highest on; 0 for what is unknown.
constexpr unsigned compatibilityOfTypes(std::uint32_t a, std::uint32_t b) noexcept
{
    unsigned level = 0;
    for (int shift = 24; shift >= 0 && a != 0 && (a >> shift) == (b >> shift); shift -= 8)
        ++level;
    return level;
}

struct InstrumentTypeRow {
    std::uint32_t code;
    std::string_view text;
};

/// Codes and texts, found by either in logarithmic time. Where two texts share a code, the one
/// that comes later in the rows is printed.
template <std::size_t N>
class InstrumentTypeTable {
public:
    constexpr explicit InstrumentTypeTable(const std::array<InstrumentTypeRow, N> &rows)
        : _byCode(rows), _byText(rows)
    {
        sort(_byCode, [](const auto &a, const auto &b) { return a.code < b.code; });
        sort(_byText, [](const auto &a, const auto &b) { return a.text < b.text; });
    }

    constexpr std::optional<std::string_view> text(std::uint32_t code) const
    {
        const auto end = firstNot(_byCode, [code](const auto &row) { return row.code <= code; });
        if (end == 0 || _byCode[end - 1].code != code)
            return std::nullopt;
        return _byCode[end - 1].text;
    }

    constexpr std::optional<std::uint32_t> code(std::string_view text) const
    {
        const auto at = firstNot(_byText, [text](const auto &row) { return row.text < text; });
        if (at == N || _byText[at].text != text)
            return std::nullopt;
        return _byText[at].code;
    }

    constexpr bool hasDistinctTexts() const
    {
        for (std::size_t i = 1; i < N; ++i) {
            if (_byText[i - 1].text == _byText[i].text)
                return false;
        }
        return true;
    }

private:
    using Rows = std::array<InstrumentTypeRow, N>;

    template <typename Less>
    static constexpr void sort(Rows &rows, Less less)
    {
        for (std::size_t i = 1; i < N; ++i) {
            const auto row = rows[i];
            auto at = i;
            for (; at > 0 && less(row, rows[at - 1]); --at)
                rows[at] = rows[at - 1];
            rows[at] = row;
        }
    }

    template <typename Before>
    static constexpr std::size_t firstNot(const Rows &rows, Before before)
    {
        std::size_t first = 0;
        for (std::size_t count = N; count > 0;) {
            const auto half = count / 2;
            if (before(rows[first + half])) {
                first += half + 1;
                count -= half + 1;
            } else {
                count = half;
            }
        }
        return first;
    }

    Rows _byCode;
    Rows _byText;
};

/// Every category of an instrument set. The texts are published names: leave their spelling.
inline constexpr std::array<InstrumentTypeRow, 126> instrumentSetTypes{{
    {InstrumentSet::pitched, "pitched"},
    {InstrumentSet::aerophone, "aerophone"},
    {InstrumentSet::brass, "brass"},
    {InstrumentSet::frenchHorn, "frenchHorn"},
    {InstrumentSet::flugelHorn, "flugelHorn"},
    {InstrumentSet::trombone, "trombone"},
    {InstrumentSet::trumpet, "trumpet"},
    {InstrumentSet::tuba, "tuba"},
    {InstrumentSet::reed, "reed"},
    {InstrumentSet::accordion, "accordion"},
    {InstrumentSet::bandoneon, "bandoneon"},
    {InstrumentSet::bagpipe, "bagpipe"},
    {InstrumentSet::bassoon, "bassoon"},
    {InstrumentSet::bottleBow, "bottleBow"},
    {InstrumentSet::clarinet, "clarinet"},
    {InstrumentSet::contrabassoon, "contrabassoon"},
    {InstrumentSet::harmonica, "harmonica"},
    {InstrumentSet::englishHorn, "englishHorn"},
    {InstrumentSet::oboe, "oboe"},
    {InstrumentSet::pipeOrgan, "pipeOrgan"},
    {InstrumentSet::saxophone, "saxophone"},
    {InstrumentSet::vocal, "vocal"},
    {InstrumentSet::voice, "voice"},
    {InstrumentSet::choir, "choir"},
    {InstrumentSet::woodwind, "woodwind"},
    {InstrumentSet::flute, "flute"},
    {InstrumentSet::recorder, "recorder"},
    {InstrumentSet::piccolo, "piccolo"},
    {InstrumentSet::chordophone, "chordophone"},
    {InstrumentSet::acousticPiano, "acousticPiano"},
    {InstrumentSet::electricPiano, "electricPiano"},
    {InstrumentSet::harp, "harp"},
    {InstrumentSet::harpsichord, "harpsichord"},
    {InstrumentSet::bowed, "bowed"},
    {InstrumentSet::cello, "cello"},
    {InstrumentSet::contrabass, "contrabass"},
    {InstrumentSet::viola, "viola"},
    {InstrumentSet::violin, "violin"},
    {InstrumentSet::stringed, "stringed"},
    {InstrumentSet::acousticBass, "acousticBass"},
    {InstrumentSet::banjo, "banjo"},
    {InstrumentSet::electricBass, "electricBass"},
    {InstrumentSet::electricGuitar, "electricGuitar"},
    {InstrumentSet::electricSitar, "electricSitar"},
    {InstrumentSet::fretlessBass, "fretlessBass"},
    {InstrumentSet::synthBass, "synthBass"},
    {InstrumentSet::mandolin, "mandolin"},
    {InstrumentSet::nylonGuitar, "nylonGuitar"},
    {InstrumentSet::resonatorGuitar, "resonatorGuitar"},
    {InstrumentSet::steelGuitar, "steelGuitar"},
    {InstrumentSet::uprightBass, "uprightBass"},
    {InstrumentSet::ukulele, "ukulele"},
    {InstrumentSet::electrophone, "electrophone"},
    {InstrumentSet::bassSynthesizer, "bassSynthesizer"},
    {InstrumentSet::brassSynthesizer, "brassSynthesizer"},
    {InstrumentSet::keySynthesizer, "keySynthesizer"},
    {InstrumentSet::leadSynthesizer, "leadSynthesizer"},
    {InstrumentSet::padSynthesizer, "padSynthesizer"},
    {InstrumentSet::seqSynthesizer, "seqSynthesizer"},
    {InstrumentSet::mellotronBrass, "mellotronBrass"},
    {InstrumentSet::mellotronCello, "mellotronCello"},
    {InstrumentSet::mellotronChoir, "mellotronChoir"},
    {InstrumentSet::mellotronFlute, "mellotronFlute"},
    {InstrumentSet::mellotronStrings, "mellotronStrings"},
    {InstrumentSet::mellotronViolas, "mellotronViolas"},
    {InstrumentSet::electricOrgan, "electricOrgan"},
    {InstrumentSet::pitchedIdiophone, "pitchedIdiophone"},
    {InstrumentSet::celesta, "celesta"},
    {InstrumentSet::vibraphone, "vibraphone"},
    {InstrumentSet::xylophone, "xylophone"},
    {InstrumentSet::pitchedMembraphone, "pitchedMembraphone"},
    {InstrumentSet::timpani, "timpani"},
    {InstrumentSet::unpitched, "unpitched"},
    {InstrumentSet::idiophone, "idiophone"},
    {InstrumentSet::agogo, "agogo"},
    {InstrumentSet::bellTree, "bellTree"},
    {InstrumentSet::bongo, "bongo"},
    {InstrumentSet::cabasa, "cabasa"},
    {InstrumentSet::castanets, "castanets"},
    {InstrumentSet::claves, "claves"},
    {InstrumentSet::cowbell, "cowbell"},
    {InstrumentSet::guiro, "guiro"},
    {InstrumentSet::piatti, "piatti"},
    {InstrumentSet::handClap, "handClap"},
    {InstrumentSet::jingleBell, "jingleBell"},
    {InstrumentSet::maraca, "maraca"},
    {InstrumentSet::reverseCymbal, "reverseCymbal"},
    {InstrumentSet::shaker, "shaker"},
    {InstrumentSet::tinkleBell, "tinkleBell"},
    {InstrumentSet::triangle, "triangle"},
    {InstrumentSet::vibraslap, "vibraslap"},
    {InstrumentSet::whistle, "whistle"},
    {InstrumentSet::woodblock, "woodblock"},
    {InstrumentSet::cymbal, "cymbal"},
    {InstrumentSet::china, "china"},
    {InstrumentSet::crash, "crash"},
    {InstrumentSet::hiHat, "hiHat"},
    {InstrumentSet::ride, "ride"},
    {InstrumentSet::splash, "splash"},
    {InstrumentSet::membraphone, "membraphone"},
    {InstrumentSet::conga, "conga"},
    {InstrumentSet::cuica, "cuica"},
    {InstrumentSet::grancassa, "grancassa"},
    {InstrumentSet::melodicTom, "melodicTom"},
    {InstrumentSet::surdo, "surdo"},
    {InstrumentSet::synthDrum, "synthDrum"},
    {InstrumentSet::taikoDrum, "taikoDrum"},
    {InstrumentSet::tambourine, "tambourine"},
    {InstrumentSet::timbale, "timbale"},
    {InstrumentSet::drum, "drum"},
    {InstrumentSet::kickDrum, "kickDrum"},
    {InstrumentSet::snare, "snare"},
    {InstrumentSet::tom, "tom"},
    {InstrumentSet::percussionKit, "percussionKit"},
    {InstrumentSet::africaKit, "africaKit"},
    {InstrumentSet::agogos, "agogos"},
    {InstrumentSet::bongos, "bongos"},
    {InstrumentSet::bongosNCongas, "bongosNCongas"},
    {InstrumentSet::congas, "congas"},
    {InstrumentSet::drumKit, "drumKit"},
    {InstrumentSet::latinoKit, "latinoKit"},
    {InstrumentSet::maracas, "maracas"},
    {InstrumentSet::sambaKit, "sambaKit"},
    {InstrumentSet::timbales, "timbales"},
    {InstrumentSet::whistles, "whistles"},
    {InstrumentSet::woodblocks, "woodblocks"},
}};

} // namespace zarn::detail
