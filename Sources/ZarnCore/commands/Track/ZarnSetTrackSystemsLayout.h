// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Score/ZarnChangeSystems.h>

namespace zarn::cmd {

/// Says how many bars each system has where a track is laid out alone, from the first one on. The
/// systems behind those hold the number that they do by default.
class ZARNCORE_EXPORT SetTrackSystemsLayout final : public ChangeSystems {
public:
    SetTrackSystemsLayout();
    ~SetTrackSystemsLayout() override;

    /// Their sum need not be the number of bars. False for a track that is not there, and for a
    /// system of less than 1 or more than `MostBars` bars.
    bool init(Score *score, unsigned track, const std::vector<int> &systems);
};

} // namespace zarn::cmd
