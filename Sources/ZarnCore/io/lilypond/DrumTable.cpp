// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/DrumTable.h>

#include <ZarnCore/io/lilypond/NoteHeads.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/io/midi/DrumStaff.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/notes/StaffLineOfNote.h>
#include <ZarnCore/music/ZarnDrumKeys.h>

#include <algorithm>
#include <array>

namespace zarn::lilypond {

namespace {

/// LilyPond's names of the General MIDI Level 1 percussion keys, from `firstDrumKey` on.
constexpr std::array<const char *, lastDrumKey - firstDrumKey + 1> keyNames = {
    "acousticbassdrum", "bassdrum",     "sidestick",     "acousticsnare", "handclap",
    "electricsnare",    "lowfloortom",  "closedhihat",   "highfloortom",  "pedalhihat",
    "lowtom",           "openhihat",    "lowmidtom",     "himidtom",      "crashcymbala",
    "hightom",          "ridecymbala",  "chinesecymbal", "ridebell",      "tambourine",
    "splashcymbal",     "cowbell",      "crashcymbalb",  "vibraslap",     "ridecymbalb",
    "hibongo",          "lobongo",      "mutehiconga",   "openhiconga",   "loconga",
    "hitimbale",        "lotimbale",    "hiagogo",       "loagogo",       "cabasa",
    "maracas",          "shortwhistle", "longwhistle",   "shortguiro",    "longguiro",
    "claves",           "hiwoodblock",  "lowoodblock",   "mutecuica",     "opencuica",
    "mutetriangle",     "opentriangle"};

constexpr int middleLine = 4;

const char *nameOfKey(int key)
{
    return key >= firstDrumKey && key <= lastDrumKey
        ? keyNames.at(static_cast<std::size_t>(key - firstDrumKey))
        : nullptr;
}

} // namespace

std::string DrumTable::nameOf(const Note &note, const Beat &beat, const Bar &bar)
{
    Drum drum;
    drum.key = note.midi();
    const auto look = io::lookOfKey(note, bar);
    drum.line =
        (look ? look->line : staffLineOf(note, beat, bar).value_or(middleLine)) - middleLine;
    const auto head = look && note.noteHead() == NoteHead::Normal ? look->head : note.noteHead();
    drum.head = note.isDead() ? "cross" : headStyle(head);
    unsigned looks = 0;
    for (const Drum &known : _drums) {
        if (known.key != drum.key)
            continue;
        if (known.line == drum.line && known.head == drum.head)
            return known.name;
        ++looks;
    }
    const char *const name = nameOfKey(drum.key);
    drum.isOwn = name == nullptr || looks != 0;
    if (name != nullptr)
        drum.name = looks == 0 ? name : name + romanNumber(looks + 1);
    else
        drum.name = drum.key < 0 ? "drum" + romanNumber(looks + 1)
                                 : "key" + romanNumber(static_cast<unsigned>(drum.key) + 1)
                + (looks == 0 ? "" : "look" + romanNumber(looks + 1));
    _drums.push_back(drum);
    return drum.name;
}

std::string DrumTable::toText() const
{
    constexpr int silentKey = 37; // a side stick stands for what has no key
    std::string text;
    for (const Drum &drum : _drums)
        if (drum.isOwn) {
            text += "drumPitchNames." + drum.name + " = #'" + drum.name + '\n';
            text += "midiDrumPitches." + drum.name + " = "
                + keyText(drum.key < 0 ? silentKey : drum.key, false) + '\n';
        }
    text += "drumLooks = #(alist->hash-table '(\n";
    for (const Drum &drum : _drums)
        text += "  (" + drum.name + ' ' + (drum.head.empty() ? "default" : drum.head) + " #f "
            + std::to_string(drum.line) + ")\n";
    return text + "))\ndrumKeys = #(alist->hash-table midiDrumPitches)\n\n";
}

} // namespace zarn::lilypond
