// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/AttributesWriter.h>

#include <ZarnCore/io/musicxml/AttributesReader.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/io/musicxml/writer/MeasureCursor.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::io {

namespace {

struct ClefElement {
    ClefType clef;
    const char *sign;
    int line; ///< 0 for none
};

constexpr ClefElement clefs[] = {
    {ClefType::G2, "G", 2},
    {ClefType::F4, "F", 4},
    {ClefType::C3, "C", 3},
    {ClefType::C4, "C", 4},
    {ClefType::Neutral, "percussion", 0},
};

/// Where the sign of a tablature is said to stand, whatever its lines.
constexpr int tablatureLine = 5;

constexpr const char *stepsWithSharps[] = {"C", "C", "D", "D", "E", "F",
                                           "F", "G", "G", "A", "A", "B"};
constexpr int alterations[] = {0, 1, 0, 1, 0, 0, 1, 0, 1, 0, 1, 0};

int octavesOf(Ottavia ottavia)
{
    return static_cast<int>(Ottavia::None) - static_cast<int>(ottavia);
}

/// Whether the meter is written as the sum of its groups: of equal ones nobody expects that.
bool isWrittenAsSum(const BeamGroups &groups, const MasterBar &bar)
{
    const auto &sizes = groups.groups();
    return !bar.isFreeTime() && groups.fit(bar.timeSignature())
        && std::any_of(sizes.begin(), sizes.end(),
                       [&](std::uint8_t size) { return size != sizes.front(); });
}

/// What readers give the strings of an instrument without being told.
GuitarTuning usualTuning(const Track &track)
{
    return ScoreModel::createTrack(track.type())->staves().front()->tuning();
}

/// Bars that a mark stands for.
int barsOf(SimileMark mark)
{
    return mark == SimileMark::None ? 0 : mark == SimileMark::Simple ? 1 : 2;
}

} // namespace

AttributesWriter::AttributesWriter(const PartPlan &plan, const MasterTrack &master,
                                   ExportContext &context)
    : _plan(plan), _master(master), _context(context), _clefs(plan.staves().size()),
      _similes(plan.staves().size())
{
}

pugi::xml_node AttributesWriter::attributes(MeasureCursor &cursor)
{
    if (!_attributes)
        _attributes = cursor.add("attributes");
    return _attributes;
}

int AttributesWriter::write(unsigned bar, MeasureCursor &cursor)
{
    _attributes = pugi::xml_node();
    _reachesBehindNotes = false;
    if (const auto divisions = _plan.divisionsOfBar(bar).count; divisions != _divisions) {
        _divisions = divisions;
        addElement(attributes(cursor), "divisions", static_cast<long long>(divisions));
    }
    writeKey(bar, cursor);
    writeTime(bar, cursor);
    const auto staffCount = _plan.staves().size();
    if (bar == 0 && staffCount > 1)
        addElement(attributes(cursor), "staves", static_cast<int>(staffCount));
    writeClefs(bar, cursor);
    if (bar == 0)
        for (std::size_t staff = 0; staff < staffCount; ++staff)
            writeStaffDetails(staff, attributes(cursor));
    writeTranspose(bar, cursor);
    for (std::size_t staff = 0; staff < staffCount; ++staff)
        writeSimile(bar, staff, cursor);
    return _key.accidentalCount();
}

void AttributesWriter::writeKey(unsigned bar, MeasureCursor &cursor)
{
    const auto &columns = _master.masterBars();
    if (bar > 0 && columns[bar]->concertKeySignature() == columns[bar - 1]->concertKeySignature())
        return;
    const auto key = writtenKeySignature(*_plan.track().staves().front()->bars()[bar]);
    const auto isSame = [](const KeySignature &left, const KeySignature &right) {
        return left.accidentalCount() == right.accidentalCount()
            && left.isMajor() == right.isMajor();
    };
    // One key of a part that transposes may be two at concert pitch.
    if (bar > 0 && isSame(key, _key)
        && isSame(columns[bar]->concertKeySignature(), columns[bar - 1]->concertKeySignature()))
        return;
    _key = key;
    auto node = addElement(attributes(cursor), "key");
    addElement(node, "fifths", key.accidentalCount());
    addElement(node, "mode", key.isMajor() ? "major" : "minor");
}

