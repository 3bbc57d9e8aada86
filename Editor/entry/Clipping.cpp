// SPDX-License-Identifier: MIT
#include "entry/Clipping.h"

#include "document/Document.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::editor {

Clip clipOf(const Document &document)
{
    const ScoreModelRange range = document.selection().beats(document.score());
    if (!range.first().isBarValid())
        return {};
    ScoreModel &model = *document.score().scoreModel();
    return range.isMultiVoice() ? copyOfBars(model, range) : copyOfBeats(model, range);
}

bool removeSelected(const Document &document, Score &score)
{
    const ScoreModelRange range = document.selection().beats(document.score());
    if (!range.isMultiTrack())
        return score.setNoteRest(range);
    const auto bars = document.selection().bars(document.score());
    return score.removeBarRange(bars.first, bars.second);
}

bool pasteClip(const Document &document, Score &score, const Clip &clip, PasteMode mode)
{
    ScoreModelIndex place = document.selection().beats(document.score()).first();
    if (clip.kind == Clip::Kind::Beats)
        return score.pasteBeatRange(clip, place, 1, mode);
    // Copied columns name their tracks themselves, from the first one on.
    const int track = clip.hasColumns ? 0 : std::max(place.trackIndex(), 0);
    return score.pasteBarRange(clip, static_cast<unsigned>(std::max(place.barIndex(), 0)),
                               static_cast<unsigned>(track), 1, mode);
}

} // namespace zarn::editor
