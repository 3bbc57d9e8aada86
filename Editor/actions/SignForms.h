// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ScoreStep.h"

#include <utility>

/// What is asked before bars get other signs: their meter, key, tempo, section, repeats.
namespace zarn::editor {

/// The bars that are selected, or the one of the cursor; both from 0 and included.
std::pair<unsigned, unsigned> barsOf(const ActionContext &context);

Change askTime(const ActionContext &context);
Change askKey(const ActionContext &context);
Change askSection(const ActionContext &context);
Change askRepeat(const ActionContext &context);
Change askTempo(const ActionContext &context);
Change askFermata(const ActionContext &context);

} // namespace zarn::editor
