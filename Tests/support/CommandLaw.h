// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace zarn {
class Score;
}

/// The broken rules of a score's tree, one per line; empty for a sound tree.
std::string brokenRules(const zarn::Score &score);

/// What a command announces, as `EventLog` has it.
struct Announcement {
    std::string done;
    std::string undone;
};

/// The laws of every command: undo gives back all that redo found and the cursor, redo what it
/// made, as often as one likes; the tree is sound at each step; a listener that goes by the events
/// alone knows the score; and what is announced is the same each time (and this, where it is
/// given). `act` is an operation of the score and answers whether it was done.
void expectUndoable(zarn::Score &score, const std::function<bool()> &act,
                    const std::optional<Announcement> &announcement = {});

/// A listener that throws at any of the events finds all as it was before the step, and so do those
/// that heard of it.
void expectTakenBackWhenAListenerThrows(zarn::Score &score, const std::function<bool()> &act);

/// An operation that must be refused: nothing changes, nothing is announced, nothing reaches the
/// command stack.
void expectRefused(zarn::Score &score, const std::function<bool()> &act);
