// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/MissingDots.h>

#include <ZarnCore/io/musicxml/NoteReader.h>
#include <ZarnCore/io/musicxml/RhythmFitter.h>
#include <ZarnCore/io/musicxml/XmlNumber.h>

#include <cstring>
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

} // namespace zarn::io
