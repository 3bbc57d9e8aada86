// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreDocumentOperations.h>

#include <ZarnCore/commands/Execute.h>
#include <ZarnCore/commands/Score/ZarnChangeHeaderAndFooter.h>
#include <ZarnCore/commands/Score/ZarnChangeProperties.h>
#include <ZarnCore/commands/Score/ZarnChangeProperty.h>
#include <ZarnCore/commands/Score/ZarnReplaceScore.h>
#include <ZarnCore/commands/Score/ZarnSetConcertTone.h>

#include <utility>

namespace zarn {

bool ScoreDocumentOperations::changeProperty(ScoreProperty property, const QString &text)
{
    return execute<cmd::ChangeProperty>(*this, property, text);
}

bool ScoreDocumentOperations::changeProperties(const std::map<ScoreProperty, QString> &texts)
{
    return execute<cmd::ChangeProperties>(*this, texts);
}

bool ScoreDocumentOperations::changeHeaderAndFooter(HeaderAndFooter part, const QString &text)
{
    return execute<cmd::ChangeHeaderAndFooter>(*this, part, text);
}

bool ScoreDocumentOperations::setConcertTone(double hertz)
{
    return execute<cmd::SetConcertTone>(*this, hertz);
}

bool ScoreDocumentOperations::replaceScore(std::shared_ptr<ScoreModel> model)
{
    return execute<cmd::ReplaceScore>(*this, std::move(model));
}

} // namespace zarn
