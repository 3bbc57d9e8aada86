// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/engrave/Problems.h>
#include <ZarnLayout/page/EngravedScore.h>
#include <ZarnLayout/session/ZarnScoreLayout.h>

namespace zarn::engraving {

/// Reads what is shown of a score and engraves its bars, all but their places.
EngravedScore engraveScore(const ScoreModel &model, const layout::LayoutOptions &options,
                           const Pen &pen, Problems &problems);

} // namespace zarn::engraving
