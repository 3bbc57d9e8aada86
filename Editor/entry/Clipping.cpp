// SPDX-License-Identifier: MIT
#include "entry/Clipping.h"

#include "document/Document.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreCursor.h>

#include <QCoreApplication>

#include <algorithm>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(Clipping)
};

/// To the bar behind pasted ones; where they end the score, to its end.
bool goBehindBars(ScoreCursor &cursor, const ScoreModelIndex &place, const Clip &clip,
                  unsigned times)
{
    const unsigned count = clip.model->masterTrack()->masterBarCount() * times;
    const int next = std::max(place.barIndex(), 0) + static_cast<int>(count);
    const bool isThere = next < static_cast<int>(place.model()->masterTrack()->masterBarCount());
    return isThere ? cursor.to(CursorStep::Bar, next)
                   : cursor.toLast(CursorStep::Bar) && cursor.toLast(CursorStep::Beat);
}

/// Over as many beats as were pasted.
bool goBehindBeats(ScoreCursor &cursor, const ScoreModelIndex &place, const Clip &clip,
                   unsigned times)
{
    utils::rational length(0);
    const Bar &copied = *clip.model->track(0)->staff(0)->bar(0);
    for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice)
        if (const auto beats = copied.voice(voice))
            length = std::max(length, beats->length());
    for (utils::rational left = length * utils::rational(static_cast<int>(times));
         left > utils::rational(0);) {
        const Beat *const beat = cursor.index().findBeat();
        if (beat == nullptr)
            break;
        left -= beat->length();
        if (!cursor.next(CursorStep::Beat))
            break;
    }
    return cursor.index() != place;
}

} // namespace

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

bool pasteClip(Document &document, const Clip &clip, PasteMode mode, unsigned times)
{
    ScoreModelIndex place = document.selection().beats(document.score()).first();
    const bool isDone = document.edit(Text::tr("Paste"), [&](Score &score) {
        if (clip.kind == Clip::Kind::Beats)
            return score.pasteBeatRange(clip, place, times, mode);
        // Copied columns name their tracks themselves, from the first one on.
        const int track = clip.hasColumns ? 0 : std::max(place.trackIndex(), 0);
        return score.pasteBarRange(clip, static_cast<unsigned>(std::max(place.barIndex(), 0)),
                                   static_cast<unsigned>(track), times, mode);
    });
    if (!isDone)
        return false;
    document.moveCursor([&](ScoreCursor &cursor) {
        return clip.kind == Clip::Kind::Beats ? goBehindBeats(cursor, place, clip, times)
                                              : goBehindBars(cursor, place, clip, times);
    });
    return true;
}

} // namespace zarn::editor
