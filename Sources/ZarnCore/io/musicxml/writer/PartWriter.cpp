// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/PartWriter.h>

#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/io/musicxml/writer/VoiceOrder.h>
#include <ZarnCore/io/musicxml/writer/XmlSink.h>

#include <algorithm>

namespace zarn::io {

using utils::rational;

PartWriter::PartWriter(const PartPlan &plan, int track, const ScorePlan &score,
                       ExportContext &context, XmlSink &sink)
    : _plan(plan), _track(track), _score(score), _context(context), _sink(sink),
      _attributes(plan, *score.model->masterTrack(), context),
      _directions(*score.model->masterTrack(), context),
      _crossed(plan, *score.model->masterTrack()),
      _notes(plan.staves().size(), NoteWriter(plan, _stock, context)),
      _ottavias(plan.staves().size(), Ottavia::None)
{
    for (std::size_t staff = 0; staff < plan.staves().size(); ++staff)
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot)
            _signs.emplace_back(_numbers, static_cast<int>(_signs.size()),
                                plan.staves()[staff].isAlternate, context);
}

void PartWriter::write()
{
    _sink.write(" <part id=\"" + _plan.id() + "\">\n");
    for (unsigned bar = 0; bar < master().masterBarCount(); ++bar)
        writeMeasure(bar);
    _sink.write(" </part>\n");
}

void PartWriter::writeMeasure(unsigned bar)
{
    _context.setPlace(_track, static_cast<int>(bar));
    if (_stock.isFull())
        _stock.start(_document);
    auto measure = _document.append_child("measure");
    addAttribute(measure, "number", _score.numbers[bar]);
    const auto &column = *master().masterBars()[bar];
    const bool isShort = column.length() < column.timeSignature().barLength();
    if (bar == 0 && (master().hasAnacrusis() || isShort))
        addAttribute(measure, "implicit", master().hasAnacrusis() ? "yes" : "no");
    const auto divisions = _plan.divisionsOfBar(bar);
    if (!divisions.areExact)
        _context.addProblem("lengths that no division has in common were rounded");
    _barDivisions = divisions.count;
    _cursor.start(measure, _barDivisions);
    if (_track == 0 && _score.systemStarts[bar])
        addAttribute(addElement(measure, "print"), "new-system", "yes");
    writeLeftBarline(column, _score.endings[bar], _context, measure);
    _fifths = _attributes.write(bar, _cursor);
    if (_track == 0)
        _directions.writeBarStart(bar, _cursor);
    // What stands behind the notes tells that the bar goes on.
    const bool goesOn = _attributes.reachesBehindNotes() || _plan.reach()[bar] < _cursor.latest();
    const bool isPadded = _score.padding[bar] == _track || goesOn;
    _end = isPadded ? _score.lengths[bar] : _plan.reach()[bar];
    for (std::size_t staff = 0; staff < _plan.staves().size(); ++staff) {
        const auto &written = _plan.staves()[staff];
        _notes[staff].startBar(*written.staff->bars()[bar], _fifths);
        _notes[staff].setFermatas(_score.fermatas[bar]);
        if (bar == 0
            && (_plan.hasLateVoices(static_cast<unsigned>(written.index))
                || _crossed.hasGuests(staff)))
            claimVoices(staff);
    }
    if (_plan.contentOf(bar).hasNumberedSlurs)
        for (const auto staff : staffOrder(_plan.staves(), bar))
            writeStaff(staff, bar);
    else
        for (std::size_t staff = 0; staff < _plan.staves().size(); ++staff)
            writeStaff(staff, bar);
    _cursor.passAll();
    if (_cursor.now() < _end)
        _cursor.moveTo(_end);
    if (_track == 0)
        _directions.writeBarEnd(bar, measure);
    writeRightBarline(master(), bar, _score.endings[bar], measure);
    measure.print(_sink, " ", pugi::format_indent, pugi::encoding_utf8, 2);
}

VoicePlace PartWriter::placeOf(std::size_t staff, unsigned slot) const
{
    VoicePlace place;
    place.staff = &_plan.staves()[staff];
    place.slot = slot;
    place.staffNumber = static_cast<int>(staff) + 1;
    const auto *const host = _crossed.hostOf({staff, slot});
    place.voiceNumber = static_cast<int>(host ? host->staff * Bar::MaxVoices + host->slot
                                              : staff * Bar::MaxVoices + slot)
        + 1;
    place.hasSeveralStaves = _plan.staves().size() > 1;
    return place;
}

LineSigns &PartWriter::signsOf(std::size_t staff, unsigned slot)
{
    return _signs[staff * Bar::MaxVoices + slot];
}

/// Tells readers which voice is which slot of the staff, before they turn up in another order.
void PartWriter::claimVoices(std::size_t staff)
{
    _cursor.moveTo(0);
    // No longer than the notes, or readers fill the bar up to there.
    const auto &reach = _plan.reach().front();
    const auto length = reach > rational(0) ? reach : _score.lengths.front();
    for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
        leaveTime(0, length, placeOf(staff, slot));
        _cursor.moveTo(0);
    }
}

