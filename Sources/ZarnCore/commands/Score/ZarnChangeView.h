// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/layout/ZarnScoreView.h>

namespace zarn {

/// Base of commands that change how one view shows the score.
class ZARNCORE_EXPORT ChangeView : public ScoreCommand {
protected:
    using ScoreCommand::ScoreCommand;

    /// Remembers the view, counted from 0; false when it is not there.
    bool prepare(Score *score, unsigned view);

    unsigned view() const noexcept { return _view; }

    virtual void change(ScoreView &view) const = 0;

    /// Sends the event of a change, after which the view is as given.
    virtual void announce(const ScoreView &now) = 0;

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool hasPlace() const;
    void set(const ScoreView &view);

    unsigned _view = 0;
    ScoreView _before;
};

} // namespace zarn
