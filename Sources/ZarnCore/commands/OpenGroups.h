// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnMacroCommand.h>
#include <ZarnCore/score/ZarnScoreCursor.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace zarn {

/// A macro or a transaction that has been opened and has not ended.
struct OpenGroup {
    std::unique_ptr<MacroCommand> commands;
    std::uint64_t transaction = 0; ///< the transaction's number; 0 for a macro
    bool isCollecting = true;      ///< what is pushed waits for the end; otherwise it runs at once
    bool isAnnounced = false;      ///< `CommandPushed` was sent
    bool isBegun = false;          ///< `BeginMacro` was sent
    bool isOrphan = false;         ///< the transaction ended where nothing could be taken back
    std::optional<ScoreCursor> cursor; ///< where the score's cursor was before the first command
};

/// The groups that are open, innermost last. Those that run what is pushed come first: inside of
/// one that collects, all collect.
class OpenGroups {
public:
    bool isEmpty() const noexcept { return _groups.empty(); }
    bool isCollecting() const noexcept { return !isEmpty() && _groups.back().isCollecting; }
    bool isRunning() const noexcept { return !isEmpty() && !_groups.front().isCollecting; }

    /// Whether a transaction has changed the score.
    bool hasRun() const noexcept;

    OpenGroup &outermost() noexcept { return _groups.front(); }
    OpenGroup &innermost() noexcept { return _groups.back(); }
    std::vector<OpenGroup> &all() noexcept { return _groups; }

    void openMacro(Score *score);
    std::uint64_t openTransaction(Score *score, const QString &name);

    /// Takes the innermost macro out, and drops the transactions inside of it, in which nothing has
    /// run; nothing without a macro.
    std::unique_ptr<MacroCommand> takeMacro();

    /// Null when it is not open any more.
    OpenGroup *findTransaction(std::uint64_t number) noexcept;

    OpenGroup takeInnermost();
    void clear() noexcept { _groups.clear(); }

private:
    std::vector<OpenGroup> _groups;
    std::uint64_t _transactions = 0; ///< how many there have been
};

} // namespace zarn
