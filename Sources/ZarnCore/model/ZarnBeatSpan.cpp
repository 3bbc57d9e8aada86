// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnBeatSpan.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnScoreModelRange.h>

#include <algorithm>
#include <utility>

namespace zarn {

namespace {

Bar *barAt(const ScoreModel &model, unsigned track, unsigned staff, unsigned bar) noexcept
{
    if (track >= model.trackCount())
        return nullptr;
    const auto &staves = model.tracks()[track]->staves();
    if (staff >= staves.size() || bar >= staves[staff]->barCount())
        return nullptr;
    return staves[staff]->bars()[bar].get();
}

Voice *voiceAt(const ScoreModel &model, unsigned track, unsigned staff, unsigned bar,
               unsigned voice) noexcept
{
    const Bar *const node = barAt(model, track, staff, bar);
    return node != nullptr && voice < Bar::MaxVoices ? node->voices()[voice].get() : nullptr;
}

/// The bar of an end exists, and its beat too when it names one.
bool exists(const ScoreModel &model, const ScoreModelIndex &place, unsigned voice,
            bool isMultiVoice)
{
    if (place.trackIndex() < 0 || place.barIndex() < 0)
        return false;
    if (barAt(model, static_cast<unsigned>(place.trackIndex()), place.staffIndex(),
              static_cast<unsigned>(place.barIndex()))
        == nullptr)
        return false;
    if (isMultiVoice || place.beatIndex() < 0)
        return true;
    const Voice *const node =
        voiceAt(model, static_cast<unsigned>(place.trackIndex()), place.staffIndex(),
                static_cast<unsigned>(place.barIndex()), voice);
    return node != nullptr && static_cast<unsigned>(place.beatIndex()) < node->beatCount();
}

bool comesBefore(const ScoreModelIndex &a, const ScoreModelIndex &b) noexcept
{
    if (a.barIndex() != b.barIndex())
        return a.barIndex() < b.barIndex();
    return a.beatIndex() >= 0 && b.beatIndex() >= 0 && a.beatIndex() < b.beatIndex();
}

void addWholeBars(std::vector<BeatSpan> &spans, const Staff &staff, unsigned track,
                  unsigned firstBar, unsigned lastBar)
{
    for (unsigned bar = firstBar; bar <= lastBar && bar < staff.barCount(); ++bar) {
        const auto &voices = staff.bars()[bar]->voices();
        for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice) {
            if (voices[voice] != nullptr && !voices[voice]->isEmpty())
                spans.push_back(
                    {track, staff.index(), bar, voice, 0, voices[voice]->beatCount() - 1});
        }
    }
}

void addVoice(std::vector<BeatSpan> &spans, const ScoreModel &model, const ScoreModelIndex &first,
              const ScoreModelIndex &last)
{
    BeatSpan span;
    span.track = static_cast<unsigned>(first.trackIndex());
    span.staff = first.staffIndex();
    span.voice = first.voiceIndex();
    const auto lastBar = static_cast<unsigned>(last.barIndex());
    const auto firstBar = static_cast<unsigned>(first.barIndex());
    for (span.bar = firstBar; span.bar <= lastBar; ++span.bar) {
        const Voice *const voice = voiceOf(model, span);
        if (voice == nullptr)
            continue;
        const unsigned begin = span.bar == firstBar && first.beatIndex() >= 0
            ? static_cast<unsigned>(first.beatIndex())
            : 0;
        const unsigned end = span.bar == lastBar && last.beatIndex() >= 0
            ? static_cast<unsigned>(last.beatIndex()) + 1
            : voice->beatCount();
        if (begin >= end)
            continue;
        span.firstBeat = begin;
        span.lastBeat = end - 1;
        spans.push_back(span);
    }
}

} // namespace

std::vector<BeatSpan> beatSpans(const ScoreModel &model, const ScoreModelRange &range)
{
    std::vector<BeatSpan> spans;
    ScoreModelIndex first = range.first();
    ScoreModelIndex last = range.second();
    for (const ScoreModelIndex &end : {first, last}) {
        if (!exists(model, end, first.voiceIndex(), range.isMultiVoice()))
            return spans;
    }
    if (range.isMultiTrack()) {
        const auto bars = std::minmax({first.barIndex(), last.barIndex()});
        for (const auto &track : model.tracks()) {
            for (const auto &staff : track->staves())
                addWholeBars(spans, *staff, track->index(), static_cast<unsigned>(bars.first),
                             static_cast<unsigned>(bars.second));
        }
        return spans;
    }
    if (first.trackIndex() != last.trackIndex())
        return spans;
    if (range.isMultiVoice()) {
        const auto bars = std::minmax({first.barIndex(), last.barIndex()});
        const auto staves = std::minmax({first.staffIndex(), last.staffIndex()});
        const auto &track = *model.tracks()[static_cast<std::size_t>(first.trackIndex())];
        for (unsigned staff = staves.first; staff <= staves.second; ++staff)
            addWholeBars(spans, *track.staves()[staff], track.index(),
                         static_cast<unsigned>(bars.first), static_cast<unsigned>(bars.second));
        return spans;
    }
    if (first.staffIndex() != last.staffIndex())
        return spans;
    if (comesBefore(last, first))
        std::swap(first, last);
    addVoice(spans, model, first, last);
    return spans;
}

Bar *barOf(const ScoreModel &model, const BeatSpan &span) noexcept
{
    return barAt(model, span.track, span.staff, span.bar);
}

Voice *voiceOf(const ScoreModel &model, const BeatSpan &span) noexcept
{
    return voiceAt(model, span.track, span.staff, span.bar, span.voice);
}

std::vector<std::shared_ptr<Beat>> beatsOf(const ScoreModel &model,
                                           const std::vector<BeatSpan> &spans)
{
    std::vector<std::shared_ptr<Beat>> beats;
    for (const BeatSpan &span : spans) {
        const auto &all = voiceOf(model, span)->beats();
        beats.insert(beats.end(), all.begin() + span.firstBeat, all.begin() + span.lastBeat + 1);
    }
    return beats;
}

} // namespace zarn
