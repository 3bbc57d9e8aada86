// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Score/ZarnChangeSystems.h>

namespace zarn::cmd {

/// Says how many bars each system of the full score has, from the first one on. The systems behind
/// those hold the number that they do by default.
class ZARNCORE_EXPORT SetFullScoreSystemsLayout final : public ChangeSystems {
public:
    SetFullScoreSystemsLayout();
    ~SetFullScoreSystemsLayout() override;

    /// Their sum need not be the number of bars. False for a system of less than 1 or more than
    /// `MostBars` bars.
    bool init(Score *score, const std::vector<int> &systems);
};

} // namespace zarn::cmd
