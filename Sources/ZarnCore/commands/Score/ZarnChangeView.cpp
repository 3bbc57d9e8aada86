// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Score/ZarnChangeView.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn {

bool ChangeView::prepare(Score *score, unsigned view)
{
    setScore(score);
    _view = view;
    return expectPlace([this] { return hasPlace(); });
}

bool ChangeView::hasPlace() const
{
    return _view < model().views().size();
}

void ChangeView::set(const ScoreView &view)
{
    auto views = model().views();
    views[_view] = view;
    model().setViews(std::move(views));
}

void ChangeView::apply()
{
    requirePlace(hasPlace());
    _before = model().views()[_view];
    ScoreView changed = _before;
    change(changed);
    set(changed);
}

void ChangeView::revert()
{
    set(_before);
}

void ChangeView::announceApplied()
{
    announce(model().views()[_view]);
}

void ChangeView::announceReverted()
{
    announce(model().views()[_view]);
}

} // namespace zarn
