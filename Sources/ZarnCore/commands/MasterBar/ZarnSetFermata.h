// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/MasterBar/ZarnChangeFermatas.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

namespace zarn::cmd {

/// Puts a fermata over the time at which a beat starts, in all staves, or takes it away.
class ZARNCORE_EXPORT SetFermata final : public ChangeFermatas {
public:
    SetFermata();
    ~SetFermata() override;

    /// The fermata has the usual stretch of its kind; `Fermata::None` takes the one away that is
    /// there. False for a beat that is not there, a grace beat or a place holder, and when none is
    /// there to be taken away.
    bool init(Score *score, const ScoreModelIndex &beat, Fermata kind);

private:
    bool change(const MasterBar &bar, FermataMarks &marks) const override;

    ScoreModelIndex _beat;
    Fermata _kind = Fermata::None;
};

} // namespace zarn::cmd
