// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/GripFinder.h>

#include <ZarnCore/fingering/GripEffort.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zarn::fingering {

namespace {

constexpr int unlimited = 127;

/// Looks at so many places of notes, and takes so many ways to lay an event.
constexpr int mostSteps = 4000;
constexpr std::size_t mostLayouts = 160;

/// States of what lasts that are told apart.
constexpr std::size_t mostHeld = 20;

/// Efforts that no playable grip comes near.
constexpr float effortOfWidth = 20;
constexpr float effortOfLoss = 60;

/// An open string where they are to be avoided.
constexpr float effortOfAvoided = 8;

/// A note of a broken chord under a tune that is stopped where it could ring open: that binds the
/// hand, and takes the plucking fingers from their strings.
constexpr float effortOfStoppedPedal = 1;

/// An open string for a finger that is given, or the other way round.
constexpr float effortOfOtherFinger = 12;

/// What comes first when notes must go: inner voices before the bass, the bass before the melody.
constexpr float effortOfBass = 5;
constexpr float effortOfMelody = 10;
constexpr float effortOfLock = 500;

bool holdsTheSame(const Grip &left, const Grip &right)
{
    if (left.sounding != right.sounding)
        return false;
    for (std::size_t at = 0; at < Grip::Strings; ++at)
        if ((left.sounding >> at & 1) != 0
            && (left.note[at] != right.note[at] || left.fret[at] != right.fret[at]
                || left.finger[at] != right.finger[at]))
            return false;
    return true;
}

} // namespace

GripFinder::GripFinder(const Passage &passage, const Ringing &ringing,
                       const FingeringWeights &weights)
    : _passage(passage), _ringing(ringing), _weights(weights), _hand(_passage.hand),
      _known(_passage), _pedals(_passage)
{
}

const std::vector<GripFinder::Found> &GripFinder::find(std::size_t event,
                                                       const std::vector<Grip> &previous)
{
    const PassageEvent &at = _passage.events[event];
    collectHeld(at, previous);
    collectPositions(previous);
    collectStrings(at);
    _found.clear();
    for (const bool keepsFingers : {true, false}) {
        _keepsFingers = keepsFingers;
        for (const Strings &strings : _strings)
            addGrips(gripOf(at, strings), at.onset);
        if (!_found.empty() || !hasFingers(at))
            break;
    }
    if (_found.empty()) {
        _isTooWide = true;
        for (const Strings &strings : _strings)
            addGrips(gripOf(at, strings), at.onset);
        _isTooWide = false;
    }
    return _found;
}

bool GripFinder::hasFingers(const PassageEvent &event) const
{
    const auto first = _passage.notes.begin() + event.firstNote;
    return std::any_of(first, first + event.noteCount,
                       [](const PassageNote &note) { return note.finger > 0; });
}

/// What the grips in front hold beyond the onset of an event: each state once.
void GripFinder::collectHeld(const PassageEvent &event, const std::vector<Grip> &previous)
{
    _held.clear();
    std::uint64_t origin = 1;
    for (const Grip &grip : previous) {
        Held held;
        held.origins = origin;
        origin <<= 1;
        for (unsigned bits = grip.sounding; bits != 0; bits &= bits - 1) {
            const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
            if (!_ringing.rings(grip.note[at], event.onset))
                continue;
            const auto bit = static_cast<std::uint16_t>(1U << at);
            held.grip.sounding |= bit;
            held.grip.stopped |= grip.stopped & bit;
            held.grip.fret[at] = grip.fret[at];
            held.grip.finger[at] = grip.finger[at];
            held.grip.note[at] = grip.note[at];
        }
        held.grip.held = held.grip.sounding;
        const auto same = std::find_if(_held.begin(), _held.end(), [&held](const Held &other) {
            return holdsTheSame(held.grip, other.grip);
        });
        if (same != _held.end())
            same->origins |= held.origins;
        else if (_held.size() < mostHeld)
            _held.push_back(held);
    }
    if (_held.empty())
        _held.emplace_back();
}

