// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/PlayedVoice.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/Swing.h>
#include <ZarnCore/playback/PlayingTime.h>

#include <numeric>

namespace zarn::playback {

namespace {

/// Where the beats of a bar start that is played with a feel; behind the last, where it ends.
class SwungOffsets {
public:
    explicit SwungOffsets(TripletFeel feel) noexcept : _feel(feel) { }

    void read(const ScoreSurvey::OfBeat *first, const ScoreSurvey::OfBeat *last)
    {
        _written.assign(1, utils::rational());
        for (; first != last; ++first) {
            _written.push_back(_written.back());
            advance(_written.back(), first->length);
        }
    }

    utils::rational at(std::size_t joint) const
    {
        const utils::rational offset = _written[joint];
        std::size_t before = joint;
        while (before > 0 && _written[before] == offset)
            --before;
        std::size_t behind = joint;
        while (behind + 1 < _written.size() && _written[behind] == offset)
            ++behind;
        return swungJoint(offset, offset - _written[before], _written[behind] - offset, _feel);
    }

private:
    TripletFeel _feel;
    std::vector<utils::rational> _written;
};

class VoicePlayer {
public:
    VoicePlayer(const ScoreModel &model, const ScoreSurvey::OfVoice &voice)
        : _masterBars(model.masterTrack()->masterBars()), _voice(voice)
    {
    }

    void play(const PlayedBar &played, std::uint32_t number, unsigned source)
    {
        const auto *const first = _voice.beats.data() + begin(source);
        const auto *const last = _voice.beats.data() + end(source);
        if (first == last)
            return;
        const MasterBar &master = *_masterBars[played.bar];
        const auto feel = master.isFreeTime() ? TripletFeel::NoTripletFeel : master.tripletFeel();
        PlayedBeat next;
        next.playedBar = number;
        next.bar = source;
        next.start = played.start;
        next.isJoined = !_beats.empty() && _beats.back().end() == played.start;
        SwungOffsets offsets(feel);
        if (feel != TripletFeel::NoTripletFeel)
            offsets.read(first, last);
        for (const auto *beat = first; beat != last; ++beat) {
            next.beat = beat->beat;
            if (feel == TripletFeel::NoTripletFeel) {
                next.length = bounded(beat->length);
            } else {
                next.start = bounded(played.start + offsets.at(next.index));
                next.length = beat->beat->isGrace()
                    ? utils::rational()
                    : bounded(played.start + offsets.at(next.index + 1)) - next.start;
            }
            _beats.push_back(next);
            advance(next.start, next.length);
            advance(next.offset, beat->length);
            next.isJoined = true;
            ++next.index;
        }
    }

    void reserve(const PlayedBars &bars, const std::vector<unsigned> &sources)
    {
        std::size_t count = 0;
        for (const PlayedBar &played : bars.bars())
            if (played.bar < sources.size())
                count += end(sources[played.bar]) - begin(sources[played.bar]);
        _beats.reserve(count);
    }

    PlayedBeats take() { return std::move(_beats); }

private:
    std::size_t begin(unsigned bar) const { return bar == 0 ? 0 : _voice.barEnds[bar - 1]; }
    std::size_t end(unsigned bar) const { return _voice.barEnds[bar]; }

    const MasterTrack::MasterBars &_masterBars;
    const ScoreSurvey::OfVoice &_voice;
    PlayedBeats _beats;
};

} // namespace

std::vector<unsigned> sourceBars(const Staff &staff)
{
    std::vector<unsigned> sources(staff.barCount());
    std::iota(sources.begin(), sources.end(), 0U);
    for (unsigned bar = 1; bar < sources.size(); ++bar) {
        const SimileMark mark = staff.bars()[bar]->simileMark();
        const unsigned back = mark == SimileMark::None ? 0 : mark == SimileMark::Simple ? 1 : 2;
        if (back != 0 && back <= bar)
            sources[bar] = sources[bar - back];
    }
    return sources;
}

PlayedBeats playVoice(const ScoreModel &model, const ScoreSurvey::OfVoice &voice,
                      const PlayedBars &bars, const std::vector<unsigned> &sources)
{
    VoicePlayer player(model, voice);
    player.reserve(bars, sources);
    std::uint32_t number = 0;
    for (const PlayedBar &played : bars.bars()) {
        if (played.bar < sources.size())
            player.play(played, number, sources[played.bar]);
        ++number;
    }
    return player.take();
}

} // namespace zarn::playback
