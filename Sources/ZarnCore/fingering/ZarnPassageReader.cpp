// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/ZarnPassageReader.h>

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/notes/Ties.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <utility>

namespace zarn::fingering {

namespace {

constexpr double graceLength = 0.0625;

/// When a note begins, exactly: grace notes in front of what they lead to.
struct Moment {
    unsigned bar;
    utils::rational offset;
    int gracesToGo;

    bool isBefore(const Moment &other) const
    {
        if (bar != other.bar)
            return bar < other.bar;
        if (offset != other.offset)
            return offset < other.offset;
        return gracesToGo > other.gracesToGo;
    }
};

/// A note that is struck, with those tied to it.
struct Strike {
    Moment moment;
    double onset = 0;
    PassageNote note;
    unsigned voice = 0;
    bool isChosen = false; ///< some part of it was asked for
    const Note *last = nullptr;
    std::size_t leadsFrom = noStrike;
    static constexpr std::size_t noStrike = SIZE_MAX;
};

/// Whether a note leads to the next one on its string.
bool leadsOn(const Note &note)
{
    return note.isHopo() || note.slideOut() == SlideOut::Shift
        || note.slideOut() == SlideOut::Legato;
}

class Reader {
public:
    Reader(const Staff &staff, const std::vector<BeatSpan> &spans, const FingeringOptions &options);

    void read();

private:
    struct BeatPlace {
        unsigned bar;
        unsigned voice;
        unsigned beat;
        bool isChosen;
        double barEnd; ///< in quarters
    };
    using Sounding = std::vector<std::size_t>; ///< strikes of the beat in front

    bool isChosen(unsigned bar, unsigned voice, unsigned beat) const;
    void readVoice(const Bar &bar, unsigned slot, double start);
    void readBeat(const Beat &beat, const BeatPlace &place, Strike strike);
    int pitchOf(const Note &note) const;
    bool mayMove(const Note &note) const;
    void fix(PassageNote &strike, const Note &note) const;
    void readMarks(Strike &strike, const Note &note, const BeatPlace &place) const;
    void lead(const Sounding &before, const Sounding &here);
    std::size_t strikeTiedTo(const Note &note, const Sounding &before) const;
    void makeEvents();
    void addEvent(std::size_t first, std::size_t last);