void GripFinder::collectPositions(const std::vector<Grip> &previous)
{
    constexpr float samePosition = 0.3F;
    _positions.clear();
    for (const Grip &grip : previous) {
        const auto isNear = [&grip](float other) {
            return std::abs(grip.position - other) < samePosition;
        };
        if (std::none_of(_positions.begin(), _positions.end(), isNear))
            _positions.push_back(grip.position);
    }
    if (_positions.empty())
        _positions.push_back(Grip::Anywhere);
}

/// The ways to lay all notes of an event within reach of a hand; where there are none, all notes in
/// any reach; else with as few left out as possible.
void GripFinder::collectStrings(const PassageEvent &event)
{
    _strings.clear();
    const auto count = static_cast<int>(event.noteCount);
    for (int left = std::max(0, count - _passage.fretboard.stringCount()); left <= count; ++left) {
        for (const int span : {static_cast<int>(_passage.hand.mostFrets), unlimited}) {
            _current.assign(event.noteCount, -1);
            _budget = mostSteps;
            Search search;
            search.left = left;
            searchStrings(event, 0, search, span);
            if (!_strings.empty())
                return;
        }
    }
}

bool GripFinder::isOnInstrument(const PassageNote &note) const
{
    for (int string = 0; string < _passage.fretboard.stringCount(); ++string)
        if (fretOn(note, string) >= 0)
            return true;
    return false;
}

int GripFinder::fretOn(const PassageNote &note, int string) const
{
    if (note.string != PassageNote::Free) {
        if (note.string != string)
            return -1;
        return note.fret != PassageNote::Free ? note.fret
                                              : _passage.fretboard.fret(string, note.pitch);
    }
    const int fret = _passage.fretboard.fret(string, note.pitch);
    const bool isAllowed = fret == 0
        || (fret >= _passage.lowestFret && fret <= _passage.highestFret
            && !_passage.fretboard.isDrone(string));
    return isAllowed ? fret : -1;
}

void GripFinder::searchStrings(const PassageEvent &event, std::uint32_t number, Search search,
                               int span)
{
    if (number == event.noteCount) {
        _strings.push_back(_current);
        return;
    }
    const PassageNote &note = _passage.notes[event.firstNote + number];
    for (int string = _passage.fretboard.stringCount() - 1; string >= 0; --string) {
        if (--_budget < 0 || _strings.size() >= mostLayouts)
            return;
        const int fret = (search.taken >> string & 1) != 0 ? -1 : fretOn(note, string);
        if (fret < 0)
            continue;
        Search next = search;
        next.taken |= static_cast<std::uint16_t>(1U << string);
        if (fret > 0) {
            const int place = _passage.fretboard.neckFret(string, fret);
            next.lowest = std::min(search.lowest, place);
            next.highest = std::max(search.highest, place);
            if (next.highest - next.lowest > span)
                continue;
        }
        _current[number] = static_cast<std::int8_t>(string);
        searchStrings(event, number + 1, next, span);
    }
    _current[number] = -1;
    if (search.left > 0) {
        --search.left;
        searchStrings(event, number + 1, search, span);
    }
}

