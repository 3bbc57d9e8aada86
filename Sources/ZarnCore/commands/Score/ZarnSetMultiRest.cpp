// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnSetMultiRest.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreViewEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

SetMultiRest::SetMultiRest() : ChangeView(QStringLiteral("SetMultiRest")) { }
SetMultiRest::~SetMultiRest() = default;

bool SetMultiRest::init(Score *score, unsigned view, bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMultiRest::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(view));
    addArg(QStringLiteral("Checked"), checked ? QStringLiteral("true") : QStringLiteral("false"));
    _isChecked = checked;
    return prepare(score, view);
}

void SetMultiRest::change(ScoreView &view) const
{
    view.multiRest = _isChecked;
}

void SetMultiRest::announce(const ScoreView &now)
{
    score().notify(this, evt::ScoreViewMultiRest(static_cast<int>(view()), now.multiRest));
}

} // namespace zarn::cmd
