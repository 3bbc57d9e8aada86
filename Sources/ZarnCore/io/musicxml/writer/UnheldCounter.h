// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class ExportContext;

/// Reports what a score holds beside its music that MusicXML has no word for: effects, mastering,
/// colours, settings of playback and of views.
void countUnheld(const ScoreModel &model, ExportContext &context);

} // namespace zarn::io
