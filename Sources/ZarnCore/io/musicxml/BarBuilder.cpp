// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/BarBuilder.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/NoteMaker.h>
#include <ZarnCore/io/musicxml/Wording.h>
#include <ZarnCore/io/musicxml/signs/Beams.h>
#include <ZarnCore/io/musicxml/signs/PartSigns.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>

#include <algorithm>

namespace zarn::io {

using utils::rational;

namespace {

/// How far `beatNear` looks around in each voice.
constexpr std::ptrdiff_t nearBeats = 16;

/// Whether a time lies before another one by more than a tolerance.
bool isBefore(const rational &time, const rational &other, const rational &tolerance)
{
    if (!(time < other))
        return false;
    try {
        return time + tolerance < other;
    } catch (const CoreException &) { // past what a fraction holds
        return time.toDouble() + tolerance.toDouble() < other.toDouble();
    }
}

/// Whether a rest is one value, which has no tuplet to it.
bool isOneValue(const Beat &rest, const rational &length)
{
    return rest.rhythmValue().getLength() == length && !rest.rhythmValue().hasPrimaryTuplet();
}

/// The rests that go on behind the first one.
Voice::Beats furtherRests(const Beat &first, const std::vector<RhythmValue> &rhythms)
{
    Voice::Beats rests;
    for (std::size_t i = 1; i < rhythms.size(); ++i) {
        rests.push_back(std::make_shared<Beat>(rhythms[i]));
        rests.back()->setPlaceHolder(first.isPlaceHolder());
    }
    return rests;
}

} // namespace

std::size_t WholeMeasureRest::fit(const rational &barLength) const
{
    if (barLength == length) {
        beat->setRhythmValue(RhythmValue(RhythmValue::NoteValue::Whole));
        beat->setWholeBarRest(true);
        return 0;
    }
    const auto voice = beat->parentVoice();
    std::vector<RhythmValue> rhythms;
    if (!voice || isOneValue(*beat, length) || !findRestRhythms(length, rhythms) || rhythms.empty())
        return 0;
    beat->setRhythmValue(rhythms.front());
    voice->insertBeats(beat->index() + 1, furtherRests(*beat, rhythms));
    return rhythms.size() - 1;
}

BarBuilder::BarBuilder(ImportContext &context, NoteMaker &notes, PartSigns &signs)
    : _context(context), _notes(notes), _signs(signs), _gaps(context), _marks(context, _gaps)
{
}

void BarBuilder::startPart()
{
    _staves.clear();
    _rests.clear();
    _marks.startPart();
    _hasBeams = _context.hasAllBeams();
}

void BarBuilder::build(const WrittenMeasure &measure,
                       std::vector<std::vector<std::shared_ptr<Bar>>> &staves)
{
    _staves.resize(std::max(staves.size(), _staves.size()));
    _chordBeats.assign(_staves.size(), {});
    _measure = &measure;
    _nextSign = 0;
    _noteBeats.assign(measure.notes.size(), {});
    auto claim = measure.claims.begin();
    const auto claimUpTo = [&](std::size_t index) {
        for (; claim != measure.claims.end() && claim->note <= index; ++claim)
            preferredSlot(_staves[static_cast<std::size_t>(claim->staff)], claim->voice);
    };
    for (const auto &note : measure.notes) {
        const auto index = static_cast<std::size_t>(&note - measure.notes.data());
        claimUpTo(index);
        if (!note.chord || !joinChord(note))
            place(note);
    }
    claimUpTo(measure.notes.size());
    for (std::size_t staff = 0; staff < _staves.size(); ++staff)
        for (auto &slot : _staves[staff].voiceSlots)
            if (!slot.beats.empty() && !endsEarly(slot, staff))
                _gaps.fill(slot, measure.length, measure.node);
    finishBeats(measure);
    _marks.place(measure, _noteBeats, _staves);
    if (!measure.spans.empty())
        _signs.addSpans(measure, _noteBeats, staves.size());

    for (std::size_t i = 0; i < staves.size(); ++i) {
        auto bar = std::make_shared<Bar>();
        bool isEmpty = true;
        for (unsigned number = 0; number < Bar::MaxVoices; ++number) {
            auto &slot = _staves[i].voiceSlots[number];
            if (!slot.beats.empty()) {
                isEmpty = false;
                Voice::Beats beats;
                beats.reserve(slot.beats.size());
                for (auto &placed : slot.beats)
                    beats.push_back(std::move(placed.beat));
                auto voice = std::make_shared<Voice>();
                voice->insertBeats(0, std::move(beats));
                bar->setVoice(number, voice);
            }
            slot.beats.clear();
            slot.voice = VoiceSlot::Nobody;
            slot.end = 0;
        }
        if (isEmpty)
            _context.addEmptyNodes(measure.node, 1);
        staves[i].push_back(std::move(bar));
    }
}

/// Whether a document of ours leaves what a bar has behind the last beat of a voice to the voice,
/// which goes no further then.
bool BarBuilder::endsEarly(const VoiceSlot &slot, std::size_t staff) const
{
    const auto isOfSlot = [&](const WrittenClaim &claim) {
        return static_cast<std::size_t>(claim.staff) == staff && claim.voice == slot.voice
            && claim.onset == slot.end;
    };
    return _context.isOwnDocument()
        && std::any_of(_measure->claims.begin(), _measure->claims.end(), isOfSlot);
}

/// A further note of a chord: grows on the chord's beat of its staff. False when that staff has
/// none yet.
bool BarBuilder::joinChord(const WrittenNote &note)
{
    const auto [slot, index, isOwn] = _chordBeats[static_cast<std::size_t>(note.staff)];
    if (!slot)
        return false;
    if (note.kind == NoteKind::Rest || note.kind == NoteKind::Unknown) {
        _context.addUnheld(note.node);
        return true;
    }
    const auto &placed = slot->beats[index];
    if (isOwn)
        setMarks(note, *placed.beat);
    placed.beat->addNote(_notes.make(note));
    noteAdded(note, *slot, placed);
    return true;
}

/// Gives a beat what its notes say of it so far.
void BarBuilder::setMarks(const WrittenNote &note, Beat &beat)
{
    beat.setMarks(note.beatMarks);
    if (note.grace) {
        beat.setGraceType(note.isBefore ? GraceType::BeforeBeat : GraceType::OnBeat);
        beat.setSlashedGrace(note.slashed);
    }
}

/// A note, or a rest, has found its beat.
void BarBuilder::noteAdded(const WrittenNote &note, const VoiceSlot &slot, const PlacedBeat &placed)
{
    // A cross for a head makes a fretted note dead.
    const bool isDead = placed.beat->hasNotes() && placed.beat->notes().back()->isDead();
    if ((note.mayExclude || isDead)
        && (_excluding.empty() || _excluding.back() != placed.beat.get()))
        _excluding.push_back(placed.beat.get());
    if (note.beatMarks.isSlashed() && (_slashed.empty() || _slashed.back() != placed.beat.get()))
        _slashed.push_back(placed.beat.get());
    auto &staff = _staves[static_cast<std::size_t>(note.staff)];
    const auto index = static_cast<std::size_t>(&note - _measure->notes.data());
    auto &place = _noteBeats[index];
    place.bar = _context.bar();
    place.staff = note.staff;
    place.slot = static_cast<unsigned>(&slot - staff.voiceSlots.data());
    place.index = static_cast<unsigned>(&placed - slot.beats.data());
    place.onset = placed.onset;
    place.voice = note.voice;
    place.beat = placed.beat.get();
    if (!note.hasSigns)
        return;
    place.note = place.beat->hasNotes() && note.kind != NoteKind::Rest
        ? place.beat->notes().back().get()
        : nullptr;
    const auto &signs = _measure->signs;
    for (; _nextSign < signs.size() && signs[_nextSign].note <= index; ++_nextSign)
        if (signs[_nextSign].note == index)
            _signs.add(signs[_nextSign], place);
}

/// Notes of a voice that are beamed on while it goes on in another staff.
void BarBuilder::findBeamsAcross()
{
    const auto startsAt = [](const VoiceSlot &slot, const rational &onset) {
        const auto isBefore = [](const PlacedBeat &placed, const rational &time) {
            return placed.onset < time;
        };
        auto placed = std::lower_bound(slot.beats.begin(), slot.beats.end(), onset, isBefore);
        while (placed != slot.beats.end() && placed->beat->isGrace())
            ++placed;
        return placed != slot.beats.end() && placed->onset == onset && placed->beat->hasNotes()
            && flagsOf(*placed->beat) > 0;
    };
    for (auto &staff : _staves)
        for (auto &slot : staff.voiceSlots)
            for (auto &placed : slot.beats) {
                if (!placed.isBeamedOn || placed.beat->isGrace() || !placed.beat->hasNotes())
                    continue;
                const rational end = placed.onset + placed.beat->length();
                placed.isBeamedAcross = !startsAt(slot, end)
                    && std::any_of(_staves.begin(), _staves.end(), [&](const StaffSlots &other) {
                           return &other != &staff
                               && std::any_of(other.voiceSlots.begin(), other.voiceSlots.end(),
                                              [&](const VoiceSlot &guest) {
                                                  return guest.voice == slot.voice
                                                      && startsAt(guest, end);
                                              });
                       });
            }
}

/// When all beats are there: what may not stand together goes, and beams are as they are written.
void BarBuilder::finishBeats(const WrittenMeasure &measure)
{
    // A slash that stands for all heads of a beat is none of their own.
    for (auto *beat : _slashed)
        for (const auto &note : beat->notes())
            if (beat->isSlashed() && note->noteHead() == NoteHead::Slash)
                note->setNoteHead(NoteHead::Normal);
    _slashed.clear();
    for (auto *beat : _excluding)
        for (const auto name : mendExclusions(*beat))
            _context.addProblem(measure.node,
                                std::string(name)
                                    + " was left out: it cannot stand beside another sign");
    _excluding.clear();
    for (auto &staff : _staves)
        for (auto &slot : staff.voiceSlots)
            _hasBeams = _hasBeams
                || std::any_of(slot.beats.begin(), slot.beats.end(),
                               [](const PlacedBeat &placed) { return placed.isBeamedOn; });
    if (!_hasBeams)
        return;
    if (_staves.size() > 1)
        findBeamsAcross();
    for (auto &staff : _staves)
        for (auto &slot : staff.voiceSlots) {
            setBeams(slot.beats, measure.meter, measure.groups);
            if (!slot.beats.empty() && slot.beats.back().isBeamedOn
                && !slot.beats.back().isBeamedAcross && flagsOf(*slot.beats.back().beat) > 0) {
                _context.addUnheld(measure.node, Tag::Beam);
                _context.addProblem(measure.node, "a beam over the bar line was left out");
            }
        }
}

void BarBuilder::place(const WrittenNote &note)
{
    if (!note.chord)
        std::fill(_chordBeats.begin(), _chordBeats.end(), ChordBeat());
    if (auto *slot = slotFor(note))
        append(*slot, note);
    else
        squeezeIn(note);
}

VoiceSlot *BarBuilder::slotFor(const WrittenNote &note)
{
    auto &staff = _staves[static_cast<std::size_t>(note.staff)];
    if (auto *own = ownSlot(staff, note.voice)) {
        if (!isBefore(note.onset, own->end, note.tolerance))
            return own;
        auto *other = freeSlot(staff, note.voice);
        _context.addProblem(note.node,
                            other
                                ? "notes of one voice overlap; the later one went to another voice"
                                : "notes of one voice overlap");
        return other ? other : roomySlot(staff, note);
    }
    if (auto *slot = freeSlot(staff, note.voice))
        return slot;
    _context.addProblem(note.node, "a fifth voice stands on the staff; it joined the others");
    return roomySlot(staff, note);
}

VoiceSlot *BarBuilder::ownSlot(StaffSlots &staff, int voice)
{
    for (auto &slot : staff.voiceSlots)
        if (slot.voice == voice)
            return &slot;
    return nullptr;
}

/// The usual slot of a voice, which it gets when it turns up; `Nobody` when none is left.
int BarBuilder::preferredSlot(StaffSlots &staff, int voice)
{
    const auto index = static_cast<std::size_t>(voice);
    if (staff.preferred.size() <= index)
        staff.preferred.resize(index + 1, VoiceSlot::Nobody);
    auto &preferred = staff.preferred[index];
    if (preferred == VoiceSlot::Nobody) {
        const auto open = std::find(staff.claimed.begin(), staff.claimed.end(), false);
        if (open != staff.claimed.end()) {
            *open = true;
            preferred = static_cast<int>(open - staff.claimed.begin());
        }
    }
    return preferred;
}

/// A slot that is empty in this bar, the voice's usual one if it can be had.
VoiceSlot *BarBuilder::freeSlot(StaffSlots &staff, int voice)
{
    const int preferred = preferredSlot(staff, voice);
    const auto take = [&](VoiceSlot &slot) {
        if (slot.voice != VoiceSlot::Nobody)
            return false;
        slot.voice = voice;
        return true;
    };
    if (preferred != VoiceSlot::Nobody
        && take(staff.voiceSlots[static_cast<std::size_t>(preferred)]))
        return &staff.voiceSlots[static_cast<std::size_t>(preferred)];
    for (auto slot = staff.voiceSlots.rbegin(); slot != staff.voiceSlots.rend(); ++slot)
        if (take(*slot))
            return &*slot;
    return nullptr;
}

/// A slot of another voice that has ended when the note begins.
VoiceSlot *BarBuilder::roomySlot(StaffSlots &staff, const WrittenNote &note)
{
    for (auto &slot : staff.voiceSlots)
        if (!isBefore(note.onset, slot.end, note.tolerance))
            return &slot;
    return nullptr;
}

void BarBuilder::append(VoiceSlot &slot, const WrittenNote &note)
{
    if (isBefore(slot.end, note.onset, note.tolerance))
        _gaps.fill(slot, note.onset, note.node, &note.rhythm);
    auto beat = std::make_shared<Beat>(note.rhythm);
    setMarks(note, *beat);
    if (note.kind == NoteKind::Unknown) {
        beat->setPlaceHolder(true);
        _context.addProblem(note.node,
                            "a note that is neither pitched, unpitched nor a rest was "
                            "left out");
    } else if (note.kind != NoteKind::Rest) {
        beat->addNote(_notes.make(note));
    } else {
        // A rest that is not printed takes time and is not there to be seen.
        beat->setPlaceHolder(note.hidden);
        if (note.wholeMeasure && !note.grace)
            return appendMeasureRest(slot, note, std::move(beat));
    }
    const auto onset = slot.end;
    if (!note.grace)
        slot.end += note.rhythm.getLength();
    _chordBeats[static_cast<std::size_t>(note.staff)] = {&slot, slot.beats.size(), true};
    slot.beats.push_back({onset, std::move(beat), note.beamedOn});
    noteAdded(note, slot, slot.beats.back());
}

/// A rest over the measure, which may be as long as no value is. Where notes of the part end
/// behind it, it fills no bar.
void BarBuilder::appendMeasureRest(VoiceSlot &slot, const WrittenNote &note,
                                   std::shared_ptr<Beat> rest)
{
    const auto onset = slot.end;
    const bool mayFillBar = onset.isZero() && note.length == _measure->length;
    Voice::Beats further;
    if (mayFillBar) {
        _rests.push_back({static_cast<unsigned>(_context.bar()), note.length, rest});
        slot.end += note.length;
    } else {
        if (!isOneValue(*rest, note.length) && findRestRhythms(note.length, _restRhythms)
            && !_restRhythms.empty()) {
            rest->setRhythmValue(_restRhythms.front());
            further = furtherRests(*rest, _restRhythms);
        }
        slot.end += rest->rhythmValue().getLength();
    }
    const auto index = slot.beats.size();
    _chordBeats[static_cast<std::size_t>(note.staff)] = {&slot, index, true};
    slot.beats.push_back({onset, std::move(rest), note.beamedOn});
    noteAdded(note, slot, slot.beats.back());
    if (!further.empty())
        _context.addEmptyNodes(note.node, further.size());
    for (auto &beat : further) {
        const auto length = beat->rhythmValue().getLength();
        slot.beats.push_back({slot.end, std::move(beat)});
        slot.end += length;
    }
}

/// The last resort: the note joins the beat that begins nearest to it.
void BarBuilder::squeezeIn(const WrittenNote &note)
{
    auto &staff = _staves[static_cast<std::size_t>(note.staff)];
    auto *near = beatNear(staff, note.onset);
    if (!near || note.kind == NoteKind::Rest || note.kind == NoteKind::Unknown) {
        _context.addUnheld(note.node);
        _context.addProblem(note.node, "a rest that fits in no voice was left out");
        return;
    }
    _context.addProblem(
        note.node, "a note that fits in no voice joined the beat at " + inQuarters(near->onset));
    near->beat->addNote(_notes.make(note));
    for (auto &slot : staff.voiceSlots)
        if (!slot.beats.empty() && near >= slot.beats.data()
            && near < slot.beats.data() + slot.beats.size()) {
            const auto index = static_cast<std::size_t>(near - slot.beats.data());
            _chordBeats[static_cast<std::size_t>(note.staff)] = {&slot, index, false};
            noteAdded(note, slot, *near);
        }
}

/// The beat with notes whose onset is nearest, or else one without; never a grace beat.
PlacedBeat *BarBuilder::beatNear(StaffSlots &staff, const rational &onset)
{
    PlacedBeat *best = nullptr;
    const auto isBetter = [&](const PlacedBeat &candidate) {
        if (!best || candidate.beat->hasNotes() != best->beat->hasNotes())
            return !best || candidate.beat->hasNotes();
        return utils::abs(candidate.onset - onset) < utils::abs(best->onset - onset);
    };
    for (auto &slot : staff.voiceSlots) {
        const auto middle =
            std::partition_point(slot.beats.begin(), slot.beats.end(),
                                 [&](const PlacedBeat &placed) { return placed.onset < onset; });
        auto placed = middle - std::min(nearBeats, middle - slot.beats.begin());
        const auto end = middle + std::min(nearBeats, slot.beats.end() - middle);
        for (; placed != end; ++placed)
            if (!placed->beat->isGrace() && isBetter(*placed))
                best = &*placed;
    }
    return best;
}

} // namespace zarn::io
