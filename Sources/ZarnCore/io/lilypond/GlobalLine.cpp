// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/GlobalLine.h>

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/lilypond/Frame.h>
#include <ZarnCore/io/lilypond/TimedLine.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/form/ZarnFormWords.h>
#include <ZarnCore/model/form/ZarnInForce.h>
#include <ZarnCore/model/form/ZarnMetronomeMark.h>
#include <ZarnCore/model/form/ZarnUsualBeams.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace zarn::lilypond {

namespace {

/// By `BarLine`; the first is the line that needs no word.
constexpr std::array<const char *, 7> barLineTexts = {"", "!", ";", ".", ",", "'", ""};

struct TempoUnitText {
    const char *text;
    utils::rational quarters;
};

TempoUnitText unitOf(TempoUnit unit)
{
    switch (unit) {
    case TempoUnit::Eighth:
        return {"8", utils::rational(1, 2)};
    case TempoUnit::QuarterDotted:
        return {"4.", utils::rational(3, 2)};
    case TempoUnit::Half:
        return {"2", utils::rational(2)};
    case TempoUnit::HalfDotted:
        return {"2.", utils::rational(3)};
    default:
        return {"4", utils::rational(1)};
    }
}

std::string noteMarkup(const MetronomeMark::Note &note)
{
    return "\\smaller \\note {" + valueText(RhythmValue(note.value))
        + std::string(static_cast<std::size_t>(note.dots), '.') + "} #UP";
}

/// Words with metronome marks in them, which are drawn as such.
std::string tempoMarkup(const std::string &words)
{
    std::string text = "\\markup {";
    for (const TempoPiece &piece : tempoPieces(words)) {
        const auto *const mark = std::get_if<MetronomeMark>(&piece);
        if (mark == nullptr) {
            text += ' ' + quoted(std::get<std::string>(piece));
            continue;
        }
        MetronomeMark bare = *mark;
        bare.isInParentheses = false;
        const std::string number = bare.text();
        const std::string end = mark->isInParentheses ? ")" : "";
        text += std::string(" \\concat { ") + (mark->isInParentheses ? "\"(\" " : "")
            + noteMarkup(mark->note);
        text += mark->equal ? " \" = \" " + noteMarkup(*mark->equal) + (end.empty() ? "" : " \")\"")
                            : " \"" + number.substr(number.find(" = ")) + end + '"';
        text += " }";
    }
    return text + " }";
}

/// Positions of automations are floating-point quarters, those of music are exact.
utils::rational exactPosition(float position)
{
    constexpr std::int64_t steps = 5040 * 64;
    return utils::rational(std::llround(double(position) * double(steps)), steps);
}

class Writer {
public:
    Writer(const MasterTrack &master, const Frame &frame, io::ExportReport &report)
        : _master(master), _frame(frame), _report(report), _line(frame)
    {
    }

    std::string write()
    {
        for (unsigned bar = 0; bar < _frame.bars.size(); ++bar) {
            writeRepeatLine(bar);
            writeMeter(bar);
            writeMarks(bar);
            writeEnd(bar);
        }
        for (const TempoMark &tempo : temposOf(_master))
            if (tempo.bar < _frame.bars.size())
                writeTempo(tempo);
        const auto &last = _frame.repeats.bars.back().lineCommands;
        if (!last.empty())
            _line.addAtEnd(static_cast<unsigned>(_frame.bars.size()) - 1, repeatCommand(last));
        return _line.toText();
    }

private:
    static std::string repeatCommand(const std::string &commands)
    {
        return "\\set Score.repeatCommands = #'(" + commands + ')';
    }

    const MasterBar &bar(unsigned index) const { return *_master.masterBars()[index]; }
    void command(unsigned index, const std::string &text) { _line.add(index, 0, text); }

    void writeRepeatLine(unsigned index)
    {
        const std::string &commands = _frame.repeats.bars[index].lineCommands;
        if (!commands.empty())
            command(index, repeatCommand(commands));
    }
    void writeMeter(unsigned index);
    void writeMeterSign(unsigned index, bool isNewMeter);
    void writeMarks(unsigned index);
    void writeEnd(unsigned index);
    void writeTempo(const TempoMark &tempo);

