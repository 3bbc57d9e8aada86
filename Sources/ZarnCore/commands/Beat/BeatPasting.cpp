// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/BeatPasting.h>

#include <ZarnCore/commands/Bar/ContentSwap.h>
#include <ZarnCore/commands/Bar/PastePlace.h>
#include <ZarnCore/commands/Beat/TimedBeats.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/barring/BeatPour.h>
#include <ZarnCore/model/clip/NoteAdaptation.h>
#include <ZarnCore/model/places/BarSelection.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <algorithm>

namespace zarn {

namespace {

utils::rational longestVoiceIn(const ScoreModel &model, unsigned bar)
{
    utils::rational longest;
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (const auto &voice : staff->bars()[bar]->voices())
                if (voice != nullptr)
                    longest = std::max(longest, voice->length());
    return longest;
}

ScoreModelIndex indexOf(const VoicePlace &place, unsigned beat)
{
    return {nullptr,
            static_cast<int>(place.track),
            static_cast<int>(place.bar),
            static_cast<int>(beat),
            place.voice,
            place.staff};
}

} // namespace

BeatPasting::BeatPasting(const ScoreModel &model, const Clip &clip, const ScoreModelIndex &place,
                         unsigned times, PasteMode mode)
    : _model(model), _clip(clip), _place(place), _bar(static_cast<unsigned>(place.barIndex())),
      _times(times), _mode(mode), _clipLength(longestVoiceIn(*clip.model, 0))
{
    if (isThere())
        _start = startTime();
}

/// Whether the place is a beat, or the one behind the last of a voice.
bool BeatPasting::isThere() const
{
    const BeatSpan span{static_cast<unsigned>(_place.trackIndex()),
                        _place.staffIndex(),
                        _bar,
                        _place.voiceIndex(),
                        0,
                        0};
    if (barOf(_model, span) == nullptr)
        return false;
    const Voice *const voice = voiceOf(_model, span);
    return static_cast<unsigned>(_place.beatIndex()) <= (voice ? voice->beatCount() : 0);
}

bool BeatPasting::isPossible()
{
    if (!isThere())
        return false;
    const auto staves = pastedStaves(_model, _clip, static_cast<unsigned>(_place.trackIndex()),
                                     _place.staffIndex());
    if (!staves || _clipLength.sign() <= 0)
        return false;
    if (_mode == PasteMode::Insert)
        return true;
    _lengths = barLengths(_start + _clipLength * Length(_times));
    const unsigned end = _bar + static_cast<unsigned>(_lengths.size());
    if (end > MasterTrack::MaxBars)
        return false;
    const unsigned present = _model.masterTrack()->masterBarCount();
    for (const PastedStaff &pasted : *staves)
        for (unsigned bar = _bar; bar < std::min(end, present) && _mode == PasteMode::Merge; ++bar)
            if (pasted.to->bars()[bar]->isSimile())
                return false;
    return true;
}

BeatPasting::Length BeatPasting::startTime() const
{
    const Voice *const voice = voiceAt({static_cast<unsigned>(_place.trackIndex()),
                                        _place.staffIndex(), _bar, _place.voiceIndex()});
    Length start;
    for (unsigned i = 0; i < static_cast<unsigned>(_place.beatIndex()); ++i)
        start += voice->beats()[i]->length();
    return start;
}

/// How long the bars from the place on are, until their time is filled. In free time they are as
/// long as their longest voice.
std::vector<BeatPasting::Length> BeatPasting::barLengths(const Length &until) const
{
    const auto &masterBars = _model.masterTrack()->masterBars();
    std::vector<Length> lengths;
    Length sum;
    for (unsigned bar = _bar; sum < until && bar < MasterTrack::MaxBars; ++bar) {
        Length length = masterBars.back()->timeSignature().barLength();
        if (bar < masterBars.size()) {
            length = masterBars[bar]->length();
            if (masterBars[bar]->isFreeTime())
                length = std::max(length, longestVoiceIn(_model, bar));
        }
        // A voice may be longer than its bar: then the place is behind the bar's end.
        if (bar == _bar)
            length = std::max(length, _start);
        lengths.push_back(length);
        sum += length;
    }
    return lengths;
}

const Voice *BeatPasting::voiceAt(const VoicePlace &place) const
{
    return voiceOf(_model, {place.track, place.staff, place.bar, place.voice, 0, 0});
}

/// What a voice has once what was planned already is there.
const BeatPasting::Beats &BeatPasting::beatsAt(const ContentSwap &swap,
                                               const VoicePlace &place) const
{
    static const Beats none;
    if (const Beats *const planned = swap.beatsAt(place))
        return *planned;
    const Voice *const voice = voiceAt(place);
    return voice != nullptr ? voice->beats() : none;
}

/// The beats of a voice, written for another staff, again and again; pauses fill up what is shorter
/// than the clip. Merged notes need their strings to meet those that are there.
BeatPasting::Stream BeatPasting::streamOf(const Voice &voice, const PastedStaff &pasted) const
{
    Stream stream{pasted.track, pasted.staff, voice.index(), {}};
    Beats &beats = stream.beats;
    NoteAdaptation adaptation = _mode == PasteMode::Merge
        ? NoteAdaptation(*pasted.from, *pasted.to, NoteAdaptation::Strings::Lowest)
        : adaptationOf(pasted);
    beats.reserve(voice.beatCount());
    for (const auto &beat : voice.beats()) {
        beats.push_back(beat->clone());
        adaptation.adapt(beats.back());
    }
    stream.hasOpen = adaptation.hasOpen();
    if (_times == 1)
        return stream;
    std::vector<RhythmValue> pause;
    RhythmValue::rhythms(_clipLength - voice.length(), pause);
    const std::size_t count = beats.size();
    beats.reserve((count + pause.size()) * _times);
    for (unsigned i = 1; i < _times; ++i) {
        for (const RhythmValue &rhythm : pause)
            beats.push_back(std::make_shared<Beat>(rhythm));
        for (std::size_t k = 0; k < count; ++k)
            beats.push_back(beats[k]->clone());
    }
    return stream;
}

std::vector<BeatPasting::Stream> BeatPasting::streams() const
{
    const auto staves = pastedStaves(_model, _clip, static_cast<unsigned>(_place.trackIndex()),
                                     _place.staffIndex());
    std::vector<Stream> found;
    unsigned voiceCount = 0;
    for (const PastedStaff &pasted : *staves)
        for (const auto &voice : pasted.from->bars()[0]->voices())
            if (voice != nullptr && !voice->isEmpty()) {
                found.push_back(streamOf(*voice, pasted));
                ++voiceCount;
            }
    if (voiceCount == 1)
        found.front().voice = _place.voiceIndex();
    return found;
}

unsigned BeatPasting::addTo(ContentSwap &swap)
{
    auto all = streams();
    if (_mode == PasteMode::Insert) {
        for (const Stream &stream : all)
            insert(swap, stream);
        return _bar + 1;
    }
    unsigned barCount = _bar + 1;
    for (const Stream &stream : all) {
        writeOutSimiles(swap, stream, static_cast<unsigned>(_lengths.size()));
        barCount = std::max(barCount, pour(swap, stream));
    }
    return barCount;
}

void BeatPasting::insert(ContentSwap &swap, const Stream &stream)
{
    const VoicePlace place{stream.track, stream.staff, _bar, stream.voice};
    const Beats present = beatsAt(swap, place);
    const Length barLength = _model.masterTrack()->masterBars()[_bar]->length();
    const bool isNamed = stream.track == static_cast<unsigned>(_place.trackIndex())
        && stream.staff == _place.staffIndex() && stream.voice == _place.voiceIndex();
    Beats beats;
    std::size_t next = 0;
    Length time;
    while (next < present.size()
           && (isNamed ? next < static_cast<std::size_t>(_place.beatIndex()) : time < _start)) {
        time += timeOf(*present[next], barLength);
        beats.push_back(present[next++]);
    }
    if (time < _start)
        append(beats, placeHolders(_start - time));
    const auto first = static_cast<unsigned>(beats.size());
    append(beats, stream.beats);
    const auto behind = static_cast<unsigned>(beats.size());
    beats.insert(beats.end(), present.begin() + static_cast<std::ptrdiff_t>(next), present.end());
    swap.setBeats(place, std::move(beats));
    swap.addJoint(place, first);
    swap.addJoint(place, behind);
    swap.addNewBeats(place, first, behind);
    if (stream.hasOpen)
        _open.emplace_back(indexOf(place, first), indexOf(place, behind - 1));
}

void BeatPasting::writeOutSimiles(ContentSwap &swap, const Stream &stream, unsigned barCount) const
{
    const Staff &staff = *_model.tracks()[stream.track]->staves()[stream.staff];
    const unsigned end = std::min(_bar + barCount, staff.barCount());
    const auto writeOut = [&](unsigned bar) {
        const int sounding = soundingBar(staff, static_cast<int>(bar));
        swap.setSimileMark(stream.track, stream.staff, bar, SimileMark::None);
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
            const VoicePlace place{stream.track, stream.staff, bar, slot};
            const auto &voice = staff.bars()[static_cast<unsigned>(sounding)]->voices()[slot];
            if (swap.beatsAt(place) != nullptr)
                continue;
            Beats copies;
            for (unsigned i = 0; voice != nullptr && i < voice->beatCount(); ++i)
                copies.push_back(voice->beats()[i]->clone());
            if (!copies.empty())
                swap.setBeats(place, std::move(copies));
            else if (staff.bars()[bar]->voices()[slot] != nullptr)
                swap.dropVoice(place);
        }
        swap.addBarLine(stream.track, stream.staff, bar);
        swap.addBarLine(stream.track, stream.staff, bar + 1);
    };
    for (unsigned bar = _bar; bar < end; ++bar) {
        const SimileMark mark = staff.bars()[bar]->simileMark();
        if (mark == SimileMark::None)
            continue;
        writeOut(bar);
        if (mark == SimileMark::SecondOfDouble && bar == _bar && bar > 0)
            writeOut(bar - 1);
        if (mark == SimileMark::FirstOfDouble && bar + 1 == end && end < staff.barCount())
            writeOut(end);
    }
}

