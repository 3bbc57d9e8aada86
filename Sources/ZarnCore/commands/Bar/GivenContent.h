// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Bar/ContentSwap.h>
#include <ZarnCore/commands/Bar/ZarnSwapContent.h>

#include <utility>

namespace zarn::cmd {

/// A part of other commands: exchanges content that they have worked out. Whether its place is
/// there is seen when it runs.
class GivenContent final : public SwapContent {
public:
    GivenContent() : SwapContent(QStringLiteral("GivenContent")) { }

    bool init(Score *score, std::unique_ptr<ContentSwap> swap)
    {
        setScore(score);
        const bool hasWork = !swap->isEmpty();
        take(std::move(swap));
        return hasWork;
    }
};

} // namespace zarn::cmd
