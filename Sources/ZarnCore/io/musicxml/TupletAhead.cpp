// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/TupletAhead.h>

#include <ZarnCore/io/musicxml/NoteReader.h>
#include <ZarnCore/io/musicxml/RhythmFitter.h>
#include <ZarnCore/io/musicxml/XmlNumber.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string_view>

namespace zarn::io {

using utils::rational;

namespace {

constexpr int mostDots = 2;

/// No tuplet has more notes; it bounds the search where one never ends.
constexpr int mostNotes = 256;

/// How many tuplets begin at a note, less those that end.
int tupletsOpened(pugi::xml_node note)
{
    int opened = 0;
    for (const auto notations : note.children("notations"))
        for (const auto tuplet : notations.children("tuplet"))
            opened += std::strcmp(tuplet.attribute("type").value(), "start") == 0 ? 1 : -1;
    return opened;
}

/// How many times its written value, without any dots, a note of a tuplet lasts; 0 where the note
/// does not say what its value, its tuplet or its length is, or has dots.
rational stretchOf(pugi::xml_node note, const rational &divisions)
{
    const auto modification = note.child("time-modification");
    const auto actual = parseInteger(modification.child_value("actual-notes"));
    const auto normal = parseInteger(modification.child_value("normal-notes"));
    const auto duration = parseDecimal(note.child_value("duration"));
    const int type = noteTypeOf(note.child_value("type"));
    if (type == WrittenRhythm::NoType || note.child("dot") || !duration || !actual || !normal
        || *actual <= 0 || *normal <= 0)
        return 0;
    return *duration / divisions / lengthOfType(type) * rational(*actual, *normal);
}

/// Whether a note ends the tuplet of a number.
bool endsTuplet(pugi::xml_node note, int number)
{
    for (const auto notations : note.children("notations"))
        for (const auto tuplet : notations.children("tuplet"))
            if (tuplet.attribute("number").as_int(1) == number
                && std::strcmp(tuplet.attribute("type").value(), "stop") == 0)
                return true;
    return false;
}

/// How many of its shortest notes the tuplet of a number is long; 0 where that is not said.
std::int64_t unitsOfTuplet(pugi::xml_node first, int number)
{
    const std::string_view voice = first.child_value("voice");
    rational written;
    rational shortest;
    int left = mostNotes;
    for (auto note = first; note && left > 0; note = note.next_sibling("note"), --left) {
        if (note.child_value("voice") != voice || note.child("grace"))
            continue;
        if (!note.child("chord")) {
            const int type = noteTypeOf(note.child_value("type"));
            const auto dots =
                std::distance(note.children("dot").begin(), note.children("dot").end());
            if (type == WrittenRhythm::NoType || dots > mostDots)
                return 0;
            const auto length = lengthOfType(type);
            shortest = shortest.isZero() ? length : std::min(shortest, length);
            written += length * rational((2 << dots) - 1, 1 << dots);
        }
        if (endsTuplet(note, number)) {
            const auto units = written / shortest;
            return units.isInteger() ? units.numerator() : 0;
        }
    }
    return 0;
}

} // namespace

int missingDots(pugi::xml_node first, const rational &divisions)
{
    const std::string_view voice = first.child_value("voice");
    const auto stretch = stretchOf(first, divisions);
    int dots = mostDots;
    while (dots > 0 && stretch != rational((2 << dots) - 1, 1 << dots))
        --dots;
    int open = 0;
    int left = mostNotes;
    for (auto note = first; note && dots > 0 && left > 0;
         note = note.next_sibling("note"), --left) {
        if (note.child_value("voice") != voice)
            continue;
        if (!note.child("grace") && !note.child("chord") && stretchOf(note, divisions) != stretch)
            return 0;
        open += tupletsOpened(note);
        if (open <= 0)
            return dots;
    }
    return 0;
}

TupletRatio outermostRatio(pugi::xml_node first, int number, const TupletRatio &modification)
{
    // The smallest product of two tuplets.
    if (modification.actual < 9 || modification.normal < 4)
        return modification;
    const auto units = unitsOfTuplet(first, number);
    if (units < 3 || units >= modification.actual || modification.actual % units != 0)
        return modification;
    // A tuplet takes the time of the next smaller power of two.
    int inner = 2;
    while (inner * 2 < units)
        inner *= 2;
    const TupletRatio outer = {static_cast<int>(modification.actual / units),
                               modification.normal / inner};
    const bool isProduct = outer.normal * inner == modification.normal && outer.normal > 1;
    return isProduct && outer.normal < outer.actual ? outer : modification;
}

} // namespace zarn::io
