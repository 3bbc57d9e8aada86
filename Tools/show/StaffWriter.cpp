// SPDX-License-Identifier: MIT
#include "show/StaffWriter.h"

#include "common/Texts.h"
#include "show/Glyphs.h"
#include "show/Legend.h"
#include "show/SimileBars.h"

#include <ZarnCore/music/ZarnTimeSignature.h>

namespace zarn::tool {

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

} // namespace

StaffWriter::~StaffWriter() = default;

StaffWriter::StaffWriter(Sheet &sheet, const QString &name, const Glyphs &glyphs, Legend &legend)
    : _sheet(sheet), _glyphs(glyphs), _legend(legend), _staff(static_cast<int>(sheet.staves.size()))
{
    sheet.staves.push_back({name});
    _textLane = addLane(Lane::Kind::Text);
    lane(_textLane).isFloating = true;
    _chordLane = addLane(Lane::Kind::Text);
}

int StaffWriter::addLane(Lane::Kind kind, const QString &label)
{
    Lane added;
    added.kind = kind;
    added.label = label;
    added.staff = _staff;
    _sheet.lanes.push_back(added);
    return static_cast<int>(_sheet.lanes.size()) - 1;
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
    if (side == RhythmSide::Below)
        addRhythm();
    lanes.tuplet = addLane(Lane::Kind::Text);
    lanes.innerTuplet = addLane(Lane::Kind::Text);
    if (side == RhythmSide::Below)
        std::swap(lanes.tuplet, lanes.innerTuplet);
    else
        addRhythm();
}

void StaffWriter::addDynamicsLane()
{
    _dynamicsLane = addLane(Lane::Kind::Text);
}

void StaffWriter::writeTimeSignature(const TimeSignature &signature, SheetBar &into)
{
    into.put({0, ColumnKey::Signature}, rhythmLane(0),
             QStringLiteral("%1/%2").arg(signature.getNumerator()).arg(signature.getDenominator()),
             Ink::Heading);
}

void StaffWriter::writeBar(const Bar &bar, SheetBar &into)
{
    beginBar(bar);
    if (isDrawnAsSimile(bar)) {
        const bool isSimple = bar.simileMark() == SimileMark::Simple;
        into.put({0, ColumnKey::Beat}, rhythmLane(0),
                 isSimple ? QStringLiteral("%") : QStringLiteral("%%"), Ink::Rhythm);
        _legend.use(isSimple ? Legend::Sign::Simile : Legend::Sign::DoubleSimile);
    } else {
        for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice)
            if (const auto &held = bar.voices()[voice];
                held && (!_onlyVoice || *_onlyVoice == voice))
                writeVoice(*held, voice, into);
    }
    endBar(into);
}

void StaffWriter::writeVoice(const Voice &voice, unsigned index, SheetBar &into)
{
    const std::vector<ColumnKey> columns = columnsOf(voice);
    std::vector<TimedBeat> timed;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const Beat &beat = *voice.beats()[i];
        if (beat.isPlaceHolder())
            continue;
        writeBeat(beat, columns[i], index, into);
        if (!beat.isGrace())
            timed.push_back({columns[i], &beat.rhythmValue()});
    }
    const std::size_t spanCount = into.spans.size();
    addTupletSpans(timed, TupletLevel::Outer, _voices.at(index).tuplet, into.spans);
    if (into.spans.size() != spanCount)
        _legend.use(Legend::Sign::Tuplet);
    addTupletSpans(timed, TupletLevel::Inner, _voices.at(index).innerTuplet, into.spans);
}

void StaffWriter::writeBeat(const Beat &beat, const ColumnKey &column, unsigned voice,
                            SheetBar &into)
{
    into.put(column, rhythmLane(voice), rhythmOf(beat), Ink::Rhythm);
    writeWords(beat, column, voice, into);
    if (beat.hasNotes())
        writeNotes(beat, column, voice, into);
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

void StaffWriter::writeWords(const Beat &beat, const ColumnKey &column, unsigned voice,
                             SheetBar &into)
{
    writeChordSymbol(QString::fromStdString(beat.chordSymbol()), column, into);
    const QString text = QString::fromStdString(beat.text()).simplified();
    if (!text.isEmpty())
        into.put(column, _textLane, text, Ink::Plain);
    const QString dynamic = dynamicText(beat.dynamic());
    if (_dynamicsLane < 0 || dynamic.isEmpty() || dynamic == _dynamics[voice])
        return;
    _dynamics[voice] = dynamic;
    if (voice == 0 || _onlyVoice || dynamic != _dynamics[0])
        into.put(column, _dynamicsLane, dynamic, Ink::Plain);
}

} // namespace zarn::tool
