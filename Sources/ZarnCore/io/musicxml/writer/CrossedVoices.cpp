// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/CrossedVoices.h>

#include <ZarnCore/io/musicxml/GapFiller.h>
#include <ZarnCore/io/musicxml/writer/PartPlan.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>
#include <tuple>

namespace zarn::io {

using utils::rational;
using Role = CrossedBeat::Role;

namespace {

bool hasWords(const Beat &beat)
{
    return beat.dynamic() != NoteDynamic() || beat.attackDynamic() != AttackDynamic::None
        || !beat.text().empty() || !beat.textBelow().empty();
}

/// Time that is kept free in the midst of a voice, whatever leads over it and is said there.
bool isKeptFree(const Beat &beat)
{
    auto details = beat.details();
    details.text.clear();
    details.textBelow.clear();
    details.dynamicSide = MarkSide::Auto;
    details.hairpinSide = MarkSide::Auto;
    if (!beat.isPlaceHolder() || !(details == BeatDetails()))
        return false;
    auto marks = beat.marks();
    marks.setPlaceHolder(false);
    marks.setDynamic(NoteDynamic());
    marks.setAttackDynamic(AttackDynamic::None);
    marks.setBeamMode(BeamMode::Auto);
    marks.setSlurredToNext(false);
    marks.setSlurredToPrevious(false);
    marks.setHairpin(Hairpin::NoHairpin);
    marks.setHairpinBegins(false);
    return marks.isPlain() && beat.hairpin() != Hairpin::Swell
        && beat.isSlurredToNext() == beat.isSlurredToPrevious();
}

/// The beats of a voice with their onsets; false when one cannot be part of a voice that changes
/// staves.
bool collect(const Voice *voice, bool isGuest, std::vector<CrossedBeat> &beats, rational &end)
{
    end = 0;
    for (unsigned index = 0; voice && index < voice->beatCount(); ++index) {
        const auto &beat = *voice->beats()[index];
        if (beat.isWholeBarRest() || beat.ottavia() != Ottavia::None)
            return false;
        beats.push_back({&beat, end, index, isGuest});
        end += beat.length();
    }
    return true;
}

bool overlap(const CrossedBeat &left, const CrossedBeat &right)
{
    return left.onset < right.onset + right.beat->length()
        && right.onset < left.onset + left.beat->length();
}

/// Whether nothing of a beat stands in front of its notes, or behind them.
bool isChordAlone(const Beat &beat)
{
    return beat.hasNotes() && !beat.isGrace() && !beat.hasDetails()
        && beat.dynamic() == NoteDynamic() && beat.attackDynamic() == AttackDynamic::None
        && beat.pedal() == PedalChange::None && beat.hairpin() == Hairpin::NoHairpin
        && std::none_of(beat.notes().begin(), beat.notes().end(),
                        [](const auto &note) { return note->isPalmMuted(); });
}

/// Adds a beat that begins where the others have come to, or with the last of them. False when it
/// does neither.
bool append(CrossedBeat beat, std::vector<CrossedBeat> &beats, rational &now)
{
    if (beat.isFree()) {
        if (beat.onset != now)
            return false;
    } else if (beat.onset != now) {
        const auto *const last = beats.empty() ? nullptr : &beats.back();
        const bool isInChord = last && last->onset == beat.onset && last->isGuest != beat.isGuest
            && last->role == Role::Alone && last->beat->hasNotes() && isChordAlone(*beat.beat)
            && last->beat->rhythmValue() == beat.beat->rhythmValue();
        if (!isInChord)
            return false;
        beat.role = Role::InChord;
    } else {
        now += beat.beat->length();
    }
    beats.push_back(beat);
    return true;
}

} // namespace

std::vector<const Beat *> aloneOf(const std::vector<CrossedBeat> &beats)
{
    std::vector<const Beat *> written;
    for (const auto &beat : beats)
        if (beat.role == Role::Alone)
            written.push_back(beat.beat);
    return written;
}

CrossedVoices::CrossedVoices(const PartPlan &plan, const MasterTrack &master)
    : _plan(plan), _master(master)
{
    const auto &staves = plan.staves();
    const bool hasTablature = std::any_of(staves.begin(), staves.end(),
                                          [](const auto &staff) { return staff.isTablature; });
    if (staves.size() < 2 || hasTablature || !plan.hasOneDivision())
        return;
    std::vector<StaffVoice> voices;
    for (std::size_t staff = 0; staff < staves.size(); ++staff)
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot)
            voices.push_back({staff, slot});
    for (const auto &host : voices)
        for (const auto &guest : voices) {
            const bool isTaken = std::any_of(_pairs.begin(), _pairs.end(), [&](const Pair &pair) {
                return pair.host == host || pair.host == guest || pair.guest == host
                    || pair.guest == guest;
            });
            if (!isTaken && host.staff != guest.staff && isCrossing(host, guest))
                _pairs.push_back({host, guest});
        }
}

