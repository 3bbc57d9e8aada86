// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

#include <vector>

namespace zarn {

/// The clef at the start of a bar, and those that come inside.
struct BarClefs {
    ClefType clef = ClefType::G2;
    std::vector<ClefChange> changes;
};
ZARNCORE_EXPORT BarClefs barClefs(const Bar &bar);
ZARNCORE_EXPORT void setBarClefs(Bar &bar, const BarClefs &clefs);

} // namespace zarn

namespace zarn::cmd {

/// Puts bars of a staff under one clef; changes of clef inside them go. The bars behind keep
/// theirs. Sends `TrackClefChanged`.
class ZARNCORE_EXPORT SetClef final
    : public SetOnStaffBars<&barClefs, &setBarClefs, evt::TrackClefChanged> {
public:
    SetClef();
    ~SetClef() override;

    /// The bars `first` to `last` of a staff. False for bars that are not there, and for no clef.
    bool init(Score *score, unsigned track, unsigned staff, unsigned first, unsigned last,
              ClefType clef);
};

} // namespace zarn::cmd
