// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteRest.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/EmptyBeats.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::cmd {

SetNoteRest::SetNoteRest() : ReplaceBeats(QStringLiteral("SetNoteRest")) { }
SetNoteRest::~SetNoteRest() = default;

bool SetNoteRest::init(Score *score, const ScoreModelRange &range)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteRest::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    return prepare(score, range);
}

bool SetNoteRest::isPossible() const
{
    return !beatSpans(model(), range()).empty();
}

ReplaceBeats::Replacements SetNoteRest::replacements() const
{
    Replacements all;
    for (const BeatSpan &span : beatSpans(model(), range())) {
        Replacement rests = {span, span.count(), {}, false};
        for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i) {
            const Beat &beat = *voiceOf(model(), span)->beats()[i];
            rests.beats.push_back(emptyBeat(beat, beat.rhythmValue()));
            rests.beats.back()->setWholeBarRest(beat.isWholeBarRest());
        }
        all.push_back(std::move(rests));
    }
    return all;
}

} // namespace zarn::cmd