void AttributesWriter::writeTime(unsigned bar, MeasureCursor &cursor)
{
    const auto &column = *_master.masterBars()[bar];
    const auto &time = column.timeSignature();
    const auto &groups = column.beamGroups();
    const bool isSum = isWrittenAsSum(groups, column);
    const bool isGroupedAnew = bar == 0 || groups != _master.masterBars()[bar - 1]->beamGroups();
    // Bars without a measure keep the meter and the groups of those before.
    const bool isPlain = groups.isEmpty() && !(column.isFreeTime() && bar > 0);
    _context.addUnheldIf(isGroupedAnew && !isSum && !isPlain, "grouping of beams");
    const std::string beats = isSum ? groups.toString() : std::to_string(time.getNumerator());
    const auto sign = column.meterSign();
    const bool isSame =
        time == _time && sign == _meterSign && column.isFreeTime() == _isFree && beats == _beats;
    if (bar > 0 && isSame)
        return;
    if (!column.isFreeTime()) {
        auto node = addElement(attributes(cursor), "time");
        if (sign == MeterSign::Hidden)
            addAttribute(node, "print-object", "no");
        else if (const char *const symbol = symbolOf(sign))
            addAttribute(node, "symbol", symbol);
        addElement(node, "beats", beats);
        addElement(node, "beat-type", static_cast<int>(time.getDenominator()));
    } else {
        _context.addUnheldIf(!(time == (bar == 0 ? TimeSignature() : _time)),
                             "meter of bars without a measure");
        if (!_isFree || bar == 0)
            addElement(addElement(attributes(cursor), "time"), "senza-misura");
    }
    _context.addUnheldIf(column.isFreeTime() && sign != _meterSign,
                         "sign of the meter of bars without a measure");
    _time = time;
    _meterSign = sign;
    _beats = beats;
    _isFree = column.isFreeTime();
}

void AttributesWriter::writeClef(const Clef &clef, std::size_t staff, pugi::xml_node node)
{
    auto element = addElement(node, "clef");
    if (_plan.staves().size() > 1)
        addAttribute(element, "number", static_cast<int>(staff) + 1);
    for (const auto &row : clefs)
        if (row.clef == clef.clef) {
            addElement(element, "sign", row.sign);
            if (row.line != 0)
                addElement(element, "line", row.line);
        }
    if (const int octaves = octavesOf(clef.ottavia); octaves != 0)
        addElement(element, "clef-octave-change", octaves);
}

void AttributesWriter::writeClefs(unsigned index, MeasureCursor &cursor)
{
    for (std::size_t i = 0; i < _plan.staves().size(); ++i) {
        const auto &staff = _plan.staves()[i];
        if (staff.isTablature) {
            if (index > 0)
                continue;
            auto clef = addElement(attributes(cursor), "clef");
            if (_plan.staves().size() > 1)
                addAttribute(clef, "number", static_cast<int>(i) + 1);
            addElement(clef, "sign", "TAB");
            addElement(clef, "line", tablatureLine);
            continue;
        }
        const auto &bar = *staff.staff->bars()[index];
        _context.addUnheldIf(bar.clef() == ClefType::None, "bar without a clef");
        const Clef clef = {shownClef(bar.clef()), bar.ottavia()};
        if (index == 0 || !(clef == _clefs[i]))
            writeClef(clef, i, attributes(cursor));
        _clefs[i] = clef;
        for (const auto &change : bar.clefChanges()) {
            if (!(change.position < bar.length())) {
                _context.addUnheld("clef behind the end of its bar");
                continue;
            }
            _reachesBehindNotes = _reachesBehindNotes || !(change.position < _plan.reach()[index]);
            _clefs[i].clef = change.clef;
            writeClef(_clefs[i], i, cursor.addAt(change.position, "attributes"));
        }
    }
}