/// Goes on to the end of time in which a voice has no beats.
void PartWriter::leaveTime(const rational &begin, const rational &end, const VoicePlace &place)
{
    rational length;
    try {
        length = end - begin;
    } catch (const CoreException &) { // past what a fraction holds
        return;
    }
    auto forward = _cursor.add("forward");
    addElement(forward, "duration", static_cast<long long>(_cursor.advance(length)));
    addElement(forward, "voice", place.voiceNumber);
    addElement(forward, "staff", place.staffNumber);
}

void PartWriter::writeStaff(std::size_t staff, unsigned bar)
{
    const auto &written = _plan.staves()[staff];
    const auto &source = *written.staff->bars()[bar];
    if (!written.isAlternate)
        findOttavias(staff, bar);
    else
        _changes.clear();
    for (const auto slot : _plan.contentOf(bar).hasNumberedSlurs ? slotOrder(source) : usualSlots) {
        const StaffVoice place = {staff, static_cast<unsigned>(slot)};
        const auto *const guest = _crossed.guestOf(place);
        const auto &voice = source.voices()[slot];
        if (guest && _crossed.hasBeats(*guest, bar)) {
            writeCrossedVoice(place, *guest, bar);
        } else if (voice && !voice->isEmpty() && !_crossed.hostOf(place)) {
            _rhythm.read(*voice, *master().masterBars()[bar], _score.lengths[bar]);
            writeVoice(staff, slot, bar);
        }
    }
    // A sign that ends with the bar ends behind its last beat.
    if (written.isAlternate || _ottavias[staff] == Ottavia::None)
        return;
    const auto &bars = written.staff->bars();
    const auto goesOn = [&] {
        if (bar + 1 >= bars.size())
            return false;
        for (const auto &voice : bars[bar + 1]->voices())
            if (voice && !voice->isEmpty())
                return voice->beats().front()->ottavia() == _ottavias[staff];
        return false;
    };
    if (goesOn())
        return;
    _cursor.moveTo(std::max(_cursor.now(), _plan.reach()[bar]));
    _directions.writeOttavia(_ottavias[staff], Ottavia::None, _cursor.measure(),
                             static_cast<int>(staff) + 1);
    _ottavias[staff] = Ottavia::None;
}

/// The ottava signs of a staff as they change with the beats of any voice.
void PartWriter::findOttavias(std::size_t staff, unsigned bar)
{
    _changes.clear();
    auto open = _ottavias[staff];
    if (open == Ottavia::None && !_plan.contentOf(bar).hasOttavas)
        return;
    const auto &voices = _plan.staves()[staff].staff->bars()[bar]->voices();
    std::vector<OttaviaChange> beats;
    for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
        if (!voices[slot])
            continue;
        rational onset;
        for (const auto &beat : voices[slot]->beats()) {
            beats.push_back({onset, slot, beat.get(), beat->ottavia()});
            onset += beat->length();
        }
    }
    std::stable_sort(beats.begin(), beats.end(),
                     [](const auto &left, const auto &right) { return left.onset < right.onset; });
    const OttaviaChange *last = nullptr;
    for (const auto &beat : beats) {
        const bool isSameTime = last && last->onset == beat.onset && last->slot != beat.slot;
        if (isSameTime) {
            _context.addUnheldIf(beat.ottavia != open, "ottava sign of one voice alone");
            continue;
        }
        if (beat.ottavia != open)
            _changes.push_back({beat.onset, beat.slot, beat.beat, beat.ottavia, open});
        open = beat.ottavia;
        last = &beat;
    }
    _ottavias[staff] = open;
}

/// Those at a beat of the voice that is written: documents need not have them in order.
void PartWriter::writeOttavias(std::size_t staff, const Beat &beat)
{
    auto &changes = _changes;
    for (auto change = changes.begin(); change != changes.end();) {
        if (change->beat != &beat) {
            ++change;
            continue;
        }
        _directions.writeOttavia(change->before, change->ottavia, _cursor.measure(),
                                 static_cast<int>(staff) + 1);
        change = changes.erase(change);
    }
}

