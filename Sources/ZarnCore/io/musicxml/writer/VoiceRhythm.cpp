// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/VoiceRhythm.h>

#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnVoice.h>

#include <algorithm>

namespace zarn::io {

using utils::rational;

namespace {

/// The beats of one bracket, until they are as many as the ratio names.
class Bracket {
public:
    explicit Bracket(const TupletRatio &ratio) : _ratio(ratio) { }

    const TupletRatio &ratio() const { return _ratio; }

    void add(const RhythmicBeat &beat)
    {
        const rational inside = beat.length * rational(_ratio.actual, _ratio.normal);
        const rational unit =
            RhythmValue::noteValueToTimeUnit(beat.beat->rhythmValue().getNoteValue());
        _isUniform = _isUniform && (_length.isZero() || inside == _lastLength);
        _unit = _length.isZero() ? unit : std::min(_unit, unit);
        _length += inside;
        _lastLength = inside;
    }

    /// Equal values fill a bracket when they are as many as the ratio names; mixed ones are
    /// grouped by whole quarters, as they are beamed.
    bool isFull() const
    {
        if (!(_length / (_unit * rational(_ratio.actual))).isInteger())
            return false;
        const rational time = _length * rational(_ratio.normal, _ratio.actual);
        return _isUniform ? _length != _lastLength : time.isInteger();
    }

private:
    TupletRatio _ratio;
    rational _length;
    rational _lastLength;
    rational _unit;
    bool _isUniform = true;
};

} // namespace

TupletRatio TupletRatios::product() const
{
    TupletRatio product;
    for (int i = 0; i < count; ++i) {
        product.actual *= ratios[static_cast<std::size_t>(i)].actual;
        product.normal *= ratios[static_cast<std::size_t>(i)].normal;
    }
    return product;
}

TupletRatios tupletRatios(const RhythmValue &rhythm)
{
    TupletRatios tuplets;
    const auto add = [&tuplets](const RhythmValue::TupletRatio &ratio) {
        if (ratio.first != ratio.second)
            tuplets.ratios[static_cast<std::size_t>(tuplets.count++)] = {ratio.first, ratio.second};
    };
    if (!rhythm.hasPrimaryTuplet())
        return tuplets;
    add(rhythm.getPrimaryTupletRatio());
    if (rhythm.hasSecondaryTuplet())
        add(rhythm.getSecondaryTupletRatio());
    return tuplets;
}

void VoiceRhythm::read(const Voice &voice, const MasterBar &bar)
{
    _beats.clear();
    _end = 0;
    _hasTuplets = _hasFlags = false;
    for (const auto &shared : voice.beats()) {
        RhythmicBeat beat;
        beat.beat = shared.get();
        beat.onset = _end;
        if (!shared->isGrace()) {
            beat.length =
                shared->isWholeBarRest() ? bar.length() : shared->rhythmValue().getLength();
            _end += beat.length;
        }
        beat.tuplets = tupletRatios(shared->rhythmValue());
        _hasTuplets = _hasTuplets || beat.tuplets.count > 0;
        _hasFlags = _hasFlags || (shared->hasNotes() && flagsOf(*shared) > 0);
        _beats.push_back(beat);
    }
    if (_hasTuplets) {
        setTuplets(0);
        setTuplets(1);
    }
    if (_hasFlags)
        setBeams(bar);
}

void VoiceRhythm::setTuplets(std::size_t level)
{
    std::vector<Bracket> open; // one at most
    RhythmicBeat *last = nullptr;
    const auto close = [&] {
        if (last)
            last->stops[level] = true;
        open.clear();
        last = nullptr;
    };
    for (auto &beat : _beats) {
        if (beat.length.isZero())
            continue;
        const bool hasOwn = beat.tuplets.count > static_cast<int>(level);
        const auto ratio = hasOwn ? beat.tuplets.ratios[level] : TupletRatio();
        // An inner bracket does not lead over the end of the one around it.
        if (last && (!(open.back().ratio() == ratio) || (level > 0 && beat.starts[0])))
            close();
        if (!hasOwn)
            continue;
        if (!last) {
            open.emplace_back(ratio);
            beat.starts[level] = true;
        }
        open.back().add(beat);
        last = &beat;
        if (open.back().isFull())
            close();
    }
    close();
}

void VoiceRhythm::setBeams(const MasterBar &bar)
{
    _beamed.clear();
    for (const auto &beat : _beats)
        _beamed.push_back({beat.onset, beat.beat, false});
    findBeams(_beamed, bar.timeSignature(), bar.beamGroups());
    RhythmicBeat *left = nullptr; // a beat with notes whose beam leads on
    for (std::size_t i = 0; i < _beats.size(); ++i) {
        auto &beat = _beats[i];
        beat.isBeamSaid = _beamed[i].isSaid;
        if (beat.beat->isGrace() || !beat.beat->hasNotes())
            continue;
        beat.isBeamedFrom = left != nullptr;
        if (left)
            beat.beamsFrom = left->beamsOn = std::min(flagsOf(*left->beat), flagsOf(*beat.beat));
        beat.isBeamedOn = _beamed[i].isBeamedOn;
        left = beat.isBeamedOn ? &beat : nullptr;
    }
}

} // namespace zarn::io
