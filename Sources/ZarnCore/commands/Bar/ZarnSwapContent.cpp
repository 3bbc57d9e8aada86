// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnSwapContent.h>

#include <ZarnCore/commands/Bar/ContentSwap.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn {

SwapContent::SwapContent(const QString &name) : ScoreCommand(name) { }
SwapContent::~SwapContent() = default;

void SwapContent::take(std::unique_ptr<ContentSwap> swap)
{
    _swap = std::move(swap);
}

void SwapContent::plan(ContentSwap &) const { }

bool SwapContent::hasWork() const
{
    ContentSwap swap;
    plan(swap);
    return !swap.isEmpty();
}

void SwapContent::apply()
{
    if (_swap == nullptr) {
        auto swap = std::make_unique<ContentSwap>();
        plan(*swap);
        requirePlace(!swap->isEmpty());
        _swap = std::move(swap);
    }
    requirePlace(_swap->fits(model()));
    _swap->apply(model(), [this](unsigned track, unsigned staff, unsigned bar) {
        keepSpans(track, staff, bar, bar);
    });
}

void SwapContent::revert()
{
    _swap->revert(model());
}

void SwapContent::announceApplied()
{
    _swap->announce(score(), this);
}

void SwapContent::announceReverted()
{
    announceApplied();
}

} // namespace zarn
