// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnChangeHeaderAndFooter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

ChangeHeaderAndFooter::ChangeHeaderAndFooter()
    : ScoreCommand(QStringLiteral("ChangeHeaderAndFooter"))
{
}
ChangeHeaderAndFooter::~ChangeHeaderAndFooter() = default;

bool ChangeHeaderAndFooter::init(Score *score, HeaderAndFooter part, const QString &text)
{
    ZARN_ASSERT_IN("zarn::cmd::ChangeHeaderAndFooter::init", score != NULL);
    addArg(QStringLiteral("Type"), headerAndFooterToQString(part));
    addArg(QStringLiteral("Text"), text);
    setScore(score);
    _part = part;
    _text = text.toStdString();
    return static_cast<unsigned>(part) < HeaderAndFooterCount;
}

void ChangeHeaderAndFooter::apply()
{
    _before = model().headerAndFooter(_part);
    model().setHeaderAndFooter(_part, _text);
}

void ChangeHeaderAndFooter::revert()
{
    model().setHeaderAndFooter(_part, _before);
}

void ChangeHeaderAndFooter::announceApplied()
{
    score().notify(this, evt::HeaderAndFooterChanged(_part));
}

void ChangeHeaderAndFooter::announceReverted()
{
    score().notify(this, evt::HeaderAndFooterChanged(_part));
}

} // namespace zarn::cmd
