// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/session/ZarnScoreLayout.h>

namespace zarn {

class ScoreModel;

namespace tool {

class Arguments;

/// What the options of `zarn draw` say of the layout of a score. Raises `UsageError`.
layout::LayoutOptions readLayoutOptions(const Arguments &arguments, const ScoreModel &model);

} // namespace tool
} // namespace zarn
