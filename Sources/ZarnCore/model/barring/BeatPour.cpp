// SPDX-License-Identifier: MIT
#include <ZarnCore/model/barring/BeatPour.h>

#include <ZarnCore/model/barring/BeatCut.h>

#include <algorithm>
#include <utility>

namespace zarn {

namespace {

bool isBare(const Beat &beat)
{
    return beat.isRest() && beat.marks().isPlain() && !beat.hasDetails();
}

Voice::Beats fillersOf(const utils::rational &length, BeatPour::Filler filler)
{
    std::vector<RhythmValue> rhythms;
    RhythmValue::rhythms(length, rhythms);
    Voice::Beats beats;
    for (const RhythmValue &rhythm : rhythms) {
        beats.push_back(std::make_shared<Beat>(rhythm));
        beats.back()->setPlaceHolder(filler == BeatPour::Filler::PlaceHolders);
    }
    return beats;
}

} // namespace

BeatPour::BeatPour(Lengths lengths, const Length &further, const Length &start)
    : _lengths(std::move(lengths)), _further(further), _offset(start)
{
}

BeatPour::BeatPour(std::vector<Length> lengths, const Length &further, const Length &start)
    : BeatPour(std::make_shared<const std::vector<Length>>(std::move(lengths)), further, start)
{
}

/// The beats of the bar where the next one goes.
Voice::Beats &BeatPour::here()
{
    if (_bars.size() <= _bar) {
        const std::size_t likely = _bars.empty() ? 0 : _bars.back().size();
        _bars.resize(_bar + 1);
        _bars.back().reserve(likely);
        _isSilent.resize(_bar + 1, true);
    }
    return _bars[_bar];
}

void BeatPour::put(const std::shared_ptr<Beat> &beat)
{
    here().push_back(beat);
    if (!isBare(*beat))
        _isSilent[_bar] = false;
}

void BeatPour::leaveFullBar()
{
    while (!(_offset < lengthOf(_bar))) {
        _offset -= lengthOf(_bar);
        ++_bar;
    }
}

void BeatPour::addGraces()
{
    if (_graces.empty())
        return;
    std::size_t parting = 0;
    for (std::size_t i = 0; i < _graces.size(); ++i) {
        put(_graces[i]);
        for (; parting < _gracePartings.size() && _gracePartings[parting] == i + 1; ++parting)
            partHere();
    }
    _graces.clear();
    _gracePartings.clear();
}

/// What a time from here on is in each of the bars that it touches.
std::vector<BeatPour::Length> BeatPour::segments(Length length) const
{
    std::vector<Length> found;
    Length offset = _offset;
    for (unsigned bar = _bar; length.sign() > 0; ++bar) {
        found.push_back(std::min(length, lengthOf(bar) - offset));
        length -= found.back();
        offset = Length();
    }
    return found;
}

/// Grace beats that wait are in front of the joint, wherever they go.
void BeatPour::part()
{
    if (_graces.empty())
        partHere();
    else
        _gracePartings.push_back(_graces.size());
}

void BeatPour::partHere()
{
    leaveFullBar();
    _parted.emplace_back(_bar, static_cast<unsigned>(here().size()));
}

void BeatPour::add(const std::shared_ptr<Beat> &beat, const Length &length)
{
    if (beat->isGrace() || length.sign() == 0) {
        _graces.push_back(beat);
        return;
    }
    leaveFullBar();
    addGraces();
    const Length end = _offset + length;
    const bool fits = beat->isWholeBarRest() ? _offset.sign() == 0 && length == lengthOf(_bar)
                                             : !(lengthOf(_bar) < end);
    if (fits) {
        put(beat);
        _before = beat.get();
        _offset = end;
        return;
    }
    // A tremolo that leads here has lost a beat of its own length.
    if (_before != nullptr && _before->tremoloToNext() != 0)
        partHere();
    const std::vector<Length> parts = segments(length);
    const std::vector<Voice::Beats> pieces = cutBeat(*beat, parts);
    _before = pieces.back().back().get();
    for (std::size_t i = 0; i < parts.size(); ++i) {
        leaveFullBar();
        for (const auto &piece : pieces[i])
            put(piece);
        _offset += parts[i];
    }
}

void BeatPour::addGap(const Length &length, Filler filler)
{
    if (length.sign() <= 0)
        return;
    leaveFullBar();
    partHere();
    for (const Length &segment : segments(length)) {
        leaveFullBar();
        const bool isWholeBar = _offset.sign() == 0 && segment == lengthOf(_bar);
        if (!isWholeBar || filler == Filler::Rests) {
            for (const auto &beat : fillersOf(segment, filler))
                put(beat);
        }
        _offset += segment;
    }
    leaveFullBar();
    partHere();
}

void BeatPour::end()
{
    addGraces();
    joinRests();
}

/// Bars in which nothing but plain rests came together.
void BeatPour::joinRests()
{
    for (unsigned bar = 0; bar < _bars.size(); ++bar) {
        Voice::Beats &beats = _bars[bar];
        if (!_isSilent[bar] || beats.empty())
            continue;
        Length length;
        for (const auto &beat : beats)
            length += beat->rhythmValue().getLength();
        if (length != lengthOf(bar))
            continue;
        beats = {std::make_shared<Beat>(beats.front()->rhythmValue())};
        beats.front()->setWholeBarRest(true);
    }
}

} // namespace zarn
