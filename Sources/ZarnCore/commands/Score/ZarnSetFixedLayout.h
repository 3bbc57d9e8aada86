// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Score/ZarnChangeSystems.h>

namespace zarn::cmd {

/// Breaks the music into systems of the same number of bars.
class ZARNCORE_EXPORT SetFixedLayout final : public ChangeSystems {
public:
    SetFixedLayout();
    ~SetFixedLayout() override;

    /// A track, or `FullScore`. False for a track that is not there, and unless there are 1 to
    /// `MostBarsOfAll` bars.
    bool init(Score *score, int track, unsigned bars);

    static constexpr unsigned MostBarsOfAll = 50;
};

} // namespace zarn::cmd