/// Answers how many bars the score needs.
unsigned BeatPasting::pour(ContentSwap &swap, const Stream &stream)
{
    BeatPour poured(_lengths, _lengths.back(), _start);
    for (const auto &beat : stream.beats)
        poured.add(beat, beat->length());
    poured.end();
    const unsigned present = _model.masterTrack()->masterBarCount();
    auto &bars = poured.bars();
    bool isBegun = false;
    bool isNewInFront = false; // right up to the bar line
    for (unsigned i = 0; i < bars.size(); ++i) {
        const unsigned bar = _bar + i;
        const VoicePlace place{stream.track, stream.staff, bar, stream.voice};
        const Length barLength = poured.lengthOf(i);
        const Length from = i == 0 ? _start : Length();
        const Length to = i + 1 == bars.size() ? poured.offset() : barLength;
        if (bars[i].empty()) {
            isNewInFront = false;
            continue;
        }
        const Beats &old = beatsAt(swap, place);
        const Length restLength =
            bar < present ? _model.masterTrack()->masterBars()[bar]->length() : barLength;
        if (_mode == PasteMode::Merge) {
            Beats merged = mergeBeats(old, restLength, bars[i], from);
            for (unsigned k = 0; k <= merged.size(); ++k)
                swap.addJoint(place, k);
            swap.setBeats(place, std::move(merged));
            continue;
        }
        Beats beats = beatsUntil(old, restLength, from);
        const auto first = static_cast<unsigned>(beats.size());
        if (beats.empty())
            beats = std::move(bars[i]);
        else
            append(beats, bars[i]);
        const auto behind = static_cast<unsigned>(beats.size());
        append(beats, beatsFrom(old, restLength, to));
        swap.addNewBeats(place, first, behind);
        if (stream.hasOpen && !std::exchange(isBegun, true))
            _open.emplace_back(indexOf(place, first), ScoreModelIndex());
        if (stream.hasOpen)
            _open.back().second = indexOf(place, behind - 1);
        const bool isNewToEnd = behind == beats.size();
        const bool isAllNew = first == 0 && isNewToEnd;
        const bool isNewBehind = i + 1 < bars.size() && !bars[i + 1].empty();
        swap.setBeats(place, std::move(beats),
                      isAllNew ? ContentSwap::Joints::Named : ContentSwap::Joints::Found);
        // Inner bar lines lead from one pasted beat to the next.
        if (first != 0 || !isNewInFront)
            swap.addJoint(place, first);
        if (!isNewToEnd || !isNewBehind)
            swap.addJoint(place, behind);
        isNewInFront = isNewToEnd;
    }
    return _bar + static_cast<unsigned>(bars.size());
}

} // namespace zarn
