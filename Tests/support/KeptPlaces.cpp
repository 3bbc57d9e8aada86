// SPDX-License-Identifier: MIT
#include "KeptPlaces.h"

#include "PlainWalk.h"

#include <ZarnCore/model/places/ZarnRangeNoteIterator.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>

using namespace zarn;

namespace {

/// What a place should name, by the bounds of the lists in the tree.
struct Named {
    std::shared_ptr<Track> track;
    std::shared_ptr<Staff> staff;
    std::shared_ptr<Bar> bar;
    std::shared_ptr<Voice> voice;
    std::shared_ptr<Beat> beat;

    Named(ScoreModel &model, const ScoreModelIndex &place)
    {
        track = model.track(static_cast<unsigned>(place.trackIndex()));
        staff = track ? track->staff(place.staffIndex()) : nullptr;
        bar = staff ? staff->bar(static_cast<unsigned>(place.barIndex())) : nullptr;
        voice = bar ? bar->voice(place.voiceIndex()) : nullptr;
        beat = voice ? voice->beat(static_cast<unsigned>(place.beatIndex())) : nullptr;
    }
};

utils::rational sumOfLengths(const Voice &voice, const Beat &end)
{
    utils::rational sum;
    for (const auto &beat : voice.beats()) {
        if (beat.get() == &end)
            break;
        sum += beat->length();
    }
    return sum;
}

template <class Iterator, class Nodes, class Get>
bool agrees(Iterator it, const Nodes &nodes, Get get)
{
    auto node = nodes.begin();
    while (it.oneStep())
        if (node == nodes.end() || get(it) != *node++)
            return false;
    return node == nodes.end();
}

} // namespace

KeptPlaces::KeptPlaces(Score &score, std::uint64_t seed)
    : _model(score.scoreModel()), _random(seed), _drawn(_model, _random)
{
    std::generate(_places.begin(), _places.end(), [this] { return drawPlace(); });
    std::generate(_ranges.begin(), _ranges.end(), [this] { return drawRange(); });
}

ScoreModelIndex KeptPlaces::drawPlace()
{
    ScoreModelIndex place = _random.percent(90) ? _drawn.beat() : _drawn.gap();
    const auto beat = place.beat();
    if (beat != nullptr && beat->hasNotes() && _random.coin()) {
        const Note &note = *beat->notes()[_random.below(beat->noteCount())];
        place.setNoteMidi(static_cast<std::uint32_t>(note.midi()));
        place.setNoteString(static_cast<std::uint32_t>(note.string()));
    }
    return place;
}

ScoreModelRange KeptPlaces::drawRange()
{
    ScoreModelRange range = _drawn.range();
    if (_random.percent(20))
        range.setSelectionMode(static_cast<SelectionMode>(_random.below(8)));
    if (_random.percent(20)) {
        range.mutableSecond().setVoiceIndex(_random.below(Bar::MaxVoices));
        range.mutableSecond().setBeatIndex(static_cast<int>(_random.below(3)));
    }
    if (_random.percent(5))
        range.mutableSecond().setTrackIndex(static_cast<int>(_drawn.track()));
    return range;
}

/// A score that was replaced as a whole has the same places in another model.
void KeptPlaces::enterModel()
{
    for (ScoreModelIndex &place : _places)
        place.setModel(_model.get());
    for (ScoreModelRange &range : _ranges) {
        range.mutableFirst().setModel(_model.get());
        range.mutableSecond().setModel(_model.get());
    }
}

std::string KeptPlaces::fault()
{
    enterModel();
    for (const ScoreModelIndex &place : _places) {
        const std::string fault = faultOf(place);
        if (!fault.empty())
            return fault + " at " + place.toQString().toStdString();
    }
    for (unsigned i = 0; i < RangesAtOnce; ++i) {
        const ScoreModelRange &range = _ranges[(_turn + i) % Count];
        const std::string fault = faultOf(range);
        if (!fault.empty())
            return fault + " in " + range.toQString().toStdString();
    }
    _places[_random.below(Count)] = drawPlace();
    _ranges[_random.below(Count)] = drawRange();
    _turn = (_turn + RangesAtOnce) % Count;
    return {};
}

std::string KeptPlaces::faultOf(const ScoreModelIndex &place) const
{
    const Named named(*_model, place);
    const bool isRight = place.track() == named.track && place.staff() == named.staff
        && place.bar() == named.bar && place.voice() == named.voice && place.beat() == named.beat
        && place.isTrackValid() == (named.track != nullptr)
        && place.isBarValid() == (named.bar != nullptr)
        && place.isBeatValid() == (named.beat != nullptr);
    if (!isRight)
        return "a place names something else than what stands there";
    const auto note = place.note();
    if (place.isNoteValid() != (note != nullptr)
        || (note != nullptr && (!named.beat || named.beat->indexOfNote(*note) == -1)))
        return "a place names a note that its beat does not hold";
    if (named.beat == nullptr)
        return place.beatDrawingOffset() == utils::rational()
            ? ""
            : "a beat that is not there has a time";
    const auto start = sumOfLengths(*named.voice, *named.beat);
    if (place.beatDrawingOffset() != start)
        return "a beat has another time than the beats before it take";
    if (named.beat->length() > utils::rational() && named.voice->beatAt(start) != named.beat)
        return "another beat is found at the time of a beat";
    return {};
}

std::string KeptPlaces::faultOf(const ScoreModelRange &range) const
{
    const PlainWalk plain = PlainWalk::of(range);
    if (!agrees(RangeBarIterator(range), plain.bars, [](const auto &it) { return it.bar(); }))
        return "other bars are walked than selected";
    if (!agrees(RangeBeatIterator(range), plain.beats, [](const auto &it) { return it.beat(); }))
        return "other beats are walked than selected";
    if (!agrees(RangeNoteIterator(range), plain.notes, [](const auto &it) { return it.note(); }))
        return "other notes are walked than selected";
    if (range.beatCount() != plain.beats.size() || range.hasAnyBeat() == plain.beats.empty())
        return "other beats are counted than selected";
    for (const ScoreModelRange &wider : {range.extendedBarRange(), range.extendedTiedBarRange(1),
                                         range.extendedSoundingSimileRange()})
        if (PlainWalk::of(wider).bars.size() < plain.bars.size())
            return "a range is narrower than what it was widened from";
    return {};
}
