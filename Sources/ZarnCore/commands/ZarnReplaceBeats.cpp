// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnReplaceBeats.h>

#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <utility>

namespace zarn {

namespace {

/// Gives the ties that a beat holds their begin in the beat in front of it.
void beginTies(const Voice &voice, unsigned index)
{
    const auto before = beatInFrontOfJoint(voice, index);
    const auto after = beatBehindJoint(voice, index);
    if (!before || !after)
        return;
    for (const auto &note : after->notes())
        for (const auto &origin : before->notes())
            if (note->isTied() && sameLocation(*note, *origin) && note->midi() == origin->midi())
                origin->setTieOrigin(true);
}

} // namespace

ReplaceBeats::ReplaceBeats(const QString &name) : ScoreCommand(name) { }
ReplaceBeats::~ReplaceBeats() = default;

bool ReplaceBeats::prepare(Score *score, const ScoreModelRange &range)
{
    setScore(score);
    _range = range;
    _isRange = true;
    return canExist(range) && expectPlace([this] { return isPossible(); });
}

bool ReplaceBeats::prepare(Score *score, const ScoreModelIndex &index)
{
    setScore(score);
    _range = ScoreModelRange(index);
    return canExist(index) && index.beatIndex() >= 0
        && expectPlace([this] { return isPossible(); });
}

bool ReplaceBeats::prepare(Score *score)
{
    setScore(score);
    return expectPlace([this] { return isPossible(); });
}

void ReplaceBeats::make()
{
    for (Replacement &replacement : replacements()) {
        Exchange made;
        made.inFirst = replacement.place.firstBeat;
        made.inCount = replacement.count;
        made.voice = std::make_shared<Voice>();
        made.out = std::move(replacement);
        _exchanges.push_back(std::move(made));
    }
}

/// From the last stretch to the first: those in front keep their places. `mode` is for those that
/// bring ties.
void ReplaceBeats::takeOut(LinkMode mode)
{
    for (auto it = _exchanges.rbegin(); it != _exchanges.rend(); ++it) {
        Voice &voice = *voiceOf(model(), it->out.place);
        const LinkMode own = it->out.bringsTies ? mode : LinkMode::None;
        if (it->inCount != 0)
            it->taken = voice.takeBeats(it->inFirst, it->inFirst + it->inCount - 1, own);
        else if (own == LinkMode::Mend)
            mendTies(voice, it->inFirst, it->inFirst);
    }
}

/// From the first stretch to the last: where one starts is decided by the lengths of those in front
/// of it in its voice.
void ReplaceBeats::putIn()
{
    const Exchange *last = nullptr;
    int shift = 0;
    for (Exchange &it : _exchanges) {
        const BeatSpan &place = it.out.place;
        Voice &voice = *voiceOf(model(), place);
        if (!last || &voice != voiceOf(model(), last->out.place))
            shift = 0;
        it.inFirst = static_cast<unsigned>(static_cast<int>(it.inFirst) + shift);
        it.inCount = static_cast<unsigned>(it.out.beats.size());
        shift += static_cast<int>(it.inCount) - static_cast<int>(it.taken.size());
        voice.insertBeats(it.inFirst, std::move(it.out.beats));
        it.out.beats = std::exchange(it.taken, {});
        last = &it;
    }
}

/// Mends what leads over the ends of a stretch that has its new beats.
void ReplaceBeats::link(const Exchange &exchange) const
{
    Voice &voice = *voiceOf(model(), exchange.out.place);
    const unsigned first = exchange.inFirst;
    const unsigned end = first + exchange.inCount;
    if (exchange.out.bringsTies) {
        carryOver(voice, first, end);
        mendThroughout(voice, first, end);
        return;
    }
    if (exchange.out.holdsOn)
        beginTies(voice, first);
    if (first == end)
        keepApart(voice, first, exchange.out.beats);
    mendLinks(voice, first, end);
    mendThroughout(voice, first, end);
}

void ReplaceBeats::apply()
{
    if (_exchanges.empty()) {
        requirePlace(isPossible());
        make();
    }
    _links.clear();
    _touched.clear();
    if (_isRange)
        _touched.add(_range);
    for (Exchange &it : _exchanges) {
        const BeatSpan &place = it.out.place;
        it.needsVoice = voiceOf(model(), place) == nullptr;
        if (it.needsVoice)
            barOf(model(), place)->setVoice(place.voice, std::move(it.voice));
        _links.emplace_back(*voiceOf(model(), place), it.inFirst, it.inFirst + it.inCount);
        _touched.add(place.track, place.staff, place.bar, place.bar);
        keepSpans(place.track, place.staff, place.bar, place.bar);
    }
    takeOut(LinkMode::Mend);
    putIn();
    for (const Exchange &it : _exchanges)
        link(it);
    for (std::size_t i = 0; i < _exchanges.size(); ++i) {
        _links[i].settle(_exchanges[i].out.place, _touched);
    }
}

void ReplaceBeats::revert()
{
    takeOut(LinkMode::None);
    putIn();
    for (std::size_t i = _exchanges.size(); i-- > 0;)
        _links[i].putBack(*voiceOf(model(), _exchanges[i].out.place));
    for (Exchange &it : _exchanges) {
        if (!it.needsVoice)
            continue;
        const BeatSpan &place = it.out.place;
        const Bar &bar = *barOf(model(), place);
        it.voice = bar.voices()[place.voice];
        barOf(model(), place)->setVoice(place.voice, nullptr);
    }
}

void ReplaceBeats::announceApplied()
{
    _touched.announce(score(), this);
}

void ReplaceBeats::announceReverted()
{
    announceApplied();
}

} // namespace zarn
