// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/StaffWriter.h>

#include <ZarnCore/io/sheet/BeatSigns.h>
#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/io/sheet/NoteSigns.h>
#include <ZarnCore/io/sheet/SimileBars.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/form/TremoloPair.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

namespace zarn::sheet {

namespace {

/// The columns of the beats of a voice, grace beats in front of the beat that they lead to.
std::vector<ColumnKey> columnsOf(const Voice &voice)
{
    const Voice::Beats &beats = voice.beats();
    std::vector<ColumnKey> columns(beats.size());
    utils::rational onset;
    for (std::size_t i = 0; i < beats.size(); ++i) {
        columns[i].onset = onset;
        if (!beats[i]->isGrace())
            onset += beats[i]->length();
    }
    int order = ColumnKey::Beat;
    for (std::size_t i = beats.size(); i-- > 0;) {
        order = beats[i]->isGrace() ? order - 1 : static_cast<int>(ColumnKey::Beat);
        columns[i].order = order;
    }
    return columns;
}

/// The first beat of a voice in the next bar; null when there is none.
const Beat *firstBeatBehind(const Bar &bar, unsigned voice)
{
    const auto staff = bar.parentStaff();
    if (!staff || bar.index() + 1 >= staff->barCount())
        return nullptr;
    const auto &next = staff->bars()[bar.index() + 1]->voices()[voice];
    return next && !next->beats().empty() ? next->beats().front().get() : nullptr;
}

} // namespace

StaffWriter::~StaffWriter() = default;

StaffWriter::StaffWriter(Sheet &sheet, const QString &name, const Glyphs &glyphs, Legend &legend)
    : _sheet(sheet), _glyphs(glyphs), _legend(legend), _staff(static_cast<int>(sheet.staves.size()))
{
    sheet.staves.push_back({name});
    OverStaff::Lanes lanes;
    lanes.texts = addStack(Lane::Stacking::Upwards);
    _chordLane = addLane(Lane::Kind::Text);
    lanes.techniques = addStack(Lane::Stacking::Upwards);
    lanes.slurs = addStack(Lane::Stacking::Upwards);
    _over.emplace(sheet, lanes, glyphs, legend);
}

void StaffWriter::showOnlyVoice(unsigned voice)
{
    _onlyVoice = voice;
    _under->showOnlyVoice(voice);
}

void StaffWriter::hideRhythm()
{
    _hasRhythm = false;
    lane(rhythmLane(0)).isOptional = true;
}

void StaffWriter::showOnlyLyrics(unsigned lines)
{
    _under->showOnlyLyrics(lines);
}

void StaffWriter::joinTrackOf(const StaffWriter &other)
{
    _chordLane = other._chordLane;
    _over->joinTrackOf(*other._over);
}

int StaffWriter::addLane(Lane::Kind kind, const QString &label)
{
    Lane added;
    added.kind = kind;
    if (!_glyphs.isPosted || kind == Lane::Kind::String)
        added.label = label;
    added.staff = _staff;
    _sheet.lanes.push_back(added);
    return static_cast<int>(_sheet.lanes.size()) - 1;
}

int StaffWriter::addStack(Lane::Stacking stacking)
{
    const int added = addLane(Lane::Kind::Text);
    lane(added).stacking = stacking;
    return added;
}

Lane &StaffWriter::lane(int index) const
{
    return _sheet.lanes.at(static_cast<std::size_t>(index));
}

void StaffWriter::addRhythmLanes(unsigned voice, RhythmSide side)
{
    VoiceLanes &lanes = _voices.at(voice);
    const QString label =
        voice == 0 ? QString() : QStringLiteral("voice %1").arg(static_cast<int>(voice) + 1);
    const auto addRhythm = [&] {
        lanes.rhythm = addLane(Lane::Kind::Text, label);
        lane(lanes.rhythm).isOptional = voice != 0;
    };
    if (side == RhythmSide::Below) {
        lanes.signs = addLane(Lane::Kind::Text);
        addRhythm();
    }
    lanes.tuplet = addLane(Lane::Kind::Text);
    lanes.innerTuplet = addLane(Lane::Kind::Text);
    if (side == RhythmSide::Below)
        std::swap(lanes.tuplet, lanes.innerTuplet);
    if (side == RhythmSide::Above) {
        addRhythm();
        lanes.signs = addLane(Lane::Kind::Text);
    }
}

void StaffWriter::addLanesBelow()
{
    UnderStaff::Lanes lanes;
    lanes.rightHand = addLane(Lane::Kind::Text, QStringLiteral("r. hand"));
    lanes.leftHand = addLane(Lane::Kind::Text, QStringLiteral("l. hand"));
    for (unsigned line = 0; line < UnderStaff::lyricLines; ++line)
        lanes.lyrics.at(line) = addLane(Lane::Kind::Text,
                                        line == 0 ? QStringLiteral("lyrics")
                                                  : QStringLiteral("verse %1").arg(line + 1));
    lanes.dynamics = addStack(Lane::Stacking::Downwards);
    lanes.pedal = addStack(Lane::Stacking::Downwards);
    _under.emplace(_sheet, lanes, _glyphs, _legend);
}

void StaffWriter::writeTimeSignature(const TimeSignature &signature, SheetBar &into)
{
    const QString text =
        QStringLiteral("%1/%2").arg(signature.getNumerator()).arg(signature.getDenominator());
    const ColumnKey start{0, ColumnKey::Signature};
    if (_hasRhythm)
        into.put(start, rhythmLane(0), text, Ink::Heading);
    else
        into.headings.push_back({start, text});
}

void StaffWriter::writeBar(const Bar &bar, const MasterBar &column, SheetBar &into)
{
    beginBar(bar);
    _over->writeFermatas(column, into);
    if (isDrawnAsSimile(bar)) {
        const bool isSimple = bar.simileMark() == SimileMark::Simple;
        into.put({0, ColumnKey::Beat}, _hasRhythm ? rhythmLane(0) : _voices[0].signs,
                 isSimple ? QStringLiteral("%") : QStringLiteral("%%"), Ink::Rhythm);
        _legend.use(isSimple ? Legend::Sign::Simile : Legend::Sign::DoubleSimile);
    } else {
        for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice)
            if (const auto &held = bar.voices()[voice];
                held && (!_onlyVoice || *_onlyVoice == voice))
                writeVoice(*held, voice, into);
    }
    endBar(into);
    _over->endBar(into);
    _under->endBar(into);
}

