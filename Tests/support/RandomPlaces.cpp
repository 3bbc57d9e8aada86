// SPDX-License-Identifier: MIT
#include "RandomPlaces.h"

#include <ZarnCore/model/ZarnScoreModel.h>

using namespace zarn;

unsigned RandomPlaces::barCount() const
{
    return _model->masterTrack()->masterBarCount();
}

unsigned RandomPlaces::index(unsigned count)
{
    if (_random.percent(2))
        return _random.coin() ? count + _random.below(3) : 0xFFFFFFFFU - _random.below(2);
    return _random.below(count);
}

std::pair<unsigned, unsigned> RandomPlaces::bars(unsigned most)
{
    const unsigned first = bar();
    const unsigned last = first + _random.below(most);
    if (_random.percent(2))
        return {last, first};
    const bool isWild = first >= barCount() || _random.percent(2);
    return {first, isWild ? last : std::min(last, barCount() - 1)};
}

unsigned RandomPlaces::track()
{
    return index(_model->trackCount());
}

unsigned RandomPlaces::staffOf(unsigned track)
{
    return index(_model->hasTrackIndex(track) ? _model->track(track)->staffCount() : 1);
}

ScoreModelIndex RandomPlaces::barPlace()
{
    const unsigned track = this->track();
    const unsigned staff = staffOf(track);
    return {_model.get(), static_cast<int>(track), static_cast<int>(bar()), -1, 0, staff};
}

/// Looks for a voice with beats a few times: most voices of most bars have none.
ScoreModelIndex RandomPlaces::beat()
{
    ScoreModelIndex place;
    for (int attempt = 0; attempt < 4; ++attempt) {
        place = barPlace();
        const auto bar = place.bar();
        if (bar == nullptr)
            break;
        const unsigned voice = _random.percent(70) ? 0 : _random.below(Bar::MaxVoices);
        place.setVoiceIndex(voice);
        const auto beats = bar->voice(voice) ? bar->voice(voice)->beatCount() : 0;
        place.setBeatIndex(static_cast<int>(index(beats)));
        if (beats != 0)
            break;
    }
    return place;
}

ScoreModelIndex RandomPlaces::gap()
{
    ScoreModelIndex place = barPlace();
    place.setVoiceIndex(_random.percent(60) ? 0 : _random.below(Bar::MaxVoices));
    const auto voice = place.voice();
    place.setBeatIndex(static_cast<int>(index((voice ? voice->beatCount() : 0) + 1)));
    return place;
}

ScoreModelRange RandomPlaces::range()
{
    const ScoreModelIndex first = beat();
    if (_random.percent(30))
        return ScoreModelRange(first);
    ScoreModelIndex second = first;
    second.setBarIndex(first.barIndex() + _random.between(-2, 2));
    const auto voice = second.voice();
    second.setBeatIndex(
        _random.percent(20) ? -1 : static_cast<int>(index(voice ? voice->beatCount() : 1)));
    ScoreModelRange range;
    range.setFirst(first);
    range.setSecond(second);
    static constexpr SelectionMode multi = SelectionMode::MultiSelection;
    const unsigned kind = _random.below(10);
    if (kind < 7)
        range.setSelectionMode(multi);
    else if (kind < 9)
        range.setSelectionMode(multi | SelectionMode::MultiVoice);
    else
        range.setSelectionMode(multi | SelectionMode::MultiVoice | SelectionMode::MultiTrack);
    return range;
}
