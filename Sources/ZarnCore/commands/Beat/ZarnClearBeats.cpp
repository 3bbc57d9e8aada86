// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnClearBeats.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::cmd {

ClearBeats::ClearBeats() : ReplaceBeats(QStringLiteral("ClearBeats")) { }
ClearBeats::~ClearBeats() = default;

bool ClearBeats::init(Score *score, const ScoreModelRange &range)
{
    ZARN_ASSERT_IN("zarn::cmd::ClearBeats::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    return prepare(score, range);
}

bool ClearBeats::isPossible() const
{
    return !beatSpans(model(), range()).empty();
}

ReplaceBeats::Replacements ClearBeats::replacements() const
{
    Replacements all;
    for (const BeatSpan &span : beatSpans(model(), range())) {
        Replacement cleared = {span, span.count(), {}, false};
        for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i) {
            const Beat &beat = *voiceOf(model(), span)->beats()[i];
            if (beat.isGrace())
                continue;
            cleared.beats.push_back(std::make_shared<Beat>(beat.rhythmValue()));
            cleared.beats.back()->setWholeBarRest(beat.isWholeBarRest());
        }
        all.push_back(std::move(cleared));
    }
    return all;
}

} // namespace zarn::cmd
