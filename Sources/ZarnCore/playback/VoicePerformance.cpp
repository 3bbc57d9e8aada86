// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/VoicePerformance.h>

#include <ZarnCore/playback/BeatSounds.h>
#include <ZarnCore/playback/BendCurve.h>
#include <ZarnCore/playback/MeterAccents.h>
#include <ZarnCore/playback/NoteLength.h>
#include <ZarnCore/playback/Ornaments.h>

#include <algorithm>
#include <cmath>

namespace zarn::playback {

namespace {

using utils::rational;

/// What is left of an attack that comes later than its note may sound.
const utils::rational shortestShare(1, 8);

/// Quarters that a note sounds at least.
const utils::rational shortestSound(1, 3840);

bool movesPitch(const Beat &beat, const Note &note)
{
    return note.bend().type != BendType::NoBend || note.vibrato() != Vibrato::None
        || note.slideIn() != SlideIn::None || note.slideOut() != SlideOut::None
        || beat.whammyBar().type != WhammyBarType::NoWhammyBar
        || beat.barVibrato() != Vibrato::None;
}

bool slidesAway(SlideOut slide)
{
    return slide == SlideOut::Downwards || slide == SlideOut::Upwards;
}

/// Fades and swells of a beat are expression already.
bool hasOwnExpression(const Beat &beat)
{
    return beat.fadding() != Fadding::NoFadding || beat.hairpin() == Hairpin::Swell;
}

} // namespace

VoicePerformance::VoicePerformance(const VoicePlace &place, const PlayedBeats &beats,
                                   TrackPerformance &result, std::vector<RingingNote> &ringing,
                                   std::vector<LooseEnd> &looseStarts,
                                   std::vector<LooseEnd> &looseEnds)
    : _place(place), _beats(beats), _result(result), _ringing(ringing), _looseStarts(looseStarts),
      _looseEnds(looseEnds), _tremolos(beats), _hasHairpins(place.dynamics.hasSlopes()),
      _isPlain(!_hasHairpins && !place.track.hasAutoBrush() && !place.track.letsRingThroughout()
               && !InstrumentSet::isUnpitched(place.track.type()))
{
}

void VoicePerformance::play()
{
    _chains = NoteChains::of(_beats);
    _result.notes.reserve(_result.notes.size() + _chains.chains.size());
    for (const NoteChain &chain : _chains.chains)
        if (!playPlainly(chain))
            playChain(chain);
    if (_place.hasMarkedBeats || _hasMarkedNotes)
        BeatSounds(_place, _beats, _result).play();
}

/// Most notes of most scores: struck once, of a key of their own, without a mark.
bool VoicePerformance::playPlainly(const NoteChain &chain)
{
    const NotePiece &piece = _chains.pieces[chain.first];
    const Note &note = *piece.note;
    const bool isPlain = _isPlain && chain.first == chain.last && chain.approach == Approach::Struck
        && !chain.isLooseAtStart && !chain.isLooseAtEnd && piece.shift == 0 && piece.slideTo == 0
        && note.isCommon() && !note.isDead() && !note.isGhost() && note.midi() != Note::Unset
        && note.staffLine() == Note::NoStaffLine && note.percussionArticulation() == Note::Unset;
    if (!isPlain || !findPlainBeat(piece))
        return false;
    _result.hasPitches = true;
    PlannedNote planned =
        plan(piece, {withinMidi(note.midi() + _place.track.transpositionOffset()), false, false});
    planned.start = _plainBeat.start;
    planned.end = _plainBeat.end;
    planned.velocity =
        static_cast<std::uint8_t>(note.velocity() != 0 ? note.velocity() : _plainBeat.velocity);
    _result.notes.push_back(planned);
    return true;
}

/// For a note without any mark, which all such notes of its beat stand for.
bool VoicePerformance::findPlainBeat(const NotePiece &piece)
{
    const std::uint32_t index = piece.beat;
    if (_plainBeat.beat == index)
        return _plainBeat.isPlain;
    const PlayedBeat &played = _beats[index];
    _plainBeat.beat = index;
    _plainBeat.isPlain = played.beat->isCommon() && followsPlainly(index);
    if (!_plainBeat.isPlain)
        return false;
    const rational length =
        soundingLength(*played.beat, *piece.note, played.end() - played.start, played.length);
    _plainBeat.start = bounded(played.start);
    _plainBeat.end = std::max(bounded(played.start + length), _plainBeat.start + shortestSound);
    _plainBeat.velocity = std::clamp(static_cast<int>(std::lround(beatVelocity(index))), 1, 127);
    return true;
}

void VoicePerformance::playChain(const NoteChain &chain)
{
    const NotePiece &first = _chains.pieces[chain.first];
    const auto sounding = soundingKey(*first.note, _place.track);
    if (!sounding)
        return;
    if (sounding->isGuessed)
        _result.unknown.push_back({_place.track.index(), _beats[first.beat].bar});
    _attacks.clear();
    bool isMoved = false;
    for (std::uint32_t i = chain.first; i != NotePiece::None; i = _chains.pieces[i].next) {
        const NotePiece &piece = _chains.pieces[i];
        strikePiece(piece, i == chain.first);
        isMoved = isMoved || piece.shift != 0
            || ((!piece.note->isCommon() || !beatOf(piece).isCommon())
                && movesPitch(beatOf(piece), *piece.note));
    }
    endAttacks(chain);
    PlannedNote note = plan(first, *sounding);
    (note.isPercussion ? _result.hasPercussion : _result.hasPitches) = true;
    note.technique = techniqueOf(first, chain.approach);
    if (isMoved && !note.isPercussion)
        note.motion = addMotion(chain);
    const int velocity = velocityOfPiece(first, chain.approach);
    const HarmonicType harmonic = first.note->harmonic().type;
    const int high = keyOfHarmonic(*first.note, _place.staff, _place.track, note.key);
    const auto begin = _result.notes.size();
    for (const Attack &attack : _attacks) {
        note.start = bounded(attack.start);
        note.end = std::max(bounded(attack.end), note.start + shortestSound);
        note.velocity =
            static_cast<std::uint8_t>(std::clamp(velocity + attack.velocityChange, 1, 127));
        const bool hasFundamental =
            harmonic == HarmonicType::Semi || harmonic == HarmonicType::Feedback;
        note.key = static_cast<std::uint8_t>(
            withinMidi((hasFundamental ? sounding->key : high) + attack.semitones));
        _result.notes.push_back(note);
        if (hasFundamental && high != sounding->key) {
            PlannedNote upper = note;
            upper.key = static_cast<std::uint8_t>(high);
            if (harmonic == HarmonicType::Feedback)
                upper.start = bounded(note.start + (note.end - note.start) / 2);
            _result.notes.push_back(upper);
        }
    }
    if (_hasHairpins && _attacks.size() == 1 && !note.isPercussion)
        addSwell(chain);
    if (chain.isLooseAtStart)
        _looseStarts.push_back({begin, _beats[first.beat].start});
    const NotePiece &last = _chains.pieces[chain.last];
    if (chain.isLooseAtEnd)
        _looseEnds.push_back({_result.notes.size() - 1, _beats[last.beat].end()});
    if (rings(*last.note))
        for (auto i = begin; i < _result.notes.size(); ++i)
            _ringing.push_back({i, latestRinging(_beats, last.beat, _place.bars)});
}

PlannedNote VoicePerformance::plan(const NotePiece &piece, const SoundingKey &key) const
{
    const PlayedBeat &played = _beats[piece.beat];
    PlannedNote note;
    note.key = static_cast<std::uint8_t>(key.key);
    note.isPercussion = key.isPercussion;
    note.lane = static_cast<std::uint16_t>(_place.track.index());
    note.string = static_cast<std::int8_t>(piece.note->string());
    note.track = static_cast<std::uint16_t>(_place.track.index());
    note.staff = static_cast<std::uint8_t>(_place.staff.index());
    note.voice = static_cast<std::uint8_t>(_place.slot);
    note.note = piece.number;
    note.beat = played.index;
    note.bar = played.bar;
    note.playedBar = played.playedBar;
    return note;
}

// How a chain is struck.

const std::vector<Stroke> &VoicePerformance::strokesOfBeat(std::uint32_t index)
{
    if (_strokesBeat == index)
        return _strokes;
    _strokesBeat = index;
    const PlayedBeat &played = _beats[index];
    const Beat &beat = *played.beat;
    _strokes = _tremolos.strokesOf(index);
    if (_strokes.empty())
        _strokes = strokesOf(beat, played.length);
    Strum &strum = _strokes.front().strum;
    if (_place.track.hasAutoBrush() && strum.direction == Direction::None && _strokes.size() == 1)
        strum = autoBrush(beat, played.offset);
    return _strokes;
}

/// Whether what stands before a beat changes nothing of how it is struck.
bool VoicePerformance::followsPlainly(std::uint32_t index) const
{
    if (index == 0)
        return true;
    const Beat &before = *_beats[index - 1].beat;
    return before.isCommon() && (!before.isGrace() || !_tremolos.partnerBefore(index));
}

utils::rational VoicePerformance::delayOf(const NotePiece &piece, const Stroke &stroke)
{
    if (stroke.strum.direction == Direction::None)
        return {};
    const Beat &beat = beatOf(piece);
    return strumDelays(stroke.strum, beat.noteCount(),
                       stroke.length)[orderFromLowest(beat)[piece.number]];
}

void VoicePerformance::strikePiece(const NotePiece &piece, bool isFirst)
{
    const PlayedBeat &played = _beats[piece.beat];
    const bool isPlain = beatOf(piece).isCommon() && piece.note->isCommon()
        && !_place.track.hasAutoBrush() && followsPlainly(piece.beat);
    if (isPlain) {
        if (isFirst)
            _attacks.push_back({played.start, played.end(), 0, 0});
        else
            hold(played.start, played.end(), 0);
        return;
    }
    _hasMarkedNotes = true;
    const auto &strokes = strokesOfBeat(piece.beat);
    if (strokes.size() == 1) {
        strikeOnce(piece, strokes.front(),
                   isFirst ? delayOf(piece, strokes.front()) : utils::rational(), isFirst);
        return;
    }
    for (const Stroke &stroke : strokes) {
        const utils::rational end = played.start + stroke.offset + stroke.length;
        const utils::rational start = end - stroke.length + delayOf(piece, stroke);
        _attacks.push_back({start,
                            start + strokeLength(beatOf(piece), *piece.note, end - start, false), 0,
                            stroke.velocityChange});
    }
}

void VoicePerformance::strikeOnce(const NotePiece &piece, const Stroke &stroke,
                                  const utils::rational &delay, bool isFirst)
{
    const utils::rational end = _beats[piece.beat].start + stroke.offset + stroke.length;
    const utils::rational start = end - stroke.length + delay;
    const auto notes = ornamentNotes(beatOf(piece), *piece.note, end - start);
    if (notes.empty()) {
        if (isFirst)
            _attacks.push_back({start, end, 0, 0});
        else
            hold(start, end, 0);
        return;
    }
    for (const OrnamentNote &note : notes) {
        const utils::rational from = start + note.offset;
        if (&note == &notes.front() && !isFirst)
            hold(from, from + note.length, note.semitones);
        else
            _attacks.push_back({from, from + note.length, note.semitones, 0});
    }
}

/// Goes on with the attack before where that is of the same key.
void VoicePerformance::hold(const utils::rational &start, const utils::rational &end, int semitones)
{
    if (_attacks.back().semitones == semitones)
        _attacks.back().end = end;
    else
        _attacks.push_back({start, end, semitones, 0});
}

/// Signs shorten what is left of the last piece.
void VoicePerformance::endAttacks(const NoteChain &chain)
{
    const NotePiece &last = _chains.pieces[chain.last];
    const PlayedBeat &lastBeat = _beats[last.beat];
    const utils::rational start = _beats[_chains.pieces[chain.first].beat].start;
    const utils::rational whole = lastBeat.end() - start;
    if (beatOf(last).tremoloToNext() != 0 || _tremolos.partnerBefore(last.beat))
        return;
    if (beatOf(last).tremolo() != 0 || beatOf(last).rasgueado() != RasgueadoType::None) {
        if (strokesOfBeat(last.beat).size() > 1) {
            endStrokes(last);
            return;
        }
    }
    const utils::rational end =
        start + soundingLength(beatOf(last), *last.note, whole, lastBeat.length);
    while (_attacks.size() > 1 && _attacks.back().start >= end)
        _attacks.pop_back();
    Attack &attack = _attacks.back();
    attack.end =
        end > attack.start ? end : attack.start + (attack.end - attack.start) * shortestShare;
}

/// Leaves a gap behind the last stroke, and the silence of a breath.
void VoicePerformance::endStrokes(const NotePiece &last)
{
    const PlayedBeat &played = _beats[last.beat];
    const Beat &beat = *played.beat;
    const rational end = beat.breath() == BreathSign::None
        ? played.end()
        : played.end() - silenceOfBreath(played.length);
    while (_attacks.size() > 1 && _attacks.back().start >= end)
        _attacks.pop_back();
    Attack &attack = _attacks.back();
    const Stroke &stroke = strokesOfBeat(last.beat).back();
    const rational strokeEnd = std::min(end, played.start + stroke.offset + stroke.length);
    attack.end = attack.start + strokeLength(beat, *last.note, strokeEnd - attack.start, true);
}

// Loudness.

/// How loud the note is to be while it is held, where that is long and changes.
void VoicePerformance::addSwell(const NoteChain &chain)
{
    constexpr double leastChange = 4;
    const rational whole = _beats[_chains.pieces[chain.last].beat].end()
        - _beats[_chains.pieces[chain.first].beat].start;
    if (whole < 1)
        return;
    const Attack &attack = _attacks.front();
    HeldSwell swell;
    swell.end = bounded(attack.end);
    double least = 127;
    double most = 0;
    std::uint32_t place = chain.first;
    for (rational time = bounded(attack.start); time < swell.end; time += HeldSwell::step) {
        const auto hasEnded = [&](const NotePiece &piece) {
            return piece.next != NotePiece::None && _beats[piece.beat].end() <= time;
        };
        while (hasEnded(_chains.pieces[place]))
            place = _chains.pieces[place].next;
        const PlayedBeat &played = _beats[_chains.pieces[place].beat];
        if (hasOwnExpression(*played.beat) || slidesAway(_chains.pieces[place].note->slideOut()))
            return;
        const double level = _place.dynamics.velocityAt(
            _place.bars.writtenStart(played.bar), bounded(played.offset + (time - played.start)));
        least = std::min(least, level);
        most = std::max(most, level);
        swell.levels.push_back({time, level});
    }
    if (most - least >= leastChange)
        _result.swells.push_back(std::move(swell));
}

double VoicePerformance::beatVelocity(std::uint32_t index)
{
    if (_velocityBeat == index)
        return _velocity;
    _velocityBeat = index;
    const PlayedBeat &played = _beats[index];
    _velocity = attackVelocity(
        played.beat->attackDynamic(),
        _place.dynamics.velocityAt(_place.bars.writtenStart(played.bar), played.offset));
    if (_place.track.hasAutoAccentuation() && !played.beat->isGrace())
        _velocity +=
            meterAccent(*_place.model.masterTrack()->masterBars()[played.bar], played.offset);
    return _velocity;
}

int VoicePerformance::velocityOfPiece(const NotePiece &piece, Approach approach)
{
    const Beat &beat = beatOf(piece);
    const Note &note = *piece.note;
    const double base =
        note.velocity() != 0 ? static_cast<double>(note.velocity()) : beatVelocity(piece.beat);
    const bool isPlain = beat.isCommon() && note.isCommon() && !note.isGhost();
    const int change = isPlain && approach == Approach::Struck
        ? 0
        : velocityChange(beat, note, approach, _place.track.palmMuteStrength());
    return std::clamp(static_cast<int>(std::lround(base)) + change, 1, 127);
}

Technique VoicePerformance::techniqueOf(const NotePiece &piece, Approach approach) const
{
    const Note &note = *piece.note;
    const Beat &beat = beatOf(piece);
    if (note.isDead())
        return Technique::Dead;
    if (note.harmonic().type != HarmonicType::NoHarmonic)
        return Technique::Harmonic;
    if (note.isPalmMuted())
        return Technique::PalmMuted;
    if (beat.bassAttack() != BassAttack::None)
        return beat.bassAttack() == BassAttack::Slap ? Technique::Slapped : Technique::Popped;
    if (note.isLeftHandTapped() || note.isRightHandTapped())
        return Technique::Tapped;
    if (approach != Approach::Struck)
        return approach == Approach::HammeredOn ? Technique::HammeredOn : Technique::PulledOff;
    return Technique::Plucked;
}

// Ringing on.

bool VoicePerformance::rings(const Note &note) const
{
    return note.letsRing()
        || (_place.track.letsRingThroughout() && !note.isPalmMuted() && !note.isDead());
}

// Pitch.

/// The notes of a chord under the whammy bar share a motion.
std::int32_t VoicePerformance::numberOf(PitchMotion motion)
{
    constexpr std::size_t mostStrings = 16;
    auto &motions = _result.motions;
    const auto recent = motions.end()
        - static_cast<std::ptrdiff_t>(std::min<std::size_t>(motions.size(), mostStrings));
    const auto same = std::find(recent, motions.end(), motion);
    if (same != motions.end())
        return static_cast<std::int32_t>(same - motions.begin());
    motions.push_back(std::move(motion));
    return static_cast<std::int32_t>(motions.size() - 1);
}

/// A note that slides away to nowhere gets softer.
void VoicePerformance::addFade(const NotePiece &piece, const utils::rational &from,
                               const utils::rational &to)
{
    if (slidesAway(piece.note->slideOut()) && !hasOwnExpression(beatOf(piece)))
        _result.fades.push_back({BendCurve::startOfSlide(from, to), to});
}

std::int32_t VoicePerformance::addMotion(const NoteChain &chain)
{
    const utils::rational start = _attacks.front().start;
    const utils::rational end = std::max(_attacks.back().end, start);
    const utils::rational wholeEnd = _beats[_chains.pieces[chain.last].beat].end();
    BendCurve curve(start, end, _place.tempo);
    utils::rational bendFrom;
    const Bend *bend = nullptr;
    const auto addBend = [&](const utils::rational &to) {
        if (bend && to > bendFrom)
            curve.addCurve(bend->curve, bendFrom, to);
    };
    for (std::uint32_t i = chain.first; i != NotePiece::None; i = _chains.pieces[i].next) {
        const NotePiece &piece = _chains.pieces[i];
        const PlayedBeat &played = _beats[piece.beat];
        const Note &note = *piece.note;
        const utils::rational from = std::max(played.start, start);
        const utils::rational to = played.end();
        if (to <= from)
            continue;
        // A bend spans the notes that are tied to it, up to the next bend.
        if (note.bend().type != BendType::NoBend) {
            addBend(from);
            bend = &note.bend();
            bendFrom = from;
        }
        if (played.beat->whammyBar().type != WhammyBarType::NoWhammyBar)
            curve.addCurve(played.beat->whammyBar().curve, from, to);
        curve.addVibrato(note.vibrato(), from, to);
        curve.addVibrato(played.beat->barVibrato(), from, to);
        curve.addSlideIn(note.slideIn(), from, to);
        const rational left = std::min(to, end);
        if (piece.slideTo != 0) {
            curve.addSlideTo(piece.slideTo, from, left);
        } else {
            curve.addSlideOut(note.slideOut(), from, left);
            if (i == chain.last)
                addFade(piece, from, left);
        }
    }
    addBend(std::max(end, wholeEnd));
    if (curve.isEmpty())
        return PlannedNote::NoMotion;
    return numberOf(curve.motion());
}

} // namespace zarn::playback
