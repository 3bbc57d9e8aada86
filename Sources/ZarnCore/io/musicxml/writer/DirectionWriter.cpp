// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/DirectionWriter.h>

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/io/musicxml/JumpWords.h>
#include <ZarnCore/io/musicxml/Metronome.h>
#include <ZarnCore/io/musicxml/MusicXmlTag.h>
#include <ZarnCore/io/musicxml/signs/LevelWords.h>
#include <ZarnCore/io/musicxml/signs/Pedals.h>
#include <ZarnCore/io/musicxml/signs/Placement.h>
#include <ZarnCore/io/musicxml/signs/Swings.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/io/musicxml/writer/HarmonyWriter.h>
#include <ZarnCore/io/musicxml/writer/MeasureCursor.h>
#include <ZarnCore/model/form/ZarnFormWords.h>
#include <ZarnCore/model/form/ZarnInForce.h>

#include <QString>

#include <algorithm>
#include <cmath>

namespace zarn::io {

using utils::rational;

namespace {

pugi::xml_node addDirection(pugi::xml_node measure, MarkSide side, int staffNumber)
{
    auto direction = addElement(measure, "direction");
    if (const char *const placement = placementOf(side))
        addAttribute(direction, "placement", placement);
    auto type = addElement(direction, "direction-type");
    if (staffNumber > 0)
        addElement(direction, "staff", staffNumber);
    return type;
}

/// Elements of <dynamics> (MusicXML 4.0); other levels are words in <other-dynamics>.
bool isDynamicsElement(const QString &name)
{
    return name.size() <= 6
        && (name.count(QLatin1Char('p')) == name.size()
            || name.count(QLatin1Char('f')) == name.size() || name == QLatin1String("mp")
            || name == QLatin1String("mf"));
}

/// Writes a level, or none, with the words that are tied to it, and leaves none of these for
/// another one.
void addDynamics(const std::string &level, bool isElement, std::vector<LevelWords::Tied> &tied,
                 MarkSide side, pugi::xml_node measure, int staffNumber)
{
    if (level.empty() && tied.empty())
        return;
    auto dynamics = addElement(addDirection(measure, side, staffNumber), "dynamics");
    const auto addWords = [&](LevelSide sideOfLevel) {
        for (const auto &words : tied)
            if (words.side == sideOfLevel)
                addElement(dynamics, "other-dynamics", words.words);
    };
    addWords(LevelSide::Before);
    if (isElement)
        addElement(dynamics, level.c_str());
    else if (!level.empty())
        addElement(dynamics, "other-dynamics", level);
    addWords(LevelSide::After);
    tied.clear();
}

/// The lines of what is said on one side of a beat: each is words of its own. Where lines are empty
/// all is one text.
std::vector<std::string> textsOf(const std::string &text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        if (lines.back().empty() || end + 1 == text.size())
            return {text};
        at = end + 1;
    }
    return lines;
}

/// The words of a tempo, and the marks in them where readers make words of these again: an
/// equation, or a number that is not what sounds.
std::vector<TempoPiece> piecesOf(const TempoMark &tempo, const std::string &text)
{
    if (text.empty())
        return {};
    if (!tempo.isVisible || tempo.unit != TempoUnit::Quarter)
        return {text};
    const auto pieces = tempoPieces(text);
    std::string joined;
    const MetronomeMark *last = nullptr;
    for (const auto &piece : pieces) {
        const auto *const mark = std::get_if<MetronomeMark>(&piece);
        last = mark ? mark : last;
        joined +=
            (joined.empty() ? "" : " ") + (mark ? mark->text() : std::get<std::string>(piece));
    }
    const bool isAgain = last && !tellsTempo(*last, tempo.value) && joined == text;
    return isAgain ? pieces : std::vector<TempoPiece>{text};
}

} // namespace

