// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>

namespace zarn {

/// Base of commands that insert or remove something whole: inserting, forwards, puts it in and,
/// backwards, takes it out; removing is the reverse. The thing is owned while it is out.
class ZARNCORE_EXPORT PlacingCommand : public ScoreCommand {
protected:
    enum class Kind { Inserts, Removes };

    PlacingCommand(const QString &name, Kind kind);

private:
    /// Each resolves its place, and raises and changes nothing when there is none.
    virtual void putIn() = 0;
    virtual void takeOut() = 0;

    virtual void announceIn() = 0;
    virtual void announceOut() = 0;

    void apply() final;
    void revert() final;
    void announceApplied() final;
    void announceReverted() final;

    Kind _kind;
};

} // namespace zarn
