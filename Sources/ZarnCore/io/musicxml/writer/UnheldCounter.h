// SPDX-License-Identifier: MIT
#pragma once

#include <deque>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class ExportContext;
class PartPlan;

/// Reports what a score holds beside its music that MusicXML has no word for: effects, mastering,
/// colours, settings of playback and of views.
void countUnheld(const ScoreModel &model, const std::deque<PartPlan> &parts,
                 ExportContext &context);

} // namespace zarn::io