rational exactPosition(float position)
{
    constexpr std::int64_t most = 5040;
    for (const std::int64_t denominator : {std::int64_t(1), std::int64_t(960), most}) {
        const rational fraction(std::llround(static_cast<double>(position) * denominator),
                                denominator);
        if (static_cast<float>(fraction.toDouble()) == position)
            return fraction;
    }
    for (std::int64_t denominator = 2; denominator < most; ++denominator) {
        const rational fraction(std::llround(static_cast<double>(position) * denominator),
                                denominator);
        if (static_cast<float>(fraction.toDouble()) == position)
            return fraction;
    }
    return rational(std::llround(static_cast<double>(position) * most), most);
}

void DirectionWriter::writeBeat(const Beat &beat, pugi::xml_node measure, int staffNumber)
{
    const bool hasLevel = beat.dynamic() != NoteDynamic();
    const bool hasAttack = beat.attackDynamic() != AttackDynamic::None;
    const MarkSide side = beat.dynamicSide();
    // Those on the side of the level may be tied to it.
    LevelWords words;
    LevelWords wordsBelow;
    if (beat.hasDetails()) {
        const bool hasAny = hasLevel || hasAttack;
        const auto wordsOf = [&](const std::string &text, bool isBeside) {
            const auto written = _context.text(text);
            return isBeside ? levelWordsOf(written, hasAny) : LevelWords{{}, written};
        };
        words = wordsOf(beat.text(), !hasAny || side != MarkSide::Below);
        wordsBelow = wordsOf(beat.textBelow(), !hasAny || side == MarkSide::Below);
    }
    auto &tied = side == MarkSide::Below ? wordsBelow.tied : words.tied;
    if (hasLevel) {
        const auto level =
            QString::fromStdString(NoteDynamic::textOf(beat.dynamic().value())).toLower();
        addDynamics(level.toStdString(), isDynamicsElement(level), tied, side, measure,
                    staffNumber);
    }
    if (hasAttack)
        addDynamics(attackDynamicToString(beat.attackDynamic()), true, tied, side, measure,
                    staffNumber);
    addDynamics({}, false, words.tied, MarkSide::Auto, measure, staffNumber);
    addDynamics({}, false, wordsBelow.tied, MarkSide::Below, measure, staffNumber);
    if (beat.pedal() != PedalChange::None) {
        auto pedal = addElement(addDirection(measure, MarkSide::Below, staffNumber), "pedal");
        addAttribute(pedal, "type", pedalTypeOf(beat.pedal()));
        addAttribute(pedal, "line", "yes");
    }
    if (!beat.hasDetails())
        return;
    _context.addUnheldIf(side != MarkSide::Auto && !hasLevel && !hasAttack, "side of no dynamic");
    _context.addUnheldIf(beat.hairpinSide() != MarkSide::Auto
                             && beat.hairpin() == Hairpin::NoHairpin,
                         "side of no hairpin");
    for (const auto &text : textsOf(words.others))
        if (areLikeLevel(text)) {
            addElement(addElement(addDirection(measure, MarkSide::Auto, staffNumber), "dynamics"),
                       "other-dynamics", text);
        } else {
            addElement(addDirection(measure, MarkSide::Above, staffNumber), "words", text);
        }
    for (const auto &text : textsOf(wordsBelow.others))
        addElement(addDirection(measure, MarkSide::Below, staffNumber), "words", text);
    if (!beat.chord().isEmpty()) {
        auto harmony = addElement(measure, "harmony");
        writeHarmony(beat.chord(), harmony, _context);
        addElement(harmony, "staff", staffNumber);
    }
}

void DirectionWriter::writeOttavia(Ottavia from, Ottavia to, pugi::xml_node measure,
                                   int staffNumber)
{
    const auto write = [&](Ottavia sign, bool begins) {
        const bool isHigher = sign == Ottavia::_8va || sign == Ottavia::_15ma;
        const bool isOne = sign == Ottavia::_8va || sign == Ottavia::_8vb;
        auto shift = addElement(
            addDirection(measure, isHigher ? MarkSide::Above : MarkSide::Below, staffNumber),
            "octave-shift");
        addAttribute(shift, "type", !begins ? "stop" : isHigher ? "down" : "up");
        addAttribute(shift, "size", isOne ? "8" : "15");
    };
    if (from != Ottavia::None)
        write(from, false);
    if (to != Ottavia::None)
        write(to, true);
}

