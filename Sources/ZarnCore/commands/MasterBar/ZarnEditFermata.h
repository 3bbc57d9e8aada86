// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/MasterBar/ZarnChangeFermatas.h>

namespace zarn::cmd {

/// Changes the kind, the stretch and the place of a fermata that is there.
class ZARNCORE_EXPORT EditFermata final : public ChangeFermatas {
public:
    EditFermata();
    ~EditFermata() override;

    /// Makes the fermata at a position of a bar, in quarters from its start, what `mark` says.
    /// False when none is there, for the kind None and more than 1000 percent, and for a place
    /// outside of the bar or that of another fermata.
    bool init(Score *score, unsigned bar, const utils::rational &position, const FermataMark &mark);

private:
    bool change(const MasterBar &bar, FermataMarks &marks) const override;

    utils::rational _position;
    FermataMark _mark;
};

} // namespace zarn::cmd
