// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Score/ZarnChangeSystems.h>

namespace zarn::cmd {

/// Gives the breaking into systems back to the program: no bars per system are set, none by
/// default.
class ZARNCORE_EXPORT SetAutoLayout final : public ChangeSystems {
public:
    SetAutoLayout();
    ~SetAutoLayout() override;

    /// A track, or `FullScore`; false for a track that is not there.
    bool init(Score *score, int track);
};

} // namespace zarn::cmd
