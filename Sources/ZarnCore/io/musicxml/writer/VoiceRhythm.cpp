// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/VoiceRhythm.h>

#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/form/TremoloPair.h>

#include <algorithm>
#include <optional>

namespace zarn::io {

using utils::rational;

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
    for (const auto level : {TupletLevel::Outer, TupletLevel::Inner})
        if (const auto ratio = TupletGroup::ratioOf(rhythm, level))
            tuplets.ratios[static_cast<std::size_t>(tuplets.count++)] = {ratio->first,
                                                                         ratio->second};
    return tuplets;
}

namespace {

bool isPlain(const RhythmicBeat &placed)
{
    const auto &beat = *placed.beat;
    return beat.isCommon() && beat.dynamic() == NoteDynamic() && placed.tuplets.count == 0
        && std::all_of(beat.notes().begin(), beat.notes().end(), [](const auto &note) {
               return note->marks().isPlain() && !note->hasDetails() && note->fret() == Note::Unset;
           });
}

/// Grace notes in a row have beams of their own.
bool areBeamedGraces(const Beat &left, const Beat &right)
{
    return left.isGrace() && left.hasNotes() && right.hasNotes() && flagsOf(left) > 0
        && flagsOf(right) > 0 && left.graceType() == right.graceType()
        && left.beamMode() != BeamMode::Break;
}

void beamTogether(RhythmicBeat &left, RhythmicBeat &right)
{
    right.isBeamedFrom = true;
    right.beamsFrom = left.beamsOn = std::min(flagsOf(*left.beat), flagsOf(*right.beat));
}

} // namespace

bool isWholeBarRest(const Voice &voice)
{
    bool hasRest = false;
    for (const auto &beat : voice.beats()) {
        if (beat->isGrace())
            continue;
        if (hasRest || !beat->isWholeBarRest())
            return false;
        hasRest = true;
    }
    return hasRest;
}

void VoiceRhythm::read(const Voice &voice, const MasterBar &bar, const rational &written)
{
    start();
    _wholeBar = isWholeBarRest(voice) ? written : bar.length();
    for (const auto &beat : voice.beats())
        add(*beat);
    finish(bar);
}

void VoiceRhythm::read(const std::vector<const Beat *> &beats, const MasterBar &bar)
{
    start();
    _wholeBar = bar.length();
    for (const auto *const beat : beats)
        add(*beat);
    finish(bar);
}

void VoiceRhythm::start()
{
    _beats.clear();
    _end = 0;
    _hasTuplets = _hasFlags = false;
}

void VoiceRhythm::add(const Beat &added)
{
    auto &beat = _beats.emplace_back();
    beat.beat = &added;
    const auto onset = _end;
    beat.onset = onset;
    const auto &rhythm = added.rhythmValue();
    if (!added.isGrace()) {
        const auto length = beat.fillsBar() ? _wholeBar : rhythm.getLength();
        beat.length = length;
        _end = onset + length;
    }
    if (!beat.fillsBar() && (rhythm.hasPrimaryTuplet() || rhythm.hasSecondaryTuplet())) {
        beat.tuplets = tupletRatios(rhythm);
        _hasTuplets = _hasTuplets || beat.tuplets.count > 0;
    }
    beat.isPlain = isPlain(beat);
    _hasFlags = _hasFlags || (added.hasNotes() && flagsOf(added) > 0);
}

void VoiceRhythm::finish(const MasterBar &bar)
{
    if (_hasTuplets) {
        for (std::size_t i = 1; i < _beats.size(); ++i)
            if (isTremoloPair(*_beats[i - 1].beat, *_beats[i].beat))
                _beats[i - 1].isOfTremolo = _beats[i].isOfTremolo = true;
        setTuplets(TupletLevel::Outer);
        setTuplets(TupletLevel::Inner);
    }
    if (_hasFlags)
        setBeams(bar);
}

void VoiceRhythm::setTuplets(TupletLevel level)
{
    const auto at = static_cast<std::size_t>(level);
    std::optional<TupletGroup> open;
    RhythmicBeat *last = nullptr;
    const auto close = [&] {
        if (last)
            last->stops[at] = true;
        open.reset();
        last = nullptr;
    };
    for (auto &beat : _beats) {
        if (beat.length.isZero())
            continue;
        const auto &rhythm = beat.beat->rhythmValue();
        // An inner bracket does not lead over the end of the one around it.
        if (open && (!open->takes(rhythm) || (level == TupletLevel::Inner && beat.starts[0])))
            close();
        const bool hasNone = beat.isOfTremolo || beat.fillsBar();
        if (hasNone)
            close();
        if (hasNone || !TupletGroup::ratioOf(rhythm, level))
            continue;
        if (!open) {
            open.emplace(rhythm, level, beat.onset);
            beat.starts[at] = true;
        }
        open->add(rhythm);
        last = &beat;
        if (open->isFull())
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
        if (beat.beat->isGrace()) {
            if (i > 0 && areBeamedGraces(*_beats[i - 1].beat, *beat.beat)) {
                _beats[i - 1].isBeamedOn = true;
                beamTogether(_beats[i - 1], beat);
            }
            continue;
        }
        if (!beat.beat->hasNotes())
            continue;
        if (left)
            beamTogether(*left, beat);
        beat.isBeamedOn = _beamed[i].isBeamedOn;
        left = beat.isBeamedOn ? &beat : nullptr;
    }
}

} // namespace zarn::io
