// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnReplaceScore.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <utility>

namespace zarn::cmd {

ReplaceScore::ReplaceScore() : ScoreCommand(QStringLiteral("ReplaceScore")) { }
ReplaceScore::~ReplaceScore() = default;

bool ReplaceScore::init(Score *score, std::shared_ptr<ScoreModel> model)
{
    ZARN_ASSERT_IN("zarn::cmd::ReplaceScore::init", score != NULL);
    setScore(score);
    _target = score;
    _out = std::move(model);
    if (_out == nullptr)
        return false;
    addArg(QStringLiteral("Type"), QString::fromStdString(_out->property(ScoreProperty::Title)));
    return _out->parentScore() == nullptr && checkModel(*_out).empty();
}

void ReplaceScore::apply()
{
    requirePlace(_out->parentScore() == nullptr);
    _cursor = _target->scoreCursor().cloneScoreCursor();
    _target->exchangeModel(_out);
}

void ReplaceScore::revert()
{
    _target->exchangeModel(_out);
}

void ReplaceScore::announceApplied()
{
    score().notify(this, evt::ScoreChanged());
    // To its place in this document, or the nearest one.
    _target->scoreCursor().moveToCursor(*_cursor);
}

void ReplaceScore::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
