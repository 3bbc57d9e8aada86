// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/DrumNames.h>

#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/music/ZarnDrumKeys.h>

#include <array>

namespace zarn::sheet {

namespace {

/// How a percussion key is drawn: as a drum staff has its heads, and stacks its rows.
struct KeySign {
    char letter;
    int height;
};

/// From `firstDrumKey` on.
constexpr std::array<KeySign, lastDrumKey - firstDrumKey + 1> KeySigns = {{
    {'o', 11}, {'o', 12}, {'x', 40}, {'o', 40}, {'x', 45}, {'o', 40}, {'o', 21}, {'x', 90},
    {'o', 22}, {'x', 5},  {'o', 50}, {'o', 90}, {'o', 51}, {'o', 52}, {'x', 99}, {'o', 53},
    {'x', 95}, {'x', 97}, {'b', 95}, {'x', 80}, {'x', 96}, {'x', 81}, {'x', 98}, {'x', 79},
    {'x', 94}, {'o', 78}, {'o', 77}, {'x', 76}, {'o', 76}, {'o', 75}, {'o', 74}, {'o', 73},
    {'x', 72}, {'x', 71}, {'x', 70}, {'x', 69}, {'x', 68}, {'o', 68}, {'x', 67}, {'o', 67},
    {'x', 66}, {'x', 65}, {'x', 64}, {'x', 63}, {'o', 63}, {'x', 62}, {'o', 62},
}};

} // namespace

DrumSound drumSoundOf(const Note &note)
{
    const bool hasCross = note.isDead() || note.noteHead() == NoteHead::Cross;
    if (note.midi() < 0) {
        if (note.staffLine() != Note::NoStaffLine)
            return {QStringLiteral("line %1").arg(note.staffLine()),
                    hasCross ? QStringLiteral("x") : QStringLiteral("o"), note.staffLine()};
        return {QStringLiteral("percussion"), hasCross ? QStringLiteral("x") : QStringLiteral("o"),
                0};
    }
    const DrumKey *const key = drumKey(note.midi());
    if (key == nullptr)
        return {QStringLiteral("key %1").arg(note.midi()), QStringLiteral("o"), -note.midi()};
    const KeySign &sign = KeySigns[static_cast<std::size_t>(note.midi() - firstDrumKey)];
    return {QString::fromLatin1(key->drum.data(), static_cast<int>(key->drum.size())),
            QString(QLatin1Char(sign.letter)), sign.height};
}

} // namespace zarn::sheet
