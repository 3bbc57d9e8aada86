// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ScoreStep.h"

/// How notes are brought out where on or off is not enough.
namespace zarn::editor {

Change askBend(const ActionContext &context);
Change askWhammyBar(const ActionContext &context);
Change askHarmonic(const ActionContext &context);
Change askTrill(const ActionContext &context);

} // namespace zarn::editor
