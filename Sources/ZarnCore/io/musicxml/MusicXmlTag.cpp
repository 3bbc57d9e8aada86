// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/MusicXmlTag.h>

#include <array>
#include <string_view>

namespace zarn::io {

namespace {

/// In the order of the enumeration, which is alphabetical.
constexpr std::string_view names[] = {"",
                                      "accidental",
                                      "actual-notes",
                                      "alter",
                                      "articulations",
                                      "attributes",
                                      "backup",
                                      "bar-style",
                                      "barline",
                                      "bass",
                                      "bass-alter",
                                      "bass-step",
                                      "beam",
                                      "beat-type",
                                      "beat-unit",
                                      "beat-unit-dot",
                                      "beats",
                                      "capo",
                                      "chord",
                                      "chromatic",
                                      "clef",
                                      "clef-octave-change",
                                      "coda",
                                      "creator",
                                      "credit",
                                      "cue",
                                      "defaults",
                                      "degree",
                                      "degree-alter",
                                      "degree-type",
                                      "degree-value",
                                      "diatonic",
                                      "direction",
                                      "direction-type",
                                      "display-octave",
                                      "display-step",
                                      "divisions",
                                      "dot",
                                      "double",
                                      "duration",
                                      "dynamics",
                                      "encoding",
                                      "ending",
                                      "fermata",
                                      "fifths",
                                      "fingering",
                                      "for-part",
                                      "forward",
                                      "frame",
                                      "fret",
                                      "function",
                                      "glissando",
                                      "grace",
                                      "hammer-on",
                                      "harmony",
                                      "identification",
                                      "instrument",
                                      "instrument-name",
                                      "inversion",
                                      "key",
                                      "kind",
                                      "line",
                                      "lyric",
                                      "measure",
                                      "measure-repeat",
                                      "measure-style",
                                      "metronome",
                                      "midi-channel",
                                      "midi-device",
                                      "midi-instrument",
                                      "midi-program",
                                      "midi-unpitched",
                                      "miscellaneous",
                                      "mode",
                                      "mordent",
                                      "movement-number",
                                      "movement-title",
                                      "normal-dot",
                                      "normal-notes",
                                      "normal-type",
                                      "notations",
                                      "note",
                                      "notehead",
                                      "numeral",
                                      "octave",
                                      "octave-change",
                                      "octave-shift",
                                      "offset",
                                      "ornaments",
                                      "other-dynamics",
                                      "part",
                                      "part-abbreviation",
                                      "part-group",
                                      "part-list",
                                      "part-name",
                                      "part-symbol",
                                      "pedal",
                                      "per-minute",
                                      "pitch",
                                      "print",
                                      "pull-off",
                                      "rehearsal",
                                      "repeat",
                                      "rest",
                                      "rights",
                                      "root",
                                      "root-alter",
                                      "root-step",
                                      "score-instrument",
                                      "score-part",
                                      "score-partwise",
                                      "score-timewise",
                                      "segno",
                                      "senza-misura",
                                      "sign",
                                      "slide",
                                      "slur",
                                      "sound",
                                      "staccato",
                                      "staff",
                                      "staff-details",
                                      "staff-lines",
                                      "staff-tuning",
                                      "staves",
                                      "stem",
                                      "step",
                                      "string",
                                      "technical",
                                      "tenuto",
                                      "tie",
                                      "tied",
                                      "time",
                                      "time-modification",
                                      "transpose",
                                      "tremolo",
                                      "tuning-alter",
                                      "tuning-octave",
                                      "tuning-step",
                                      "tuplet",
                                      "tuplet-actual",
                                      "tuplet-normal",
                                      "tuplet-number",
                                      "type",
                                      "unpitched",
                                      "voice",
                                      "wedge",
                                      "words",
                                      "work",
                                      "work-number",
                                      "work-title"};
static_assert(std::size(names) == tagCount);

constexpr std::size_t slotCount = 1024;

/// Places nearly all names in slots of their own; only the length and three letters are read.
constexpr std::size_t slotOf(std::string_view name) noexcept
{
    const auto letter = [name](std::size_t at) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(name[at]));
    };
    const auto length = name.size();
    const auto mixed = letter(0) * 0x9E3779B1u ^ letter(length - 1) * 0x85EBCA6Bu
        ^ letter(length / 2) * 0xC2B2AE35u ^ static_cast<std::uint32_t>(length) * 0x27D4EB2Fu;
    return (mixed ^ (mixed >> 15)) % slotCount;
}

constexpr std::array<Tag, slotCount> makeTable() noexcept
{
    std::array<Tag, slotCount> table = {};
    for (std::size_t tag = 1; tag < tagCount; ++tag) {
        auto slot = slotOf(names[tag]);
        while (table[slot] != Tag::Unknown)
            slot = (slot + 1) % slotCount;
        table[slot] = static_cast<Tag>(tag);
    }
    return table;
}

constexpr auto table = makeTable();

} // namespace

Tag tagOf(const char *name) noexcept
{
    const std::string_view word(name);
    if (word.empty())
        return Tag::Unknown;
    for (auto slot = slotOf(word); table[slot] != Tag::Unknown; slot = (slot + 1) % slotCount)
        if (names[static_cast<std::size_t>(table[slot])] == word)
            return table[slot];
    return Tag::Unknown;
}

const char *tagName(Tag tag) noexcept
{
    return names[static_cast<std::size_t>(tag)].data();
}

} // namespace zarn::io