void DirectionWriter::writeTempos(unsigned bar, MeasureCursor &cursor)
{
    const auto write = [&](const TempoMark &tempo) {
        auto direction = cursor.addAt(
            std::min(exactPosition(tempo.position), _master.masterBars()[bar]->length()),
            "direction");
        addAttribute(direction, "placement", "above");
        // Words that are hidden would be seen by those who read them.
        const auto text = tempo.isVisible ? _context.text(tempo.text) : std::string();
        _context.addUnheldIf(!tempo.isVisible && !tempo.text.empty(), "words of a hidden tempo");
        const bool isWords = tempo.unit == TempoUnit::None && !text.empty();
        bool hasMark = false;
        for (const auto &piece : piecesOf(tempo, text)) {
            const auto type = addElement(direction, "direction-type");
            if (const auto *const mark = std::get_if<MetronomeMark>(&piece))
                hasMark = static_cast<bool>(writeMetronome(*mark, type));
            else
                addElement(type, "words", std::get<std::string>(piece));
        }
        if (!hasMark && !isWords) {
            const auto metronome = writeMetronome(Tempo{tempo.value, tempo.unit},
                                                  addElement(direction, "direction-type"));
            if (!tempo.isVisible || tempo.unit == TempoUnit::None)
                addAttribute(metronome, "print-object", "no");
        }
        addAttribute(addElement(direction, "sound"), "tempo",
                     decimalText(quartersOf({tempo.value, tempo.unit})));
        _context.addUnheldIf(tempo.isLinear, "gradual change of tempo");
    };
    if (bar == 0 && !_master.hasAutomation(Automation::Tempo, 0, 0)
        && !(_master.tempoSettings() == TempoSettings()))
        write(tempoInForce(_master, 0));
    for (const auto *const automation : _master.automations(Automation::Tempo, bar, bar)) {
        const auto &tempo = static_cast<const TempoAutomation &>(*automation);
        auto unit = static_cast<TempoUnit>(tempo.unit());
        if (tempo.unit() < 0 || tempo.unit() > static_cast<int>(TempoUnit::HalfDotted))
            unit = TempoUnit::Quarter;
        write({bar, tempo.position(), static_cast<double>(tempo.value()), unit, tempo.text(),
               tempo.isLinear(), tempo.isVisible()});
    }
}

void DirectionWriter::writeBarStart(unsigned bar, MeasureCursor &cursor)
{
    const auto &column = *_master.masterBars()[bar];
    const auto measure = cursor.measure();
    const auto writeMark = [&](const std::string &words, const char *enclosure) {
        if (const auto text = _context.text(words); !text.empty())
            addAttribute(addElement(addDirection(measure, MarkSide::Above, 0), "rehearsal", text),
                         "enclosure", enclosure);
    };
    const Section &section = column.section();
    writeMark(section.letter, section.isCircled ? "circle" : "rectangle");
    writeMark(section.text, "none");
    for (const auto mark : _master.directionsAtBarIndex(static_cast<int>(bar)))
        if (!isAtBarEnd(mark))
            writeJump(mark, {}, measure);
    const auto before =
        bar == 0 ? TripletFeel::NoTripletFeel : _master.masterBars()[bar - 1]->tripletFeel();
    if (column.tripletFeel() != before)
        writeSwing(column.tripletFeel(), addElement(measure, "sound"));
    writeTempos(bar, cursor);
}

void DirectionWriter::writeBarEnd(unsigned bar, pugi::xml_node measure)
{
    const auto marks = _master.directionsAtBarIndex(static_cast<int>(bar));
    for (const auto &direction : endDirections(marks, _master.masterBars()[bar]->jumpText()))
        writeJump(direction.mark, _context.text(direction.words), measure);
}

} // namespace zarn::io