void StaffWriter::writeVoice(const Voice &voice, unsigned index, SheetBar &into)
{
    const std::vector<ColumnKey> columns = columnsOf(voice);
    std::vector<TimedBeat> timed;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Beat &beat = *voice.beats()[i];
        if (beat.isPlaceHolder())
            continue;
        const auto bar = i + 1 < columns.size() ? nullptr : voice.parentBar();
        const Beat *const next = i + 1 < columns.size() ? voice.beats()[i + 1].get()
            : bar                                       ? firstBeatBehind(*bar, index)
                                                        : nullptr;
        writeBeat({beat, next, columns[i], index}, into);
        const bool isOfTremolo = (i > 0 && isTremoloPair(*voice.beats()[i - 1], beat))
            || (i + 1 < columns.size() && isTremoloPair(beat, *next));
        if (!beat.isGrace() && !isOfTremolo)
            timed.push_back({columns[i], &beat.rhythmValue()});
    }
    if (!_hasRhythm)
        return;
    const std::size_t spanCount = into.spans.size();
    addTupletSpans(timed, TupletLevel::Outer, _voices.at(index).tuplet, into.spans);
    if (into.spans.size() != spanCount)
        _legend.use(Legend::Sign::Tuplet);
    addTupletSpans(timed, TupletLevel::Inner, _voices.at(index).innerTuplet, into.spans);
}

void StaffWriter::writeBeat(const BeatPlace &place, SheetBar &into)
{
    const Beat &beat = place.beat;
    writeRhythm(place, into);
    const QString signs = signsOf(beat, _glyphs, _legend);
    if (!signs.isEmpty())
        into.put(place.column, _voices.at(place.voice).signs, signs, Ink::Rhythm);
    writeChordSymbol(QString::fromStdString(beat.chordSymbol()), place.column, into);
    _over->write(place, into);
    _under->write(place, into);
    if (beat.hasNotes())
        writeNotes(place, into);
    else if (beat.isDeadSlapped())
        writeDeadSlap(place, into);
}

void StaffWriter::writeRhythm(const BeatPlace &place, SheetBar &into)
{
    into.columns[place.column];
    if (_hasRhythm)
        into.put(place.column, rhythmLane(place.voice), rhythmOf(place.beat), Ink::Rhythm);
    else if (place.beat.isGrace())
        into.put(place.column, _voices.at(place.voice).signs, rhythmOf(place.beat), Ink::Rhythm);
}

QString StaffWriter::signedText(const QString &text, const Note &note, const BeatPlace &place) const
{
    return withSigns(text, note, place.next, _glyphs, _legend);
}

/// A track has one line of chord symbols, over its first staff.
void StaffWriter::writeChordSymbol(const QString &symbol, const ColumnKey &column, SheetBar &into)
{
    if (symbol.isEmpty())
        return;
    const auto &cells = into.columns[column];
    const auto written = cells.find(_chordLane);
    if (written == cells.end())
        into.put(column, _chordLane, symbol, Ink::Chord);
    else if (!written->second.text.split(QLatin1Char(' ')).contains(symbol))
        into.put(column, _chordLane, QLatin1Char(' ') + symbol, Ink::Chord);
}

QString StaffWriter::rhythmOf(const Beat &beat) const
{
    if (beat.isGrace()) {
        _legend.use(Legend::Sign::Grace);
        return QStringLiteral("g");
    }
    if (beat.isWholeBarRest()) {
        _legend.use(Legend::Sign::WholeBarRest);
        return QStringLiteral("rest");
    }
    _legend.use(beat.rhythmValue());
    const QString rhythm = rhythmText(beat.rhythmValue());
    if (!beat.isRest())
        return rhythm;
    _legend.use(Legend::Sign::Rest);
    return QLatin1Char('r') + rhythm;
}

} // namespace zarn::sheet
