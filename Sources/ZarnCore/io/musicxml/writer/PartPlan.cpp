// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/PartPlan.h>

#include <ZarnCore/io/musicxml/signs/Fingers.h>
#include <ZarnCore/io/musicxml/writer/DirectionWriter.h>
#include <ZarnCore/io/musicxml/writer/VoiceOrder.h>
#include <ZarnCore/io/musicxml/writer/VoiceRhythm.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <numeric>

namespace zarn::io {

using utils::rational;

namespace {

/// When the divisions of a bar are too many: lengths are rounded, and what a note says of its
/// value, its dots and its tuplets tells what is meant.
constexpr std::int64_t roundedDivisions = 725'760;

/// Positions that stand at no beat are exact in these terms, or in no particular place.
constexpr std::int64_t finestPosition = 960;

} // namespace

std::int64_t commonDivisions(std::int64_t divisions, const rational &length)
{
    if (divisions == 0 || divisions % length.denominator() == 0)
        return divisions;
    const auto factor = length.denominator() / std::gcd(divisions, length.denominator());
    return factor > PartPlan::MostDivisions / divisions ? 0 : divisions * factor;
}

PartPlan::PartPlan(const Track &track, unsigned index, std::vector<rational> &reach)
    : _track(track), _index(index), _isPercussion(InstrumentSet::isUnpitched(track.type())),
      _contents(reach.size()), _reach(reach.size())
{
    const auto notations = track.notations();
    for (unsigned i = 0; i < track.staffCount(); ++i) {
        const auto &staff = *track.staves()[i];
        const bool isTablature = notations.tablature && staff.isFretted() && !_isPercussion;
        const bool hasNotes = notations.standard || !isTablature;
        if (hasNotes)
            _staves.push_back({&staff, static_cast<int>(i), false, false});
        if (isTablature)
            _staves.push_back({&staff, static_cast<int>(i), true, hasNotes});
        readStaff(staff, hasNotes, reach);
    }
    // The little finger is the fifth on keys alone.
    _areKeys = areFingersOfKeys(_hasFrets,
                                _hasFifthFinger && !InstrumentSet::isStringedOrBowed(track.type()),
                                _staves.size());
}

std::string PartPlan::id() const
{
    return "P" + std::to_string(_index + 1);
}

std::string PartPlan::percussionId(int key) const
{
    return id() + "-I" + std::to_string(key + 1);
}

bool PartPlan::isUnpitched(const Note &note) const
{
    return _isPercussion || note.staffLine() != Note::NoStaffLine
        || note.percussionArticulation() != Note::Unset;
}

void PartPlan::readStaff(const Staff &staff, bool hasNotes, std::vector<rational> &reach)
{
    unsigned known = 0; // slots that have turned up, which so far are the first ones
    bool isLate = false;
    const auto count = std::min<std::size_t>(staff.bars().size(), _reach.size());
    for (std::size_t index = 0; index < count; ++index) {
        const auto &bar = *staff.bars()[index];
        for (const auto &change : bar.clefChanges())
            if (hasNotes && change.position < bar.length())
                addPosition(static_cast<unsigned>(index), change.position);
        const auto &voices = bar.voices();
        auto &content = _contents[index];
        bool hasSlurs = false;
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
            if (!voices[slot] || voices[slot]->isEmpty())
                continue;
            isLate = isLate || slot > known;
            known = std::max(known, slot + 1);
            const bool isRest = isWholeBarRest(*voices[slot]);
            content.hasWholeBarRest = content.hasWholeBarRest || isRest;
            rational end;
            for (const auto &beat : voices[slot]->beats()) {
                readBeat(*beat, staff);
                hasSlurs = hasSlurs || !beat->slurEnds().empty();
                content.hasDetails = content.hasDetails || beat->hasDetails();
                content.hasOttavas = content.hasOttavas || beat->ottavia() != Ottavia::None;
                if (beat->isGrace())
                    continue;
                const auto length = beat->length();
                if (!isRest)
                    _divisions = commonDivisions(_divisions, length);
                end += length;
            }
            _reach[index] = std::max(_reach[index], end);
        }
        reach[index] = std::max(reach[index], _reach[index]);
        if (hasSlurs) {
            content.hasNumberedSlurs = true;
            isLate = isLate || slotOrder(bar) != usualSlots;
        }
    }
    _lateVoices.push_back(isLate);
}