void AttributesWriter::writeStaffDetails(std::size_t index, pugi::xml_node node)
{
    const auto &staff = _plan.staves()[index];
    const auto &tuning = staff.staff->tuning();
    const auto set = _plan.track().instrumentSet();
    if (set && set->isUnpitched()) {
        auto details = addElement(node, "staff-details");
        if (_plan.staves().size() > 1)
            addAttribute(details, "number", static_cast<int>(index) + 1);
        addElement(details, "staff-lines", static_cast<int>(set->lineCount()));
        return;
    }
    const bool isInTablature =
        std::any_of(_plan.staves().begin(), _plan.staves().end(), [&staff](const PartStaff &other) {
            return other.staff == staff.staff && other.isTablature;
        });
    if (!staff.isTablature && (tuning.stringCount() == 0 || isInTablature))
        return;
    // Some programs take any staff with a tuning for a tablature.
    if (InstrumentSet::isBowed(_plan.track().type()) && staff.staff->capoFret() == 0
        && tuning == usualTuning(_plan.track()))
        return;
    auto details = addElement(node, "staff-details");
    if (_plan.staves().size() > 1)
        addAttribute(details, "number", static_cast<int>(index) + 1);
    if (staff.isAlternate)
        addElement(details, "staff-type", "alternate");
    if (staff.isTablature)
        addElement(details, "staff-lines", static_cast<int>(tuning.stringCount()));
    for (unsigned string = 0; string < tuning.stringCount(); ++string) {
        const int midi = tuning.tuning(string);
        auto line = addElement(details, "staff-tuning");
        addAttribute(line, "line", static_cast<int>(string) + 1);
        addElement(line, "tuning-step", stepsWithSharps[midi % 12]);
        if (alterations[midi % 12] != 0)
            addElement(line, "tuning-alter", alterations[midi % 12]);
        addElement(line, "tuning-octave", midi / 12 - 1);
    }
    if (staff.staff->capoFret() != 0)
        addElement(details, "capo", static_cast<int>(staff.staff->capoFret()));
}

/// The steps are those between the keys, so that readers find the key at concert pitch; they change
/// where a key of the part is written with flats instead of sharps.
void AttributesWriter::writeTranspose(unsigned bar, MeasureCursor &cursor)
{
    const int semitones = _plan.track().transpositionOffset();
    if (semitones == 0)
        return;
    const int octaves = semitones / 12;
    const int chromatic = semitones % 12;
    const auto &concert = _master.masterBars()[bar]->concertKeySignature();
    const int fifths = concert.accidentalCount() - _key.accidentalCount();
    int diatonic = (7 * chromatic - fifths) / 12;
    if (12 * diatonic != 7 * chromatic - fifths) {
        constexpr int usual[] = {0, 1, 1, 2, 2, 3, 3, 4, 5, 5, 6, 6};
        diatonic = chromatic < 0 ? -usual[-chromatic] : usual[chromatic];
    }
    if (_diatonic == diatonic)
        return;
    _diatonic = diatonic;
    auto transpose = addElement(attributes(cursor), "transpose");
    addElement(transpose, "diatonic", diatonic);
    addElement(transpose, "chromatic", chromatic);
    if (octaves != 0)
        addElement(transpose, "octave-change", octaves);
}

void AttributesWriter::writeSimile(unsigned index, std::size_t staff, MeasureCursor &cursor)
{
    if (_plan.staves()[staff].isAlternate)
        return;
    const int count = barsOf(_plan.staves()[staff].staff->bars()[index]->simileMark());
    if (count == _similes[staff])
        return;
    _similes[staff] = count;
    auto style = addElement(attributes(cursor), "measure-style");
    if (_plan.staves().size() > 1)
        addAttribute(style, "number", static_cast<int>(staff) + 1);
    auto repeat = addElement(style, "measure-repeat");
    addAttribute(repeat, "type", count == 0 ? "stop" : "start");
    if (count != 0)
        repeat.append_child(pugi::node_pcdata).set_value(count == 1 ? "1" : "2");
}

} // namespace zarn::io