/// Time without signs in further voices is passed over, where a reader makes the same beats of it;
/// in the first one, and where it is all that a voice has, it is rests that are not printed.
void PartWriter::writeFreeTime(const std::vector<RhythmicBeat> &beats, std::size_t &index)
{
    auto end = index;
    rational length;
    for (; end < beats.size() && isFreeTime(*beats[end].beat); ++end)
        length += beats[end].length;
    // Behind the last notes of a voice readers fill up what leads to the end of the bar.
    const bool isWhole = index == 0 && end == beats.size();
    if (end == index || isWhole || (end == beats.size() && _rhythm.end() != _end))
        return;
    _rhythms.clear();
    try {
        RhythmValue::rhythms(length, _rhythms);
    } catch (const CoreException &) {
        return; // No values add up to it: it is written beat by beat.
    }
    // Readers find the values of a tuplet by the notes beside it.
    const bool isPlain = std::none_of(_rhythms.begin(), _rhythms.end(),
                                      [](const auto &rhythm) { return rhythm.hasPrimaryTuplet(); });
    const bool isSame = isPlain && _rhythms.size() == end - index
        && std::equal(_rhythms.begin(), _rhythms.end(),
                      beats.begin() + static_cast<std::ptrdiff_t>(index),
                      [](const RhythmValue &rhythm, const RhythmicBeat &beat) {
                          return rhythm == beat.beat->rhythmValue();
                      });
    if (!isSame)
        return;
    _cursor.moveTo(_cursor.now() + length);
    index = end;
}

void PartWriter::writeVoice(std::size_t staff, unsigned slot, unsigned bar)
{
    const auto place = placeOf(staff, slot);
    const auto &beats = _rhythm.beats();
    const bool hasOttavias = !_changes.empty();
    _cursor.moveTo(0);
    for (std::size_t index = 0; index < beats.size(); ++index) {
        const auto &free = beats[index];
        _cursor.passTo(free.onset);
        if (isFreeTime(*free.beat) && slot > 0 && !hasOttavias) {
            writeFreeTime(beats, index);
            if (index == beats.size())
                break;
        }
        const auto &beat = beats[index];
        _cursor.passTo(beat.onset);
        if (!place.staff->isAlternate && !_changes.empty())
            writeOttavias(staff, *beat.beat);
        writeBeat(beat, place, {place.staff->staff, bar, slot, static_cast<unsigned>(index)});
    }
    // Readers fill up what a bar still has.
    if (_rhythm.end() < _end)
        leaveTime(_rhythm.end(), _end, place);
}

void PartWriter::writeBeat(const RhythmicBeat &beat, const VoicePlace &place, const BeatPlace &at)
{
    auto &signs = signsOf(static_cast<std::size_t>(place.staffNumber) - 1, place.slot);
    auto &notes = _notes[static_cast<std::size_t>(place.staffNumber) - 1];
    if (beat.isPlain && !signs.isOpen())
        return notes.write(beat, place, _cursor, signs);
    const bool hasDirections = !place.staff->isAlternate && !beat.isInChord;
    if (hasDirections
        && (!beat.beat->isCommon() || beat.beat->dynamic() != NoteDynamic()
            || !beat.beat->text().empty()))
        _directions.writeBeat(*beat.beat, _cursor.measure(), place.staffNumber);
    signs.start(at);
    if (hasDirections) {
        const double half = beat.length.toDouble() * static_cast<double>(_barDivisions) / 2;
        signs.writeBefore(_cursor.measure(), place.staffNumber, half);
    }
    notes.write(beat, place, _cursor, signs);
    if (hasDirections)
        signs.writeAfter(_cursor.measure(), place.staffNumber);
}

/// A voice that changes staves: its notes tell which one they stand in.
void PartWriter::writeCrossedVoice(const StaffVoice &host, const StaffVoice &guest, unsigned bar)
{
    const auto beats = _crossed.join(host, guest, bar);
    if (!beats)
        return;
    _rhythm.read(aloneOf(*beats), *master().masterBars()[bar]);
    _cursor.moveTo(0);
    auto next = _rhythm.beats().begin();
    RhythmicBeat rhythmic;
    for (const auto &beat : *beats) {
        const auto &line = beat.isGuest ? guest : host;
        const auto place = placeOf(line.staff, line.slot);
        const BeatPlace at = {place.staff->staff, bar, line.slot, beat.index};
        if (beat.isFree()) {
            writeFreeBeat(beat, place, at);
            continue;
        }
        if (beat.role == CrossedBeat::Role::Alone) {
            rhythmic = *next++;
            _cursor.passTo(rhythmic.onset);
        } else {
            rhythmic.beat = beat.beat;
            rhythmic.isInChord = true;
            rhythmic.isPlain = false;
            rhythmic.isBeamedFrom = rhythmic.isBeamedOn = false;
            rhythmic.starts = rhythmic.stops = {};
        }
        rhythmic.isBeamSaid = true; // or it would not be one voice
        writeBeat(rhythmic, place, at);
    }
}

/// What a voice says in one staff while its notes are in another.
void PartWriter::writeFreeBeat(const CrossedBeat &beat, const VoicePlace &place,
                               const BeatPlace &at)
{
    auto &signs = signsOf(static_cast<std::size_t>(place.staffNumber) - 1, place.slot);
    signs.start(at);
    if (beat.role == CrossedBeat::Role::FreeEnd)
        return signs.writeAfter(_cursor.measure(), place.staffNumber);
    _directions.writeBeat(*beat.beat, _cursor.measure(), place.staffNumber);
    signs.writeBefore(_cursor.measure(), place.staffNumber, 0);
}

} // namespace zarn::io
