// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSwitchNoteAccidental.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/music/ZarnSpellingTables.h>

#include <algorithm>
#include <array>
#include <vector>

namespace zarn::cmd {

namespace {

/// The spellings of a key, by number: the fewer signs the earlier, sharps in front of flats.
std::vector<std::uint8_t> spellingsOf(int midi)
{
    constexpr std::array<int, spelling::accidentalCount> alterations = {0, 1, -1, 2, -2};
    std::vector<std::uint8_t> found;
    for (const int alteration : alterations)
        for (int letter = 0; letter < spelling::letterCount; ++letter) {
            const int number = letter * spelling::accidentalCount + alteration + 2;
            if (spelling::toneOf(number) == midi % 12)
                found.push_back(static_cast<std::uint8_t>(number));
        }
    return found;
}

} // namespace

SwitchNoteAccidental::SwitchNoteAccidental() : RespellNotes(QStringLiteral("SwitchNoteAccidental"))
{
}
SwitchNoteAccidental::~SwitchNoteAccidental() = default;

bool SwitchNoteAccidental::init(Score *score, const ScoreModelRange &range)
{
    ZARN_ASSERT_IN("zarn::cmd::SwitchNoteAccidental::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    return prepare(score, range);
}

std::optional<NoteMove> SwitchNoteAccidental::moved(const MarkedPlace &, const Note &note,
                                                    const NotePosition &from) const
{
    NoteMove move = {from, std::nullopt};
    const auto circle = spellingsOf(note.midi());
    const auto own = spellingNumber(PitchClass::fromPitch(written(note)));
    const auto at = std::find(circle.begin(), circle.end(), own);
    move.to.spelling = at == circle.end() || at + 1 == circle.end() ? circle.front() : *(at + 1);
    return move;
}

} // namespace zarn::cmd
