// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnSetLayout.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreViewEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

SetLayout::SetLayout() : ChangeView(QStringLiteral("SetLayout")) { }
SetLayout::~SetLayout() = default;

bool SetLayout::init(Score *score, unsigned view, ViewLayout layout)
{
    ZARN_ASSERT_IN("zarn::cmd::SetLayout::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(view));
    addArg(QStringLiteral("Type"), QString::fromStdString(viewLayoutToString(layout)));
    _layout = layout;
    return layout <= ViewLayout::SingleLine && prepare(score, view);
}

void SetLayout::change(ScoreView &view) const
{
    view.layout = _layout;
}

void SetLayout::announce(const ScoreView &)
{
    score().notify(this, evt::ScoreViewLayoutChanged(static_cast<int>(view())));
}

} // namespace zarn::cmd