const Voice *CrossedVoices::voice(const StaffVoice &place, unsigned bar) const
{
    const auto &voice = _plan.staves()[place.staff].staff->bars()[bar]->voices()[place.slot];
    return voice && !voice->isEmpty() ? voice.get() : nullptr;
}

/// Whether the voices are one in all bars, and more than two that take turns: a beam leads from one
/// to the other.
bool CrossedVoices::isCrossing(const StaffVoice &host, const StaffVoice &guest) const
{
    bool isOne = false;
    for (unsigned bar = 0; bar < _master.masterBarCount(); ++bar) {
        if (!voice(guest, bar))
            continue;
        const auto beats = join(host, guest, bar);
        if (!beats)
            return false;
        isOne = isOne || areBeamed(*beats, bar);
    }
    return isOne;
}

/// Whether a beam leads from one staff to the other.
bool CrossedVoices::areBeamed(const std::vector<CrossedBeat> &beats, unsigned bar) const
{
    VoiceRhythm rhythm;
    rhythm.read(aloneOf(beats), *_master.masterBars()[bar]);
    auto placed = rhythm.beats().begin();
    const CrossedBeat *before = nullptr;
    for (const auto &beat : beats) {
        if (beat.role != Role::Alone)
            continue;
        if (before && before->isGuest != beat.isGuest && placed->isBeamedFrom)
            return true;
        before = &beat;
        ++placed;
    }
    return false;
}

const StaffVoice *CrossedVoices::guestOf(const StaffVoice &host) const
{
    for (const auto &pair : _pairs)
        if (pair.host == host)
            return &pair.guest;
    return nullptr;
}

const StaffVoice *CrossedVoices::hostOf(const StaffVoice &guest) const
{
    for (const auto &pair : _pairs)
        if (pair.guest == guest)
            return &pair.host;
    return nullptr;
}

bool CrossedVoices::hasGuests(std::size_t staff) const
{
    return std::any_of(_pairs.begin(), _pairs.end(),
                       [staff](const Pair &pair) { return pair.guest.staff == staff; });
}

std::optional<std::vector<CrossedBeat>>
CrossedVoices::join(const StaffVoice &host, const StaffVoice &guest, unsigned bar) const
{
    const auto *const own = voice(host, bar);
    const auto *const other = voice(guest, bar);
    std::vector<CrossedBeat> owns;
    std::vector<CrossedBeat> others;
    rational end;
    rational otherEnd;
    if (!other || !collect(own, false, owns, end) || !collect(other, true, others, otherEnd))
        return std::nullopt;
    if (otherEnd != _master.masterBars()[bar]->length() || (own && end != otherEnd))
        return std::nullopt;
    std::vector<CrossedBeat> both;
    std::vector<CrossedBeat> free;
    for (const auto &beat : others)
        (isKeptFree(*beat.beat) ? free : both).push_back(beat);
    const auto guests = both;
    for (const auto &beat : owns) {
        const bool isFilled = isKeptFree(*beat.beat)
            && std::any_of(guests.begin(), guests.end(),
                           [&](const auto &taken) { return overlap(beat, taken); });
        (isFilled ? free : both).push_back(beat);
    }
    // Two voices that rest nowhere for each other are two.
    if (guests.empty() || (own && (both.size() == guests.size() || free.empty())))
        return std::nullopt;
    for (auto beat : free) {
        const bool says = hasWords(*beat.beat);
        if (says && !isFirstAt(beat.isGuest ? guest : host, beat.onset, bar))
            return std::nullopt;
        if (!says && beat.beat->hairpin() == Hairpin::NoHairpin)
            continue;
        beat.role = Role::FreeBegin;
        both.push_back(beat);
        beat.role = Role::FreeEnd;
        beat.onset += beat.beat->length();
        both.push_back(beat);
    }
    const auto rank = [](const CrossedBeat &beat) {
        return beat.role == Role::FreeEnd  ? 0
            : beat.role == Role::FreeBegin ? 1
            : beat.beat->isGrace()         ? 2
                                           : 3;
    };
    std::stable_sort(both.begin(), both.end(), [&](const auto &left, const auto &right) {
        return std::make_tuple(left.onset, rank(left), left.isGuest)
            < std::make_tuple(right.onset, rank(right), right.isGuest);
    });
    std::vector<CrossedBeat> beats;
    rational now;
    for (const auto &beat : both)
        if (!append(beat, beats, now))
            return std::nullopt;
    if (now != otherEnd || (own && !comesBack(beats, false, *own, bar))
        || !comesBack(beats, true, *other, bar))
        return std::nullopt;
    return beats;
}

