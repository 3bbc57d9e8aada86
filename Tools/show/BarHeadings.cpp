// SPDX-License-Identifier: MIT
#include "show/BarHeadings.h"

#include "common/Texts.h"
#include "show/Glyphs.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <array>
#include <cmath>

namespace zarn::tool {

namespace {

/// By `DirectionMark`, as they are printed in scores; jumps stand at the end of their bar.
constexpr std::array<const char *, DirectionMarkCount> DirectionTexts = {
    "Coda",           "Double Coda", "Segno",          "Segno Segno",
    "Fine",           "D.C.",        "D.C. al Coda",   "D.C. al Double Coda",
    "D.C. al Fine",   "D.S.",        "D.S. al Coda",   "D.S. al Double Coda",
    "D.S. al Fine",   "D.S.S.",      "D.S.S. al Coda", "D.S.S. al Double Coda",
    "D.S.S. al Fine", "To Coda",     "To Double Coda",
};

/// By `TripletFeel`.
constexpr std::array<const char *, 7> FeelTexts = {
    "straight",           "swing 8ths (2:1)",    "swing 16ths (2:1)",    "dotted 8ths (3:1)",
    "dotted 16ths (3:1)", "Scottish 8ths (1:3)", "Scottish 16ths (1:3)",
};

const ColumnKey BarStart{0, ColumnKey::Signature};

/// Positions of automations are floating-point quarters; columns are exact.
constexpr std::int64_t PositionSteps = 5040 * 64;

utils::rational exactPosition(float position)
{
    return utils::rational(std::llround(double(position) * double(PositionSteps)), PositionSteps);
}

QString unitText(int unit, const Glyphs &glyphs)
{
    switch (unit) {
    case 1:
        return glyphs.eighthNote;
    case 3:
        return glyphs.quarterNote + QLatin1Char('.');
    case 4:
        return glyphs.halfNote;
    case 5:
        return glyphs.halfNote + QLatin1Char('.');
    default:
        return glyphs.quarterNote;
    }
}

QString tempoText(const std::string &words, int unit, double value, const Glyphs &glyphs)
{
    QString text = QString::fromStdString(words);
    if (!text.isEmpty())
        text += QLatin1Char(' ');
    return text + unitText(unit, glyphs) + QStringLiteral(" = ")
        + QString::number(std::round(value * 100) / 100);
}

void addTempos(const MasterTrack &master, unsigned bar, bool isFirstShown, const Glyphs &glyphs,
               SheetBar &into)
{
    bool startsWithTempo = false;
    for (const Automation *const automation : master.automations(Automation::Tempo, bar, bar)) {
        const auto *const tempo = dynamic_cast<const TempoAutomation *>(automation);
        if (tempo == nullptr)
            continue;
        startsWithTempo = startsWithTempo || tempo->position() == 0;
        QString text = tempoText(tempo->text(), tempo->unit(), double(tempo->value()), glyphs);
        if (tempo->isLinear())
            text += QStringLiteral(" (changing gradually)");
        if (tempo->isVisible() || isFirstShown)
            into.headings.push_back({{exactPosition(tempo->position())}, text, Ink::Heading});
    }
    if (startsWithTempo || !isFirstShown)
        return;
    const auto *const before =
        dynamic_cast<const TempoAutomation *>(master.previousAutomation(Automation::Tempo, bar, 0));
    const TempoSettings &start = master.tempoSettings();
    const QString text = before != nullptr
        ? tempoText(std::string(), before->unit(), double(before->value()), glyphs)
        : tempoText(start.label, static_cast<int>(start.unit), start.value, glyphs);
    into.headings.push_back({BarStart, text, Ink::Heading});
}

void addDirections(const MasterTrack &master, unsigned bar, SheetBar &into)
{
    const ColumnKey barEnd{into.length, ColumnKey::Beat};
    for (const DirectionMark mark : master.directionsAtBarIndex(static_cast<int>(bar))) {
        const bool isAtEnd = isJump(mark) || mark == DirectionMark::Fine;
        into.headings.push_back({isAtEnd ? barEnd : BarStart,
                                 QLatin1String(DirectionTexts[static_cast<std::size_t>(mark)]),
                                 Ink::Heading});
    }
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
    if (passes == 0)
        return;
    const auto continues = [passes](const MasterBar *left, const MasterBar *right) {
        return left != nullptr && right != nullptr && left->alternateEndings() == passes
            && right->alternateEndings() == passes && !left->isRepeatEnd();
    };
    into.ending.text = endingText(passes);
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
    const KeySignature &key = bar.concertKeySignature();
    if (isFirst || key.accidentalCount() != before->concertKeySignature().accidentalCount()
        || key.isMajor() != before->concertKeySignature().isMajor())
        add(keyText(key, glyphs.isUtf8 ? Signs::Symbols : Signs::Letters));
    const TripletFeel feel = bar.tripletFeel();
    if (isFirst ? feel != TripletFeel::NoTripletFeel : feel != before->tripletFeel())
        add(QLatin1String(FeelTexts.at(static_cast<std::size_t>(feel))));
    if (bar.isFreeTime() && (isFirst || !before->isFreeTime()))
        add(QStringLiteral("free time"));
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

} // namespace zarn::tool