    const Staff &_staff;
    const FingeringOptions &_options;
    std::map<std::pair<unsigned, unsigned>, std::pair<unsigned, unsigned>> _chosen;
    unsigned _firstBar = 0;
    unsigned _endBar = 0;
    std::vector<Strike> _strikes;
    std::array<Sounding, Bar::MaxVoices> _before;
    std::vector<std::size_t> _order;
    std::vector<std::uint32_t> _noteOfStrike;

public:
    ReadPassage result;
};

Reader::Reader(const Staff &staff, const std::vector<BeatSpan> &spans,
               const FingeringOptions &options)
    : _staff(staff), _options(options), result{Passage(staff), {}}
{
    Passage &passage = result.passage;
    passage.lowestFret = std::max(options.lowestFret, 1);
    if (options.highestFret >= 0)
        passage.highestFret = options.highestFret;
    passage.avoidsOpenStrings = options.openStrings == OpenStrings::Avoided;
    if (options.widestSpan >= 0)
        passage.hand = chord::handOfSpan(passage.hand, options.widestSpan);
    if (spans.empty())
        return;
    for (const BeatSpan &span : spans)
        _chosen[{span.bar, span.voice}] = {span.firstBeat, span.lastBeat};
    const unsigned first = spans.front().bar;
    _firstBar = first == 0 ? 0 : first - 1;
    _endBar = std::min(spans.back().bar + 2, staff.barCount());
}

bool Reader::isChosen(unsigned bar, unsigned voice, unsigned beat) const
{
    const auto found = _chosen.find({bar, voice});
    return found != _chosen.end() && beat >= found->second.first && beat <= found->second.second;
}

void Reader::read()
{
    double start = 0;
    for (unsigned number = _firstBar; number < _endBar; ++number) {
        const Bar &bar = *_staff.bars()[number];
        utils::rational length;
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
            const Voice *const voice = bar.voices()[slot].get();
            if (voice == nullptr || voice->isEmpty()) {
                _before[slot].clear();
                continue;
            }
            readVoice(bar, slot, start);
            length = std::max(length, voice->length());
        }
        start += (length.isZero() ? bar.length() : length).toDouble();
    }
    makeEvents();
}

void Reader::readVoice(const Bar &bar, unsigned slot, double start)
{
    utils::rational offset;
    const auto &beats = bar.voices()[slot]->beats();
    const unsigned number = bar.index();
    const double barEnd = start + bar.length().toDouble();
    for (unsigned i = 0; i < beats.size(); ++i) {
        const Beat &beat = *beats[i];
        int graces = 0;
        while (i + static_cast<unsigned>(graces) < beats.size()
               && beats[i + static_cast<unsigned>(graces)]->isGrace())
            ++graces;
        Strike strike;
        strike.moment = {number, offset, graces};
        strike.onset = start + offset.toDouble() - graces * graceLength;
        const utils::rational length = beat.length();
        strike.note.end = strike.onset + (graces > 0 ? graceLength : length.toDouble());
        strike.voice = slot;
        readBeat(beat, {number, slot, i, isChosen(number, slot, i), barEnd}, strike);
        offset += length;
    }
}

int Reader::pitchOf(const Note &note) const
{
    const int pitch = result.passage.fretboard.pitch(note.string(), note.fret());
    return pitch >= 0 ? pitch : note.midi();
}

/// Whether a note that was asked for is free to go to another string.
bool Reader::mayMove(const Note &note) const
{
    if (note.string() == Note::Unset)
        return true;
    const bool isTouched = note.harmonic().type == HarmonicType::Natural;
    return !note.isDead() && !isTouched && _options.given != GivenStrings::Kept
        && !(_options.given == GivenStrings::KeptOpen && note.fret() == 0);
}

void Reader::fix(PassageNote &strike, const Note &note) const
{
    strike.string = note.string();
    strike.fret = note.fret() != Note::Unset ? note.fret() : PassageNote::Free;
}

/// How a note sounds on, and the finger that the player has given it.
void Reader::readMarks(Strike &strike, const Note &note, const BeatPlace &place) const
{
    if (note.letsRing())
        strike.note.ringsUntil = std::max(strike.note.ringsUntil, place.barEnd);
    const bool isGiven = !place.isChosen || _options.given == GivenStrings::Kept;
    const Fingering finger = note.leftFingering();
    if (!isGiven || finger == Fingering::None || finger == Fingering::Thumb)
        return;
    strike.note.finger = finger == Fingering::Open
        ? 0
        : static_cast<int>(finger) - static_cast<int>(Fingering::Index) + 1;
}

/// Finds the notes that hammer-ons, pull-offs and slides of the beat in front lead to: those on the
/// same strings, else the nearest.
void Reader::lead(const Sounding &before, const Sounding &here)
{
    for (const std::size_t from : before) {
        if (!leadsOn(*_strikes[from].last))
            continue;
        const Note &leading = *_strikes[from].last;
        std::size_t nearest = Strike::noStrike;
        int least = 0;
        for (const std::size_t to : here) {
            const Strike &strike = _strikes[to];
            if (to == from || strike.leadsFrom != Strike::noStrike)
                continue;
            const bool isSameString =
                leading.string() != Note::Unset && leading.string() == strike.last->string();
            const int distance =
                isSameString ? -1 : std::abs(strike.note.pitch - _strikes[from].note.pitch);
            if (nearest != Strike::noStrike && distance >= least)
                continue;
            nearest = to;
            least = distance;
        }
        if (nearest == Strike::noStrike)
            continue;
        constexpr double shortly = 1e-3;
        Strike &reached = _strikes[nearest];
        PassageNote &held = _strikes[from].note;
        reached.leadsFrom = from;
        held.end = std::max(held.end, reached.onset);
        held.tiedUntil = std::max(held.tiedUntil, reached.onset - shortly);
    }
}

std::size_t Reader::strikeTiedTo(const Note &note, const Sounding &before) const
{
    for (const std::size_t at : before)
        if (note.isTied() && _strikes[at].last->isTieOrigin()
            && sameLocation(*_strikes[at].last, note))
            return at;
    return _strikes.size();
}

void Reader::readBeat(const Beat &beat, const BeatPlace &place, Strike strike)
{
    Sounding here;
    const Sounding &before = _before[place.voice];
    for (unsigned i = 0; i < beat.noteCount(); ++i) {
        const Note &note = *beat.notes()[i];
        const int pitch = pitchOf(note);
        if (pitch < 0)
            continue;
        const std::size_t at = strikeTiedTo(note, before);
        if (at == _strikes.size()) {
            _strikes.push_back(strike);
            _strikes.back().note.pitch = pitch;
        } else {
            PassageNote &held = _strikes[at].note;
            held.end = strike.note.end;
            held.tiedUntil = strike.onset;
            if (held.pitch != pitch && note.string() != Note::Unset)
                fix(held, note);
        }
        Strike &struck = _strikes[at];
        struck.last = &note;
        readMarks(struck, note, place);
        here.push_back(at);
        if (note.string() != Note::Unset && (!place.isChosen || !mayMove(note)))
            fix(struck.note, note);
        if (!place.isChosen)
            continue;
        struck.isChosen = true;
        result.sources.push_back({place.bar, place.beat, i, static_cast<std::uint32_t>(at),
                                  static_cast<std::uint8_t>(place.voice)});
    }
    lead(before, here);
    _before[place.voice] = std::move(here);
}

/// Puts the strikes in order and what begins together into events. Around what was asked for, only
/// notes on strings count.
void Reader::makeEvents()
{
    for (std::size_t i = 0; i < _strikes.size(); ++i)
        if (_strikes[i].isChosen || _strikes[i].note.string != PassageNote::Free)
            _order.push_back(i);
    std::stable_sort(_order.begin(), _order.end(), [this](std::size_t left, std::size_t right) {
        const Strike &a = _strikes[left];
        const Strike &b = _strikes[right];
        if (a.moment.isBefore(b.moment) || b.moment.isBefore(a.moment))
            return a.moment.isBefore(b.moment);
        return a.note.pitch > b.note.pitch;
    });
    _noteOfStrike.assign(_strikes.size(), PassageNote::NoNote);
    for (std::size_t first = 0; first < _order.size();) {
        std::size_t last = first + 1;
        while (last < _order.size()
               && !_strikes[_order[first]].moment.isBefore(_strikes[_order[last]].moment))
            ++last;
        addEvent(first, last);
        first = last;
    }
    for (const std::size_t at : _order)
        if (const std::size_t from = _strikes[at].leadsFrom; from != Strike::noStrike)
            result.passage.notes[_noteOfStrike[at]].leadsFrom = _noteOfStrike[from];
    for (PassageSource &source : result.sources)
        source.passageNote = _noteOfStrike[source.passageNote];
}

/// One event of the strikes from `first` to before `last`. A pitch that two voices strike is one
/// note, unless their strings are fixed apart.
void Reader::addEvent(std::size_t first, std::size_t last)
{
    Passage &passage = result.passage;
    double onset = _strikes[_order[first]].onset;
    if (!passage.events.empty())
        onset = std::max(onset, passage.events.back().onset);
    passage.addEvent(onset);
    for (std::size_t i = first; i < last; ++i) {
        const Strike &strike = _strikes[_order[i]];
        const Strike *const above = i > first ? &_strikes[_order[i - 1]] : nullptr;
        if (above != nullptr && above->note.pitch == strike.note.pitch
            && above->voice != strike.voice) {
            PassageNote &whole = passage.notes.back();
            const bool isFree = strike.note.string == PassageNote::Free;
            if (isFree || whole.string == PassageNote::Free || whole.string == strike.note.string) {
                whole.end = std::max(whole.end, strike.note.end);
                whole.tiedUntil = std::max(whole.tiedUntil, strike.note.tiedUntil);
                whole.ringsUntil = std::max(whole.ringsUntil, strike.note.ringsUntil);
                whole.finger =
                    whole.finger != PassageNote::Free ? whole.finger : strike.note.finger;
                if (!isFree) {
                    whole.string = strike.note.string;
                    whole.fret = strike.note.fret;
                }
                _noteOfStrike[_order[i]] = static_cast<std::uint32_t>(passage.notes.size() - 1);
                continue;
            }
        }
        passage.addNote(strike.note);
        _noteOfStrike[_order[i]] = static_cast<std::uint32_t>(passage.notes.size() - 1);
    }
}

} // namespace

bool canBeFingered(const Staff &staff)
{
    return staff.isFretted()
        && staff.tuning().stringCount() <= static_cast<unsigned>(StaffFrets::MostStrings);
}

ReadPassage readPassage(const Staff &staff, const std::vector<BeatSpan> &spans,
                        const FingeringOptions &options)
{
    Reader reader(staff, spans, options);
    reader.read();
    return std::move(reader.result);
}

} // namespace zarn::fingering