/// Whether no voice above it in its staff has a beat at a time: readers put words there that stand
/// at no note.
bool CrossedVoices::isFirstAt(const StaffVoice &place, const rational &onset, unsigned bar) const
{
    for (unsigned slot = 0; slot < place.slot; ++slot) {
        const auto *const above = voice({place.staff, slot}, bar);
        rational now;
        for (unsigned index = 0; above && index < above->beatCount(); ++index) {
            if (now == onset)
                return false;
            now += above->beats()[index]->length();
        }
    }
    return true;
}

/// Whether a reader that is given the voice makes of one staff what stands there: it fills the gaps
/// and beams the beats by itself.
bool CrossedVoices::comesBack(const std::vector<CrossedBeat> &beats, bool isGuest,
                              const Voice &voice, unsigned bar) const
{
    const auto &column = *_master.masterBars()[bar];
    VoiceRhythm rhythm;
    rhythm.read(aloneOf(beats), column);

    std::vector<PlacedBeat> made;
    rational end;
    bool isWhole = true;
    const auto fillTo = [&](const rational &onset, const RhythmValue *behind) {
        if (!(end < onset))
            return;
        std::vector<RhythmValue> rhythms;
        const auto *const before = made.empty() ? nullptr : &made.back().beat->rhythmValue();
        isWhole = isWhole && findGapRhythms(onset - end, before, behind, rhythms);
        for (const auto &value : rhythms) {
            made.push_back({end, std::make_shared<Beat>(value)});
            made.back().beat->setPlaceHolder(true);
            end += value.getLength();
        }
    };
    auto placed = rhythm.beats().begin();
    for (auto next = beats.begin(); next != beats.end();) {
        const auto &beat = *next++;
        if (beat.isFree())
            continue;
        const bool isBeamedOn = beat.role == Role::Alone && placed++->isBeamedOn;
        if (beat.isGuest != isGuest)
            continue;
        fillTo(beat.onset, &beat.beat->rhythmValue());
        auto copy = std::make_shared<Beat>(beat.beat->rhythmValue());
        copy->setGraceType(beat.beat->graceType());
        copy->setPlaceHolder(beat.beat->isPlaceHolder());
        if (beat.beat->hasNotes())
            copy->addNote(std::make_shared<Note>(beat.beat->notes().front()->midi()));
        const rational onsetBehind = beat.onset + beat.beat->length();
        const auto past = std::find_if(
            next, beats.end(), [&](const CrossedBeat &other) { return onsetBehind < other.onset; });
        const auto goesOnIn = [&](bool isOfGuest) {
            return std::any_of(next, past, [&](const CrossedBeat &other) {
                return !other.isFree() && other.onset == onsetBehind && !other.beat->isGrace()
                    && other.isGuest == isOfGuest;
            });
        };
        const bool isAcross = isBeamedOn && !goesOnIn(beat.isGuest) && goesOnIn(!beat.isGuest);
        made.push_back({beat.onset, std::move(copy), isBeamedOn, isAcross});
        end = beat.onset + beat.beat->length();
    }
    fillTo(column.length(), nullptr);
    setBeams(made, column.timeSignature(), column.beamGroups());
    return isWhole
        && std::equal(made.begin(), made.end(), voice.beats().begin(), voice.beats().end(),
                      [](const PlacedBeat &left, const auto &right) {
                          return left.beat->rhythmValue() == right->rhythmValue()
                              && left.beat->isPlaceHolder() == right->isPlaceHolder()
                              && left.beat->beamMode() == right->beamMode();
                      });
}

} // namespace zarn::io
