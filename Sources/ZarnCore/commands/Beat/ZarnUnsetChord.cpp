// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnUnsetChord.h>

namespace zarn::cmd {

UnsetChord::UnsetChord() : SetByTable(QStringLiteral("UnsetChord")) { }
UnsetChord::~UnsetChord() = default;

bool UnsetChord::init(Score *score, const ScoreModelRange &range)
{
    ZARN_ASSERT_IN("zarn::cmd::UnsetChord::init", score != NULL);
    return prepare(score, range, {{BeatAttribute::Chord, ChordMark()}});
}

bool UnsetChord::takes(const MarkedPlace &, const Beat &beat, const Beat &) const
{
    return beat.hasDetails() && !beat.chord().isEmpty();
}

} // namespace zarn::cmd
