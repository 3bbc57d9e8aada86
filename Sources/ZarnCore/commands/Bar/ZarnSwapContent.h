// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>

#include <memory>

namespace zarn {

class ContentSwap;

/// Base of commands that put other beats into voices of bars: works out once, when it runs first,
/// what is to stand there, and exchanges it with what does. Sends `ModifyBarRange` for the bars and
/// for those beside them where a link ended, and what else changed with the beats (simile marks,
/// clefs inside of bars, fermatas).
class ZARNCORE_EXPORT SwapContent : public ScoreCommand {
public:
    ~SwapContent() override;

protected:
    explicit SwapContent(const QString &name);

    /// For a command that has worked it out already.
    void take(std::unique_ptr<ContentSwap> swap);

    /// Whether there is something to do, by the score as it is now; for `init`.
    bool hasWork() const;

private:
    /// Leaves the swap empty where there is nothing to do or what is asked cannot be.
    virtual void plan(ContentSwap &swap) const;

    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    std::unique_ptr<ContentSwap> _swap;
};

} // namespace zarn