bool isOnString(const Note &note, const Staff &staff)
{
    return note.string() >= 0 && note.fret() >= 0
        && note.string() < static_cast<int>(staff.tuning().stringCount());
}

void PartPlan::readBeat(const Beat &beat, const Staff &staff)
{
    for (const auto &note : beat.notes()) {
        if (isUnpitched(*note))
            addPercussion(*note);
        if (!_hasFrets && note->fret() >= 0)
            _hasFrets = isOnString(*note, staff);
        if (note->leftFingering() == Fingering::Little)
            _hasFifthFinger = true;
    }
}

/// One of the parts has to tell how long the bars are, and the first one where tempos stand.
void PartPlan::setBarLengths(const std::vector<rational> &lengths)
{
    _lengths = lengths;
    for (std::size_t bar = 0; bar < lengths.size(); ++bar) {
        _divisions = commonDivisions(_divisions, lengths[bar]);
        if (_contents[bar].hasWholeBarRest)
            _reach[bar] = lengths[bar];
    }
    if (const auto model = _track.parentScoreModel(); model && _index == 0)
        for (const auto *const tempo : model->masterTrack()->automations(Automation::Tempo))
            addPosition(tempo->index(), exactPosition(tempo->position()));
    for (unsigned bar = 0; bar < _reach.size() && _divisions != 0; ++bar)
        if (areTooMany(_divisions, bar))
            _divisions = 0;
}

/// What stands between the beats is written exactly unless it stands nowhere in particular.
void PartPlan::addPosition(unsigned bar, const rational &position)
{
    if (position.denominator() > finestPosition)
        return;
    _positions[bar].push_back(position);
    if (const auto divisions = commonDivisions(_divisions, position); divisions != 0)
        _divisions = divisions;
}

void PartPlan::addPercussion(const Note &note)
{
    if (note.midi() == Note::Unset || _percussion.count(note.midi()) != 0)
        return;
    std::string name;
    const auto set = _track.instrumentSet();
    const auto number = static_cast<std::size_t>(note.percussionArticulation());
    // The notes of a key may be entered as several things, which are written as one.
    const auto played = [&note](const InstrumentArticulation &articulation) {
        return articulation.outputMidiNumber() == note.midi();
    };
    if (set) {
        const auto &known = set->articulations();
        const auto found = std::find_if(known.begin(), known.end(), played);
        if (found != known.end())
            name = found->name();
        else if (note.percussionArticulation() >= 0 && number < known.size())
            name = known[number].name();
    }
    _percussion.emplace(note.midi(), name.empty() ? "Key " + std::to_string(note.midi()) : name);
}

/// Whether a bar is too long to be written in so many divisions.
bool PartPlan::areTooMany(std::int64_t divisions, unsigned bar) const
{
    return _lengths[bar].ceil() > MostDivisions / divisions;
}

PartPlan::Divisions PartPlan::divisionsOfBar(unsigned bar) const
{
    if (_divisions != 0)
        return {_divisions, true};
    std::int64_t divisions = commonDivisions(1, _lengths[bar]);
    for (const auto &staff : _track.staves())
        for (const auto &voice : staff->bars()[bar]->voices())
            if (voice && !isWholeBarRest(*voice))
                for (const auto &beat : voice->beats())
                    divisions = commonDivisions(divisions, beat->length());
    if (divisions != 0 && !areTooMany(divisions, bar)) {
        if (const auto found = _positions.find(bar); found != _positions.end())
            for (const auto &position : found->second)
                if (const auto finer = commonDivisions(divisions, position);
                    finer != 0 && !areTooMany(finer, bar))
                    divisions = finer;
        return {divisions, true};
    }
    divisions = roundedDivisions;
    while (divisions > 1 && areTooMany(divisions, bar))
        divisions /= 2;
    return {divisions, false};
}

} // namespace zarn::io
