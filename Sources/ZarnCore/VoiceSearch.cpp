// SPDX-License-Identifier: MIT
#include <ZarnCore/VoiceSearch.h>

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/Ties.h>

namespace zarn {

namespace {

/// Steps from a beat along the voices of its number.
class BeatSteps {
public:
    BeatSteps(const Beat &beat, SearchDeep deep, Walk walk)
        : _voice(beat.parentVoice()), _beat(beat.index()), _deep(deep),
          _step(walk == Walk::Forwards ? 1 : -1)
    {
        const auto bar = _voice != nullptr ? _voice->parentBar() : nullptr;
        if (bar == nullptr)
            return;
        _staff = bar->parentStaff();
        _bar = bar->index();
        _voiceIndex = _voice->index();
    }

    /// The next beat, or null at the end.
    BeatPointer take()
    {
        if (_voice == nullptr)
            return nullptr;
        _beat += _step;
        while (_beat < 0 || _beat >= static_cast<std::int64_t>(_voice->beatCount())) {
            if (_deep == SearchDeep::Voice || !leaveBar())
                return nullptr;
        }
        return _voice->beats()[static_cast<std::size_t>(_beat)];
    }

private:
    /// Goes to the end of the next bar's voice that is nearer; false when there is none.
    bool leaveBar()
    {
        std::shared_ptr<const Voice> next;
        do {
            _bar += _step;
            if (_staff == nullptr || _bar < 0
                || _bar >= static_cast<std::int64_t>(_staff->barCount()))
                return false;
            next = _staff->bars()[static_cast<std::size_t>(_bar)]->voices()[_voiceIndex];
            const bool isGap = next == nullptr || next->isEmpty();
            if (isGap && _deep == SearchDeep::Connected)
                return false;
            if (isGap)
                next = nullptr;
        } while (next == nullptr);
        _voice = std::move(next);
        _beat = _step > 0 ? 0 : static_cast<std::int64_t>(_voice->beatCount()) - 1;
        return true;
    }

    std::shared_ptr<const Voice> _voice;
    std::shared_ptr<const Staff> _staff;
    std::int64_t _bar = 0;
    std::int64_t _beat;
    unsigned _voiceIndex = 0;
    SearchDeep _deep;
    int _step;
};

bool isInSlot(const Note &candidate, const Note &note, NoteSlot slot)
{
    switch (slot) {
    case NoteSlot::Location:
        return sameLocation(candidate, note);
    case NoteSlot::String:
        return note.string() != Note::Unset && candidate.string() == note.string();
    case NoteSlot::Midi:
        return note.midi() != Note::Unset && candidate.midi() == note.midi();
    case NoteSlot::Any:
        return true;
    }
    return false;
}

NotePointer noteInSlot(const Beat &beat, const Note &note, NoteSlot slot)
{
    for (const auto &candidate : beat.notes()) {
        if (isInSlot(*candidate, note, slot))
            return candidate;
    }
    return nullptr;
}

/// The note of a beat that is held into the beat behind, to a note there.
NotePointer tieOriginInSlot(const Beat &beat, const Note &note, NoteSlot slot)
{
    for (const auto &candidate : beat.notes()) {
        if (candidate->isTieOrigin() && isInSlot(*candidate, note, slot))
            return candidate;
    }
    return nullptr;
}

} // namespace

BeatPointer findBeat(const BeatPointer &beat, const ZarnCoreUtils::BeatPredicate &accepts,
                     const BeatPointer &limit, SearchDeep deep, Walk walk)
{
    if (beat == nullptr || beat == limit)
        return nullptr;
    BeatSteps steps(*beat, deep, walk);
    while (const auto candidate = steps.take()) {
        if (accepts(candidate))
            return candidate;
        if (candidate == limit)
            return nullptr;
    }
    return nullptr;
}

NotePointer findNote(const NotePointer &note, const ZarnCoreUtils::NotePredicate &accepts,
                     const NotePointer &limit, SearchDeep deep, Walk walk)
{
    const BeatPointer start = note != nullptr ? note->parentBeat() : nullptr;
    if (start == nullptr || note == limit)
        return nullptr;
    const int step = walk == Walk::Forwards ? 1 : -1;
    BeatSteps steps(*start, deep, walk);
    int place = start->indexOfNote(*note) + step;
    for (BeatPointer beat = start; beat != nullptr;) {
        for (const int count = static_cast<int>(beat->noteCount()); place >= 0 && place < count;
             place += step) {
            const NotePointer candidate = beat->notes()[static_cast<std::size_t>(place)];
            if (accepts(candidate))
                return candidate;
            if (candidate == limit)
                return nullptr;
        }
        beat = steps.take();
        place = beat != nullptr && step < 0 ? static_cast<int>(beat->noteCount()) - 1 : 0;
    }
    return nullptr;
}

NotePointer findFirstNote(const NotePointer &note, NoteSlot slot, Walk walk)
{
    const auto start = note != nullptr ? note->parentBeat() : nullptr;
    if (start == nullptr)
        return nullptr;
    BeatSteps steps(*start, SearchDeep::Staff, walk);
    while (const auto beat = steps.take()) {
        if (const auto found = noteInSlot(*beat, *note, slot))
            return found;
    }
    return nullptr;
}

NotePointer findTieOriginNote(const NotePointer &note, NoteSlot slot)
{
    const auto start = note != nullptr && note->isTied() ? note->parentBeat() : nullptr;
    if (start == nullptr)
        return nullptr;
    BeatSteps steps(*start, SearchDeep::Connected, Walk::Backwards);
    NotePointer held = note;
    while (held != nullptr && held->isTied()) {
        const auto beat = steps.take();
        held = beat != nullptr ? tieOriginInSlot(*beat, *held, slot) : nullptr;
    }
    return held;
}

NotePointer findBendOriginNote(const NotePointer &note, NoteSlot slot)
{
    const auto start = note != nullptr ? note->parentBeat() : nullptr;
    if (start == nullptr)
        return nullptr;
    BeatSteps steps(*start, SearchDeep::Connected, Walk::Backwards);
    while (const auto beat = steps.take()) {
        if (!beat->hasNotes())
            return nullptr;
        if (const auto found = noteInSlot(*beat, *note, slot)) {
            const auto struck = findTieOriginNote(found, slot);
            return struck != nullptr ? struck : found;
        }
    }
    return nullptr;
}

} // namespace zarn
