// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/BarHeadings.h>

#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/form/ZarnFormWords.h>
#include <ZarnCore/model/form/ZarnInForce.h>
#include <ZarnCore/model/form/ZarnMetronomeMark.h>

#include <array>
#include <cmath>

namespace zarn::sheet {

namespace {

/// By `zarn::BarLine`.
constexpr std::array<BarLine, 7> barLineStyles = {
    BarLine::Single, BarLine::Dashed, BarLine::Dotted, BarLine::Heavy,
    BarLine::Short,  BarLine::Short,  BarLine::None,
};

const ColumnKey BarStart{0, ColumnKey::Signature};

/// Positions of automations are floating-point quarters; columns are exact.
constexpr std::int64_t PositionSteps = 5040 * 64;

utils::rational exactPosition(float position)
{
    return utils::rational(std::llround(double(position) * double(PositionSteps)), PositionSteps);
}

QString unitText(TempoUnit unit, const Glyphs &glyphs)
{
    switch (unit) {
    case TempoUnit::Eighth:
        return glyphs.eighthNote;
    case TempoUnit::QuarterDotted:
        return glyphs.quarterNote + QLatin1Char('.');
    case TempoUnit::Half:
        return glyphs.halfNote;
    case TempoUnit::HalfDotted:
        return glyphs.halfNote + QLatin1Char('.');
    default:
        return glyphs.quarterNote;
    }
}

QString tempoText(const TempoMark &tempo, const Glyphs &glyphs)
{
    QString text = QString::fromStdString(tempo.text);
    const bool isWords = tempo.unit == TempoUnit::None && !text.isEmpty();
    if (!isWords && !hasMetronomeMark(tempo.text))
        text += (text.isEmpty() ? QString() : QStringLiteral(" ")) + unitText(tempo.unit, glyphs)
            + QStringLiteral(" = ") + QString::number(std::round(tempo.value * 100) / 100);
    return tempo.isLinear ? text + QStringLiteral(" (changing gradually)") : text;
}

void addTempos(const MasterTrack &master, unsigned bar, bool isFirstShown, const Glyphs &glyphs,
               SheetBar &into)
{
    const auto add = [&](const TempoMark &tempo, float position) {
        into.headings.push_back(
            {{exactPosition(position)}, tempoText(tempo, glyphs), Ink::Heading});
    };
    const auto changes = master.automations(Automation::Tempo, bar, bar);
    // The first bar that is shown tells the tempo with which it starts.
    if (isFirstShown && (changes.empty() || changes.front()->position() > 0)) {
        const TempoMark tempo = tempoInForce(master, bar);
        const QString text = tempoText(tempo, glyphs);
        into.headings.push_back(
            {BarStart,
             tempo.isGiven ? text : QStringLiteral("(no tempo given: plays at %1)").arg(text),
             Ink::Heading});
    }
    for (const Automation *const change : changes)
        if (change->isVisible() || isFirstShown)
            add(tempoInForce(master, bar, change->position()), change->position());
}

void addDirections(const MasterTrack &master, unsigned bar, SheetBar &into)
{
    const ColumnKey barEnd{into.length, ColumnKey::Beat};
    const auto marks = master.directionsAtBarIndex(static_cast<int>(bar));
    for (const DirectionMark mark : marks)
        if (!isAtBarEnd(mark))
            into.headings.push_back(
                {BarStart, QString::fromLatin1(directionWords(mark)), Ink::Heading});
    for (const EndDirection &direction : endDirections(marks, master.masterBars()[bar]->jumpText()))
        into.headings.push_back(
            {barEnd, QString::fromStdString(direction.words).simplified(), Ink::Heading});
}

QString sectionText(const Section &section)
{
    QString text;
    if (!section.letter.empty())
        text = QStringLiteral("[%1]").arg(QString::fromStdString(section.letter));
    if (!section.letter.empty() && !section.text.empty())
        text += QLatin1Char(' ');
    return text + QString::fromStdString(section.text);
}

void addEnding(const MasterBar &bar, const MasterBar *before, const MasterBar *after,
               SheetBar &into)
{
    const std::uint32_t passes = bar.alternateEndings();
    if (passes == 0 || bar.isEndingHidden())
        return;
    const auto continues = [passes](const MasterBar *left, const MasterBar *right) {
        return left != nullptr && right != nullptr && left->alternateEndings() == passes
            && right->alternateEndings() == passes && !left->isRepeatEnd()
            && !left->isEndingHidden() && !right->isEndingHidden();
    };
    const std::string text = bar.endingText().empty() ? endingNumbers(passes) : bar.endingText();
    into.ending.text = QString::fromStdString(text).simplified();
    into.ending.begins = !continues(before, &bar);
    into.ending.ends = !continues(&bar, after);
}

void addBarLines(const MasterBar &bar, bool isLast, SheetBar &into)
{
    into.left = bar.isRepeatStart() ? BarLine::RepeatStart : BarLine::Single;
    if (bar.isRepeatEnd())
        into.right = BarLine::RepeatEnd;
    else if (isLast)
        into.right = BarLine::Final;
    else if (bar.hasDoubleBar())
        into.right = BarLine::Double;
    else
        into.right = barLineStyles.at(static_cast<std::size_t>(bar.barLine()));
    if (bar.repeatCount() > 2)
        into.headings.push_back({{into.length, ColumnKey::Beat},
                                 QStringLiteral("x%1").arg(bar.repeatCount()),
                                 Ink::Heading});
}

} // namespace

void addBarHeadings(const MasterTrack &master, unsigned index, bool isFirstShown,
                    const Glyphs &glyphs, SheetBar &into)
{
    const auto &bars = master.masterBars();
    const MasterBar &bar = *bars.at(index);
    const MasterBar *const before = index > 0 ? bars[index - 1].get() : nullptr;
    const MasterBar *const after = index + 1 < bars.size() ? bars[index + 1].get() : nullptr;
    const bool isFirst = isFirstShown || before == nullptr;
    const auto add = [&](const QString &text) {
        into.headings.push_back({BarStart, text, Ink::Heading});
    };

    if (bar.hasSection())
        add(sectionText(bar.section()));
    addTempos(master, index, isFirst, glyphs, into);
    const KeySignature key = inForce(master, index).key;
    if (isFirst || key.accidentalCount() != before->concertKeySignature().accidentalCount()
        || key.isMajor() != before->concertKeySignature().isMajor())
        add(keyText(key, glyphs.isUtf8 ? Signs::Symbols : Signs::Letters));
    const TripletFeel feel = bar.tripletFeel();
    if (isFirst ? feel != TripletFeel::NoTripletFeel : feel != before->tripletFeel())
        add(feelText(feel));
    if (bar.isFreeTime() && (isFirst || !before->isFreeTime()))
        add(QStringLiteral("free time"));
    if (!bar.isFreeTime() && !isFirst && before->isFreeTime())
        add(QStringLiteral("in time"));
    addDirections(master, index, into);
    addEnding(bar, before, after, into);
    addBarLines(bar, after == nullptr, into);
}

bool showsTimeSignature(const MasterTrack &master, unsigned bar, bool isFirstShown)
{
    const auto &bars = master.masterBars();
    return bar == 0 || isFirstShown
        || !(bars.at(bar)->timeSignature() == bars.at(bar - 1)->timeSignature());
}

} // namespace zarn::sheet
