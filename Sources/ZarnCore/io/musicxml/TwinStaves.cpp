// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/TwinStaves.h>

#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>

#include <algorithm>
#include <functional>

namespace zarn::io {

using utils::rational;

namespace {

/// What the pitches of a tablature may be away from those of the notes: as they are, or an octave,
/// where one of the two is written as it sounds.
constexpr int octaves[] = {0, 12, -12};

bool isFingered(const Note &note)
{
    return note.string() != Note::Unset && note.fret() != Note::Unset;
}

/// What a staff of notes has of its own: how its beats are drawn, and where they are.
constexpr BeatAttributeSet ofTheNotes = {
    BeatAttribute::Rhythm,          BeatAttribute::GraceType, BeatAttribute::SlashedGrace,
    BeatAttribute::PlaceHolder,     BeatAttribute::Ottavia,   BeatAttribute::WholeBarRest,
    BeatAttribute::Dynamic,         BeatAttribute::Text,      BeatAttribute::Chord,
    BeatAttribute::StemOrientation, BeatAttribute::BeamMode,  BeatAttribute::TextBelow,
    BeatAttribute::DynamicSide,
};

constexpr BeatAttributeSet ofSlurs = {
    BeatAttribute::SlurredToNext, BeatAttribute::SlurredToPrevious, BeatAttribute::SlurBegins,
    BeatAttribute::SlurEnds,      BeatAttribute::SlurLine,          BeatAttribute::SlurSide};

bool hasSlurs(const Staff::Bars &bars)
{
    for (const auto &bar : bars)
        for (const auto &voice : bar->voices())
            if (voice)
                for (const auto &beat : voice->beats())
                    if (beat->isSlurredToNext() || !beat->slurEnds().empty())
                        return true;
    return false;
}

/// A text with words that it lacks.
std::string withWordsOf(const std::string &text, const std::string &other)
{
    if (text.find(other) != std::string::npos)
        return text;
    return text + (text.empty() ? "" : "\n") + other;
}

/// Takes all other notes out of a beat, which becomes a place holder without any.
template <typename Predicate>
void keepOnly(Beat &beat, Predicate isKept)
{
    if (beat.isRest())
        beat.setPlaceHolder(true);
    for (auto i = static_cast<unsigned>(beat.notes().size()); i-- > 0;)
        if (!isKept(beat.notes()[i]))
            beat.removeNote(i);
    if (beat.notes().empty())
        beat.setPlaceHolder(true);
}

} // namespace

TwinStaves::TwinStaves(ImportContext &context, PartFacts &facts, StaffBars &bars, PartTally &tally)
    : _context(context), _facts(facts), _bars(bars), _tally(tally), _hasTwin(bars.size())
{
}

void TwinStaves::merge()
{
    for (std::size_t staff = 0; staff < _bars.size();) {
        const auto notes = _facts.staves[staff].tablature ? staffOfNotes(staff) : staff;
        if (notes != staff && isTwin(notes, staff)) {
            mergeStaff(notes, staff);
            dropStaff(staff);
        } else {
            ++staff;
        }
    }
}

/// The nearest staff with notes that may be a tablature's twin, one above it before one below; the
/// tablature itself when there is none.
std::size_t TwinStaves::staffOfNotes(std::size_t tablature) const
{
    const auto isFree = [&](std::size_t staff) {
        return !_facts.staves[staff].tablature && !_hasTwin[staff];
    };
    for (auto staff = tablature; staff-- > 0;)
        if (isFree(staff))
            return staff;
    for (auto staff = tablature + 1; staff < _bars.size(); ++staff)
        if (isFree(staff))
            return staff;
    return tablature;
}

bool TwinStaves::areEqual(std::size_t notes, std::size_t tablature, int octave) const
{
    bool any = false;
    for (std::size_t bar = 0; bar < _bars[notes].size(); ++bar) {
        const auto own = notesOf(*_bars[notes][bar], 0);
        const auto twin = notesOf(*_bars[tablature][bar], octave);
        const bool equal = std::equal(own.begin(), own.end(), twin.begin(), twin.end(),
                                      [](const PlacedNote &left, const PlacedNote &right) {
                                          return left.key() == right.key();
                                      });
        if (!equal)
            return false;
        any = any || !own.empty();
    }
    return any;
}

std::size_t TwinStaves::matches(std::size_t notes, std::size_t tablature, int octave) const
{
    std::size_t count = 0;
    for (std::size_t bar = 0; bar < _bars[notes].size(); ++bar)
        count += pairedByTime(*_bars[notes][bar], *_bars[tablature][bar], octave).pairs.size();
    return count;
}

bool TwinStaves::isTwin(std::size_t notes, std::size_t tablature)
{
    for (const int octave : octaves) {
        _octave = octave;
        if (areEqual(notes, tablature, octave))
            return true;
    }
    if (!_facts.staves[notes].alternate && !_facts.staves[tablature].alternate)
        return false;
    std::size_t most = 0;
    _octave = 0;
    for (const int octave : octaves) {
        const auto count = matches(notes, tablature, octave);
        if (count > most)
            _octave = octave;
        most = std::max(most, count);
    }
    return true;
}

void TwinStaves::mergeStaff(std::size_t notes, std::size_t tablature)
{
    _hasSlurs = hasSlurs(_bars[notes]);
    for (std::size_t bar = 0; bar < _bars[notes].size(); ++bar)
        mergeBar(static_cast<int>(bar), *_bars[notes][bar], *_bars[tablature][bar]);
    auto &staff = _facts.staves[notes];
    const auto &twin = _facts.staves[tablature];
    if (!staff.tuning.empty() && !twin.tuning.empty() && staff.tuning != twin.tuning)
        _context.addProblem({},
                            "a staff and its tablature have different tunings; that of the "
                            "tablature holds");
    if (_facts.transpositions.empty() && _octave == 12) {
        // Notes for a guitar are often written an octave above what sounds and do not say so.
        _facts.chromatic = -12;
        _context.addProblem({},
                            "the tablature sounds an octave below the notes, which was taken "
                            "for their transposition");
    }
    if (!twin.tuning.empty())
        staff.tuning = twin.tuning;
    if (twin.capo != 0)
        staff.capo = twin.capo;
    staff.lines = twin.lines;
    staff.tablature = true;
    staff.hasTwin = true;
    _hasTwin[notes] = true;
}

void TwinStaves::mergeBar(int number, Bar &bar, Bar &twin)
{
    countDropped(twin);
    auto notes = pairedByTime(bar, twin, _octave);
    if (!notes.ownAlone.empty() && !notes.twinAlone.empty())
        pairByOrder(bar, twin, _octave, notes);
    BeatPairs beats;
    for (const auto &[own, other] : notes.pairs) {
        beats.insert({other.beat.get(), own.beat.get()});
        takeFrom(number, own, other);
    }
    takeMarks(number, twin, notes.own, beats);
    const auto hasTablature = !notes.pairs.empty() || !notes.twinAlone.empty();
    if (!notes.twinAlone.empty() || (!notes.ownAlone.empty() && hasTablature))
        _context.addProblemInBar(number, {},
                                 "a staff and its tablature differ; notes on the staff alone: "
                                     + std::to_string(notes.ownAlone.size())
                                     + ", in the tablature alone: "
                                     + std::to_string(notes.twinAlone.size()) + "; all were kept");
    if (!notes.twinAlone.empty())
        keepAlone(bar, twin, notes.own, notes.twinAlone);
}

/// Tells what contradicts, once for a bar.
void TwinStaves::tellOnce(int bar, const char *text)
{
    if (_told[text] == bar + 1)
        return;
    _told[text] = bar + 1;
    _context.addProblemInBar(bar, {}, text);
}

/// Two notes become one.
void TwinStaves::takeFrom(int number, const PlacedNote &own, const PlacedNote &twin)
{
    auto &note = *own.note;
    const auto &other = *twin.note;
    const bool bothFingered = isFingered(note) && isFingered(other);
    if (bothFingered && (note.string() != other.string() || note.fret() != other.fret()))
        tellOnce(number, "a note has another string or fret than in its tablature, which holds");
    if (isFingered(other)) {
        note.setString(other.string());
        note.setFret(other.fret());
    }
    note.setTied(note.isTied() || other.isTied());
    note.setTieOrigin(note.isTieOrigin() || other.isTieOrigin());
    if (!note.isGhost())
        note.setAntiAccent(other.antiAccent());
    note.setDead(note.isDead() || other.isDead());
    if (!other.isCommon()) {
        for (const auto &row : noteAttributes())
            if (row.isDefault(note) && !row.isDefault(other))
                row.set(note, row.get(other));
        mendExclusions(*own.beat);
    }
    if (own.beat->length() != twin.beat->length())
        tellOnce(number, "a note is longer or shorter than in its tablature; its own length holds");
    auto &merged = _tally.merged;
    ++merged.total;
    ++merged.pitched;
    merged.grace += twin.isGrace;
    merged.graceSlashed += twin.beat->isSlashedGrace();
    merged.withFret += bothFingered;
    _tally.mergedMidiSum += static_cast<std::uint64_t>(std::max(other.midi(), 0));
}

/// Keeps notes that the tablature alone has: on a beat that begins with them, else in a voice of
/// their own, else on the beat before.
void TwinStaves::keepAlone(Bar &bar, Bar &twin, const PlacedNotes &own, const PlacedNotes &alone)
{
    std::vector<const Note *> left;
    const auto isLeft = [&](const std::shared_ptr<Note> &note) {
        return std::binary_search(left.begin(), left.end(), note.get(), std::less<>());
    };
    const auto move = [](const PlacedNote &placed, Beat &beat) {
        placed.beat->removeNote(placed.note);
        beat.addNote(placed.note);
    };
    for (const auto &placed : alone) {
        if (_octave != 0)
            placed.note->setMidi(std::clamp(placed.pitch, 0, 127));
        if (const auto *const near = nearest(own, placed); near && near->isAtBeatOf(placed))
            move(placed, *near->beat);
        else
            left.push_back(placed.note.get());
    }
    std::sort(left.begin(), left.end(), std::less<>());
    for (unsigned number = 0; number < Bar::MaxVoices; ++number) {
        const auto voice = twin.voices()[number];
        const bool any = voice
            && std::any_of(voice->beats().begin(), voice->beats().end(), [&](const auto &beat) {
                             return std::any_of(beat->notes().begin(), beat->notes().end(), isLeft);
                         });
        if (!any)
            continue;
        unsigned slot = 0;
        while (slot < Bar::MaxVoices && bar.voices()[slot])
            ++slot;
        if (slot == Bar::MaxVoices)
            break;
        for (auto i = static_cast<unsigned>(voice->beats().size()); i-- > 0;) {
            auto &beat = *voice->beats()[i];
            keepOnly(beat, isLeft);
            if (beat.isGrace() && !beat.hasNotes())
                voice->removeBeat(i);
        }
        twin.setVoice(number, nullptr);
        bar.setVoice(slot, voice);
        left.erase(std::remove_if(left.begin(), left.end(),
                                  [&](const Note *note) {
                                      const auto beat = note->parentBeat();
                                      return beat && beat->parentVoice() == voice;
                                  }),
                   left.end());
    }
    for (const auto &placed : alone)
        if (const auto *const near = nearest(own, placed); near && isLeft(placed.note))
            move(placed, *near->beat);
}

/// Takes over what stands over the beats of the tablature and not over those of the notes: of the
/// beats whose notes became one, else of those at the place.
void TwinStaves::takeMarks(int number, const Bar &twin, const PlacedNotes &own,
                           const BeatPairs &pairs)
{
    if (own.empty())
        return;
    for (const auto &voice : twin.voices()) {
        if (!voice)
            continue;
        rational onset = 0;
        for (const auto &beat : voice->beats()) {
            const auto at = onset;
            onset += beat->length();
            const bool hasDynamic = beat->dynamic() != NoteDynamic();
            if (!hasDynamic && beat->isCommon())
                continue;
            const auto pair = pairs.find(beat.get());
            auto &target = pair != pairs.end()
                ? *pair->second
                : *nearest(own, {at, beat->isGrace(), 0, nullptr, beat})->beat;
            if (hasDynamic && target.dynamic() == NoteDynamic()) {
                target.setDynamic(beat->dynamic());
                target.setDynamicSide(beat->dynamicSide());
            } else if (hasDynamic && target.dynamic() != beat->dynamic())
                tellOnce(number, "a dynamic differs from that of the tablature; it holds");
            target.setText(withWordsOf(target.text(), beat->text()));
            target.setTextBelow(withWordsOf(target.textBelow(), beat->textBelow()));
            if (target.chordSymbol().empty())
                target.setChordSymbol(beat->chordSymbol());
            takeAttributes(*beat, target);
        }
    }
}

/// Takes over what a beat of the tablature has and that of the notes has not; rests say it
/// themselves. Slurs come from one of the two staves alone.
void TwinStaves::takeAttributes(const Beat &twin, Beat &beat) const
{
    if (twin.isCommon() || !twin.hasNotes())
        return;
    for (const auto &row : beatAttributes()) {
        const bool isTaken = !ofTheNotes.has(row.id) && !(_hasSlurs && ofSlurs.has(row.id));
        if (isTaken && row.isDefault(beat) && !row.isDefault(twin))
            row.set(beat, row.get(twin));
    }
    mendExclusions(beat);
}

/// Rests of a tablature are those of its notes.
void TwinStaves::countDropped(const Bar &twin)
{
    for (const auto &voice : twin.voices())
        if (voice)
            for (const auto &beat : voice->beats())
                if (beat->isRest()) {
                    ++_tally.merged.total;
                    ++_tally.merged.rests;
                }
}

void TwinStaves::dropStaff(std::size_t staff)
{
    // Staves that were dropped before this one stood above it.
    const auto written = static_cast<std::uint32_t>(staff + _tally.mergedStaves.size());
    _tally.mergedStaves.push_back(written);
    const auto place = static_cast<std::ptrdiff_t>(staff);
    _bars.erase(_bars.begin() + place);
    _hasTwin.erase(_hasTwin.begin() + place);
    _facts.staves.erase(_facts.staves.begin() + place);
    const auto renumber = [staff](auto &items) {
        const auto number = static_cast<int>(staff);
        items.erase(std::remove_if(items.begin(), items.end(),
                                   [&](const auto &item) { return item.staff == number; }),
                    items.end());
        for (auto &item : items)
            item.staff -= item.staff > number;
    };
    renumber(_facts.clefs);
    renumber(_facts.measureRepeats);
}

} // namespace zarn::io
