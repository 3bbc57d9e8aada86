// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/ZarnRangeSpanIterator.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <algorithm>

namespace zarn {
namespace {

/// Beats of a voice by their numbers, the end not included.
struct Beats {
    unsigned begin;
    unsigned end;
};

/// The beats of a voice that stand at the time of a beat in another voice of the bar. When it has
/// none, all of them lie before.
Beats beatsAtTimeOf(const ScoreModelIndex &place, const Voice *voice)
{
    if (voice == nullptr)
        return {0, 0};
    const utils::rational time = place.beatDrawingOffset();
    Beats found{voice->beatCount(), voice->beatCount()};
    utils::rational start;
    for (const auto &beat : voice->beats()) {
        const utils::rational end = start + beat->length();
        if (time < start) {
            found.end = beat->index();
            break;
        }
        if (found.begin == voice->beatCount() && (time < end || time == start))
            found.begin = beat->index();
        start = end;
    }
    return found;
}

/// What an end selects in a voice.
Beats beatsOf(const ScoreModelIndex &place, unsigned voice, unsigned wholeEnd)
{
    if (place.beatIndex() == -1)
        return {0, wholeEnd};
    const auto beat = static_cast<unsigned>(place.beatIndex());
    if (place.voiceIndex() == voice)
        return {beat, beat + 1};
    return beatsAtTimeOf(place, place.bar()->voice(voice).get());
}

} // namespace

RangeSpanIterator::RangeSpanIterator(const ScoreModelRange &range) : _bars(range)
{
    if (!_bars.iterate())
        return;
    if (range.isMultiVoice())
        _endSlot = Bar::MaxVoices;
    else if (!takeEnds(range))
        return;
    enterVoice(_firstSlot);
}

/// Where one voice begins and ends; false when an end names what does not exist.
bool RangeSpanIterator::takeEnds(const ScoreModelRange &range)
{
    const ScoreModelIndex &first = range.first();
    const ScoreModelIndex &second = range.second();
    for (const ScoreModelIndex *place : {&first, &second})
        if (place->beatIndex() != -1 && !place->isBeatValid())
            return false;
    _firstSlot = first.voiceIndex();
    if (_firstSlot >= Bar::MaxVoices)
        return false;
    _endSlot = _firstSlot + 1;
    Beats low = beatsOf(first, _firstSlot, Whole);
    Beats high = beatsOf(second, _firstSlot, Whole);
    if (second.barIndex() < first.barIndex())
        std::swap(low, high);
    const bool isOneBar = first.barIndex() == second.barIndex();
    _begin = isOneBar ? std::min(low.begin, high.begin) : low.begin;
    _end = isOneBar ? std::max(low.end, high.end) : high.end;
    return true;
}

void RangeSpanIterator::advance() noexcept
{
    if (_voice != nullptr)
        enterVoice(_slot + 1);
}

/// Goes to the first stretch in a voice of the bar, or in what follows it.
void RangeSpanIterator::enterVoice(unsigned slot) noexcept
{
    for (; _bars.iterate(); _bars.advance()) {
        const auto &voices = _bars.bar()->voices();
        for (_slot = slot; _slot < _endSlot; ++_slot) {
            _voice = voices[_slot].get();
            if (_voice == nullptr)
                continue;
            _firstBeat = _bars.isFirstBar() ? _begin : 0;
            _endBeat = std::min(_bars.isLastBar() ? _end : Whole, _voice->beatCount());
            if (_firstBeat < _endBeat)
                return;
        }
        slot = _firstSlot;
    }
    _voice = nullptr;
}

BeatSpan RangeSpanIterator::span() const noexcept
{
    return {_bars.trackIndex(), _bars.staffIndex(), _bars.barIndex(), _slot,
            _firstBeat,         _endBeat - 1};
}

} // namespace zarn