    const MasterTrack &_master;
    const Frame &_frame;
    io::ExportReport &_report;
    TimedLine _line;
    utils::rational _measureLength; ///< in force
};

/// The groups of the beams: those that a bar names, or those of eighths and shorter units that do
/// not go by threes, of which LilyPond knows few.
std::string beamSizes(const MasterBar &bar)
{
    const auto &meter = bar.timeSignature();
    std::string sizes;
    const auto add = [&sizes](unsigned size) {
        sizes += (sizes.empty() ? "" : " ") + std::to_string(size);
    };
    for (const std::uint8_t size : bar.beamGroups().groups())
        add(size);
    if (!sizes.empty() || meter.getDenominator() < 8 || meter.getNumerator() % 3 == 0)
        return sizes;
    const UsualBeams beams(meter, {});
    const RhythmValue unit(RhythmValue::NoteValue::Eighth);
    unsigned size = 0;
    for (unsigned i = 0; i < meter.getNumerator(); ++i) {
        const auto onset = meter.timeUnit() * utils::rational(i);
        ++size;
        if (i + 1 == meter.getNumerator()
            || !beams.join(onset, onset + meter.timeUnit(), unit, false))
            add(std::exchange(size, 0));
    }
    return sizes;
}

/// LilyPond writes C for 4/4 and C with a stroke for 2/2 unless it is told to write numbers, and no
/// meter again that holds already.
void Writer::writeMeterSign(unsigned index, bool isNewMeter)
{
    const MeterSign sign = bar(index).meterSign();
    if (!isNewMeter) {
        if (sign != bar(index - 1).meterSign() && sign != MeterSign::Hidden)
            _report.addUnheld("sign of a meter that goes on", {-1, static_cast<int>(index)});
        return;
    }
    if (sign == MeterSign::Hidden)
        return command(index, "\\once \\omit Staff.TimeSignature");
    const TimeSignature &meter = bar(index).timeSignature();
    const auto own = meter == TimeSignature(4, 4) ? MeterSign::Common
        : meter == TimeSignature(2, 2)            ? MeterSign::Cut
                                                  : MeterSign::Numbers;
    if (sign == MeterSign::UpperNumber)
        return command(index, "\\once \\override Staff.TimeSignature.style = #'single-digit");
    if (sign == MeterSign::Numbers && own != sign)
        return command(index, "\\once \\numericTimeSignature");
    if (sign != own)
        _report.addUnheld("sign of a meter", {-1, static_cast<int>(index)});
}

void Writer::writeMeter(unsigned index)
{
    const TimeSignature &meter = bar(index).timeSignature();
    const utils::rational length = _frame.bars[index].length;
    const bool isNew = index == 0 || !(meter == bar(index - 1).timeSignature());
    const auto sizes = beamSizes(bar(index));
    const auto sizesBefore = isNew ? std::string() : beamSizes(bar(index - 1));
    // A meter, also when it is said again, brings its own beams back.
    writeMeterSign(index, isNew);
    if (isNew || (sizes.empty() && !sizesBefore.empty()))
        command(index,
                "\\time " + std::to_string(meter.getNumerator()) + '/'
                    + std::to_string(meter.getDenominator()));
    if (isNew)
        _measureLength = meter.barLength();
    if (!sizes.empty() && sizes != sizesBefore)
        command(index, "\\set Timing.beatStructure = #'(" + sizes + ')');
    if (length == _measureLength)
        return;
    if (index == 0 && length < _measureLength) {
        command(index, "\\partial " + gapText(Gap::Skip, length).substr(1));
        return;
    }
    command(index, "\\set Timing.measureLength = " + momentText(length));
    _measureLength = length;
}

void Writer::writeMarks(unsigned index)
{
    const Section &section = bar(index).section();
    if (hasFontSigns(section.letter) || hasFontSigns(section.text))
        _report.addUnheld(fontSigns, {-1, static_cast<int>(index)});
    if (!section.letter.empty())
        command(index,
                std::string("\\mark \\markup \\") + (section.isCircled ? "circle " : "box ")
                    + quoted(section.letter));
    if (!section.text.empty())
        command(index, "\\sectionLabel " + quoted(section.text));
    const auto mark = [&](const std::string &text) { command(index, "\\textMark " + text); };
    const auto directions = _master.directionsAtBarIndex(static_cast<int>(index));
    for (const DirectionMark direction : directions) {
        switch (direction) {
        case DirectionMark::Segno:
            mark("\\markup \\musicglyph \"scripts.segno\"");
            break;
        case DirectionMark::SegnoSegno:
            mark("\\markup \\musicglyph \"scripts.varsegno\"");
            break;
        case DirectionMark::Coda:
            mark("\\markup \\musicglyph \"scripts.coda\"");
            break;
        case DirectionMark::DoubleCoda:
            mark("\\markup \\musicglyph \"scripts.varcoda\"");
            break;
        default:
            break;
        }
    }
    const std::string &jumps = bar(index).jumpText();
    if (hasFontSigns(jumps))
        _report.addUnheld(fontSigns, {-1, static_cast<int>(index)});
    for (const EndDirection &direction : endDirections(directions, jumps))
        _line.addAtEnd(index, "\\textEndMark " + quoted(direction.words));
    const TripletFeel feel = bar(index).tripletFeel();
    if (feel != (index == 0 ? TripletFeel::NoTripletFeel : bar(index - 1).tripletFeel()))
        mark(quoted(sheet::feelText(feel).toStdString()));
    const bool wasFree = index != 0 && bar(index - 1).isFreeTime();
    if (bar(index).isFreeTime() != wasFree)
        mark(quoted(wasFree ? "in time" : "free time"));
}

void Writer::writeEnd(unsigned index)
{
    const bool isLast = index + 1 == _frame.bars.size();
    if (bar(index).repeatCount() > 2 && !_frame.repeats.bars[index].after.empty()
        && bar(index).alternateEndings() == 0)
        _line.addAtEnd(index, "\\textEndMark \"x" + std::to_string(bar(index).repeatCount()) + '"');
    const bool begins = !isLast && bar(index + 1).isRepeatStart();
    if (bar(index).isRepeatEnd() || begins)
        return;
    const auto style = static_cast<std::size_t>(bar(index).barLine());
    std::string line = barLineTexts.at(style);
    if (bar(index).hasDoubleBar())
        line = "||";
    else if (bar(index).barLine() == BarLine::Auto && isLast)
        line = "|.";
    else if (bar(index).barLine() == BarLine::Auto)
        return;
    _line.addAtEnd(index, "\\bar \"" + line + '"');
}

void Writer::writeTempo(const TempoMark &tempo)
{
    const TempoUnitText unit = unitOf(tempo.unit);
    const utils::rational position = std::min(
        std::max(exactPosition(tempo.position), utils::rational(0)), _frame.bars[tempo.bar].length);
    const long long rounded = std::max(1LL, std::llround(tempo.value));
    const utils::rational quarters =
        utils::rational(std::llround(tempo.value * 100), 100) * unit.quarters;
    if (tempo.isLinear)
        _report.addUnheld("gradual change of tempo", {-1, static_cast<int>(tempo.bar)});
    if (tempo.isVisible && hasFontSigns(tempo.text))
        _report.addUnheld(fontSigns, {-1, static_cast<int>(tempo.bar)});
    std::string text;
    const bool isMarked = tempo.isVisible && hasMetronomeMark(tempo.text);
    const bool hasNumber = tempo.isVisible && !isMarked && tempo.unit != TempoUnit::None;
    if (isMarked)
        text = "\\tempo " + tempoMarkup(tempo.text);
    else if (tempo.isVisible && !hasNumber && !tempo.text.empty())
        text = "\\tempo " + quoted(tempo.text);
    else if (hasNumber)
        text = "\\tempo " + (tempo.text.empty() ? std::string() : quoted(tempo.text) + ' ')
            + unit.text + " = " + std::to_string(rounded);
    if (!hasNumber || std::abs(tempo.value - double(rounded)) > 0.005)
        text += (text.empty() ? "" : " ") + std::string("\\set Score.tempoWholesPerMinute = ")
            + momentText(quarters);
    _line.add(tempo.bar, position, text);
}

} // namespace

std::string globalLineOf(const MasterTrack &master, const Frame &frame, io::ExportReport &report)
{
    return Writer(master, frame, report).write();
}

} // namespace zarn::lilypond
