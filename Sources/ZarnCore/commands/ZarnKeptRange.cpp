// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnKeptRange.h>

#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>

#include <utility>

namespace zarn {

void KeptRange::clear()
{
    *this = {};
}

void KeptRange::keep(const ScoreModel &model, std::vector<BeatSpan> spans)
{
    for (const BeatSpan &span : spans) {
        const Voice &voice = *voiceOf(model, span);
        keepAround(voice, span.firstBeat, span.lastBeat + 1, _beats, span.track);
        for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i)
            _beats.keep({span.track, span.staff, span.bar, span.voice, i}, *voice.beats()[i]);
    }
    _spans = std::move(spans);
}

void KeptRange::mend(const ScoreModel &model)
{
    for (const BeatSpan &span : _spans)
        mendThroughout(*voiceOf(model, span), span.firstBeat, span.lastBeat + 1);
}

void KeptRange::settle()
{
    _beats.settle();
    _spans.clear();
}

void KeptRange::addChanged(TouchedBars &touched) const
{
    for (const KeptBeats::Place &changed : _beats.changed())
        touched.add(changed.track, changed.staff, changed.bar, changed.bar);
}

void KeptRange::putBack(const ScoreModel &model) const
{
    _beats.putBack([&model](const KeptBeats::Place &place) {
        const BeatSpan span = {place.track, place.staff, place.bar, place.voice};
        return voiceOf(model, span)->beats()[place.beat].get();
    });
}

} // namespace zarn
