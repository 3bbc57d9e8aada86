// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/ZarnPlayedBars.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/PlayingTime.h>
#include <ZarnCore/playback/ScoreSurvey.h>

#include <algorithm>

namespace zarn::playback {

PlayedBars::PlayedBars(const ScoreModel &model) : PlayedBars(model, ScoreSurvey(model).barLengths)
{
}

PlayedBars::PlayedBars(const ScoreModel &model, const std::vector<utils::rational> &lengths)
{
    utils::rational written;
    for (const auto &length : lengths) {
        _written.push_back(written);
        advance(written, length);
    }
    _written.push_back(written);
    std::vector<unsigned> passes(lengths.size());
    for (const int index : model.masterTrack()->playlist()) {
        const auto bar = static_cast<unsigned>(index);
        if (bar >= lengths.size())
            continue;
        const bool isJump = !_bars.empty() && _bars.back().bar + 1 != bar;
        _bars.push_back({bar, passes[bar]++, _length, lengths[bar], isJump});
        advance(_length, lengths[bar]);
    }
}

std::size_t PlayedBars::indexAt(const utils::rational &time) const
{
    const auto behind =
        std::upper_bound(_bars.begin(), _bars.end(), time,
                         [](const auto &value, const PlayedBar &bar) { return value < bar.start; });
    return behind == _bars.begin() ? 0 : static_cast<std::size_t>(behind - _bars.begin() - 1);
}

PlayPlace PlayedBars::placeAt(const utils::rational &time) const
{
    const std::size_t index = indexAt(time);
    const PlayedBar &played = _bars[index];
    return {index, played.bar, std::clamp(time - played.start, utils::rational(), played.length)};
}

std::optional<utils::rational> PlayedBars::timeOf(unsigned bar, const utils::rational &offset,
                                                  unsigned pass) const
{
    for (const PlayedBar &played : _bars)
        if (played.bar == bar && played.pass == pass)
            return played.start + std::clamp(offset, utils::rational(), played.length);
    return std::nullopt;
}

PlayedBars::Stretch PlayedBars::within(unsigned first, unsigned last) const
{
    const auto isInside = [&](const PlayedBar &played) {
        return played.bar >= first && played.bar <= last;
    };
    const auto begin = std::find_if(_bars.begin(), _bars.end(), isInside);
    const auto end = std::find_if_not(begin, _bars.end(), isInside);
    if (begin == end)
        return {};
    return {static_cast<std::size_t>(begin - _bars.begin()),
            static_cast<std::size_t>(end - _bars.begin())};
}

PlayedBars PlayedBars::part(const Stretch &stretch) const
{
    PlayedBars part;
    part._written = _written;
    for (std::size_t i = stretch.begin; i < stretch.end; ++i) {
        PlayedBar played = _bars[i];
        played.start = part._length;
        played.isJump = played.isJump && i != stretch.begin;
        advance(part._length, played.length);
        part._bars.push_back(played);
    }
    return part;
}

} // namespace zarn::playback
