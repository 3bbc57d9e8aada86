// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnSetConcertTone.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

SetConcertTone::SetConcertTone() : ScoreCommand(QStringLiteral("SetConcertTone")) { }
SetConcertTone::~SetConcertTone() = default;

bool SetConcertTone::init(Score *score, double hertz)
{
    ZARN_ASSERT_IN("zarn::cmd::SetConcertTone::init", score != NULL);
    addArg(QStringLiteral("Value"), QString::number(hertz));
    setScore(score);
    _tone = hertz;
    return hertz >= ScoreModel::LowestConcertTone && hertz <= ScoreModel::HighestConcertTone;
}

void SetConcertTone::apply()
{
    _before = model().concertTone();
    model().setConcertTone(_tone);
}

void SetConcertTone::revert()
{
    model().setConcertTone(_before);
}

void SetConcertTone::announceApplied()
{
    score().notify(this, evt::ConcertToneChanged(_before, _tone));
}

void SetConcertTone::announceReverted()
{
    score().notify(this, evt::ConcertToneChanged(_tone, _before));
}

} // namespace zarn::cmd