/// The new notes alone, without fingers; `cost` is what is lost.
Grip GripFinder::gripOf(const PassageEvent &event, const Strings &strings) const
{
    Grip grip;
    for (std::size_t number = 0; number < strings.size(); ++number) {
        const PassageNote &note = _passage.notes[event.firstNote + number];
        if (strings[number] < 0) {
            grip.cost += effortOfLoss + (number == 0 ? effortOfMelody : 0)
                + (number + 1 == strings.size() ? effortOfBass : 0)
                + (note.string != PassageNote::Free ? effortOfLock : 0);
            continue;
        }
        const auto at = static_cast<std::size_t>(strings[number]);
        const int fret = fretOn(note, strings[number]);
        const auto bit = static_cast<std::uint16_t>(1U << at);
        const auto number32 = event.firstNote + static_cast<std::uint32_t>(number);
        if (const unsigned known = _known.ofFigure(number32); known != 0 && (known & bit) == 0)
            grip.cost += static_cast<float>(_weights.otherFigure);
        if (const unsigned known = _known.ofPitch(number32); known != 0 && (known & bit) == 0)
            grip.cost += static_cast<float>(_weights.otherString);
        const bool isPedal = fret == 0 && _pedals.contains(number32);
        if (fret > 0 && _pedals.ringsUnderTune(number32))
            grip.cost += effortOfStoppedPedal;
        if (fret < _known.lowestFret(number32) && !isPedal)
            grip.cost += static_cast<float>(_weights.belowPosition);
        grip.sounding |= bit;
        grip.stopped |= fret > 0 ? bit : 0;
        if (fret == 0 && _passage.avoidsOpenStrings)
            grip.cost += effortOfAvoided;
        if (note.finger != PassageNote::Free && (note.finger == 0) != (fret == 0))
            grip.cost += effortOfOtherFinger;
        if (_keepsFingers && note.finger > 0 && fret > 0)
            grip.finger[at] = static_cast<std::int8_t>(note.finger);
        grip.fret[at] = static_cast<std::int8_t>(
            std::min(_passage.fretboard.neckFret(strings[number], fret), unlimited));
        grip.note[at] = event.firstNote + static_cast<std::uint32_t>(number);
    }
    return grip;
}

bool GripFinder::isSamePitch(std::uint32_t left, std::uint32_t right) const
{
    return _passage.notes[left].pitch == _passage.notes[right].pitch;
}

/// A layout with all that may last from before, with what has to, and with what cannot go.
void GripFinder::addGrips(const Grip &grip, double onset)
{
    _parts.clear();
    for (const Held &held : _held) {
        const unsigned sounding = held.grip.sounding;
        const unsigned tied = tiedStrings(grip, held.grip, onset);
        const unsigned all = (sounding & ~static_cast<unsigned>(grip.sounding)) | tied;
        unsigned lasting = 0;
        for (unsigned bits = all & held.grip.stopped; bits != 0; bits &= bits - 1)
            if (_ringing.lasts(held.grip.note[static_cast<std::size_t>(__builtin_ctz(bits))],
                               onset))
                lasting |= bits & -bits;
        const unsigned open = all & ~static_cast<unsigned>(held.grip.stopped);
        addPart(held, all);
        addPart(held, open | tied | lasting);
        addPart(held, open | tied);
    }
    for (const Held &part : _parts)
        addHolding(grip, part);
}

/// Strings that go on with what is tied into an event, whatever else wants them.
unsigned GripFinder::tiedStrings(const Grip &grip, const Grip &held, double onset) const
{
    unsigned tied = 0;
    for (unsigned bits = held.sounding; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        if (_ringing.isTiedOn(held.note[at], onset)
            && !(grip.sounds(static_cast<int>(at)) && isSamePitch(held.note[at], grip.note[at])))
            tied |= 1U << at;
    }
    return tied;
}

/// Adds what lasts on some strings, once, with all that it can come from.
void GripFinder::addPart(const Held &held, unsigned strings)
{
    Held part = held;
    const auto kept = static_cast<std::uint16_t>(strings);
    part.grip.sounding = kept;
    part.grip.held = kept;
    part.grip.stopped &= kept;
    const auto isSame = [&part](const Held &other) { return holdsTheSame(part.grip, other.grip); };
    const auto same = std::find_if(_parts.begin(), _parts.end(), isSame);
    if (same != _parts.end())
        same->origins |= part.origins;
    else
        _parts.push_back(part);
}

