// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetChord.h>

namespace zarn::cmd {

SetChord::SetChord() : SetByTable(QStringLiteral("SetChord")) { }
SetChord::~SetChord() = default;

bool SetChord::init(Score *score, const ScoreModelIndex &beat, const ChordMark &chord)
{
    ZARN_ASSERT_IN("zarn::cmd::SetChord::init", score != NULL);
    return beat.beatIndex() >= 0 && !chord.isEmpty()
        && prepare(score, ScoreModelRange(beat), {{BeatAttribute::Chord, chord}});
}

} // namespace zarn::cmd
