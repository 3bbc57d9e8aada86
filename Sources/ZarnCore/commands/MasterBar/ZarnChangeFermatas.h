// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/attributes/ZarnFermataMark.h>

namespace zarn {

class MasterBar;

/// Base of commands that change the fermatas of a bar. Sends `MasterBarFermata`.
class ZARNCORE_EXPORT ChangeFermatas : public ScoreCommand {
protected:
    using ScoreCommand::ScoreCommand;

    /// Remembers the bar; false when it is not there, or its fermatas cannot be changed.
    bool prepare(Score *score, unsigned bar);

    /// Changes the fermatas of the bar; false, whatever became of them, when that cannot be.
    virtual bool change(const MasterBar &bar, FermataMarks &marks) const = 0;

private:
    void apply() override;
    void revert() override;
    void announceApplied() override { announce(); }
    void announceReverted() override { announce(); }
    void announce();
    bool canChange() const;

    unsigned _bar = 0;
    FermataMarks _before;
};

/// The mark at a position of a bar, in quarters; the end when there is none.
ZARNCORE_EXPORT FermataMarks::iterator markAt(FermataMarks &marks, const utils::rational &position);

/// Puts a mark in its place among the others, none of which is at its position.
ZARNCORE_EXPORT void addMark(FermataMarks &marks, const FermataMark &mark);

} // namespace zarn