/// Holds a layout on top of what lasts. A note that is tied into this event keeps its string: one
/// that wants it too is left out.
void GripFinder::addHolding(const Grip &grip, const Held &held)
{
    Grip whole = grip;
    for (unsigned bits = held.grip.sounding; bits != 0; bits &= bits - 1) {
        const auto at = static_cast<std::size_t>(__builtin_ctz(bits));
        const auto bit = static_cast<std::uint16_t>(1U << at);
        if ((grip.sounding & bit) != 0)
            whole.cost += effortOfLoss;
        whole.sounding |= bit;
        whole.stopped &= static_cast<std::uint16_t>(~bit);
        whole.stopped |= held.grip.stopped & bit;
        whole.held |= bit;
        whole.fret[at] = held.grip.fret[at];
        whole.finger[at] = held.grip.finger[at];
        whole.note[at] = held.grip.note[at];
    }
    _origins = held.origins;
    if (_isTooWide) {
        addUnfingered(whole);
        return;
    }
    if (whole.stopped != 0) {
        addFingered(whole);
        return;
    }
    for (const float position : _positions) {
        whole.position = position;
        addFingered(whole);
    }
}

/// Lays the fingers of a shape on the strings; of the stopped ones, where the hand is.
void GripFinder::layFingers(const chord::HandShape &shape, Grip &grip) const
{
    grip.fingers = 0;
    grip.barred = 0;
    grip.stopCount = 0;
    float sum = 0;
    int count = 0;
    for (std::size_t at = 0; at < Grip::Strings; ++at) {
        if ((grip.stopped >> at & 1) == 0)
            continue;
        const auto finger = static_cast<std::size_t>(shape.fingers[at]) - 1;
        const auto bit = static_cast<std::uint8_t>(1U << finger);
        grip.finger[at] = static_cast<std::int8_t>(shape.fingers[at]);
        ++grip.stopCount;
        if ((grip.fingers & bit) != 0) {
            grip.barred |= bit;
            continue;
        }
        grip.fingers |= bit;
        grip.fretOfFinger[finger] = grip.fret[at];
        grip.stringOfFinger[finger] = static_cast<std::int8_t>(at);
        sum +=
            static_cast<float>(grip.fret[at]) - _passage.hand.spacing * static_cast<float>(finger);
        ++count;
    }
    if (count > 0)
        grip.position = std::max(sum / static_cast<float>(count), 1.F);
}

/// All ways to stop the strings of a layout; those that have a finger keep it.
void GripFinder::addFingered(const Grip &grip)
{
    const int stringCount = _passage.fretboard.stringCount();
    chord::FretRow frets(static_cast<std::size_t>(stringCount));
    chord::FingerRow wanted{};
    for (int string = 0; string < stringCount; ++string) {
        const auto at = static_cast<std::size_t>(string);
        if (!grip.sounds(string))
            continue;
        frets.set(at, grip.fret[at]);
        wanted[at] = static_cast<std::uint8_t>(grip.finger[at]);
    }
    _hand.findShapes(frets, 0, wanted, _shapes);
    for (const chord::HandShape &shape : _shapes) {
        _found.push_back({grip, _origins});
        Grip &found = _found.back().grip;
        layFingers(shape, found);
        found.shape = shape.cost;
        double cost = 0;
        addEffort(found, _passage, _pedals, [&](double FingeringWeights::*weight, float amount) {
            cost += _weights.*weight * static_cast<double>(amount);
        });
        found.cost += static_cast<float>(cost);
    }
}

/// A layout that no hand can hold.
void GripFinder::addUnfingered(Grip grip)
{
    int lowest = unlimited;
    int highest = 0;
    for (std::size_t at = 0; at < Grip::Strings; ++at) {
        if ((grip.stopped >> at & 1) == 0)
            continue;
        lowest = std::min<int>(lowest, grip.fret[at]);
        highest = std::max<int>(highest, grip.fret[at]);
    }
    grip.fingers = 0;
    grip.position = static_cast<float>(lowest);
    grip.cost += effortOfWidth + static_cast<float>(highest - lowest);
    grip.isTooWide = true;
    _found.push_back({grip, _origins});
}

} // namespace zarn::fingering
