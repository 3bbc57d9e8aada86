// SPDX-License-Identifier: MIT
#include "info/ScoreSummary.h"

#include "common/Terminal.h"
#include "common/Texts.h"
#include "show/ScoreTitle.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/ZarnPlayList.h>

#include <QStringList>

#include <functional>

namespace zarn::tool {

namespace {

/// What a track holds, counted.
struct Contents {
    std::size_t beats = 0;
    std::size_t notes = 0;
    std::size_t rests = 0;

    void add(const Staff &staff)
    {
        for (const auto &bar : staff.bars())
            for (const auto &voice : bar->voices()) {
                if (!voice)
                    continue;
                for (const auto &beat : voice->beats()) {
                    ++beats;
                    notes += beat->notes().size();
                    rests += beat->isRest() ? 1u : 0u;
                }
            }
    }

    QString text() const
    {
        return QString::fromStdString(counted(beats, "beat") + ", " + counted(notes, "note") + ", "
                                      + counted(rests, "rest"));
    }
};

QString tempoText(double value, TempoUnit unit)
{
    static const char *const units[] = {"beat",           "eighth", "quarter",
                                        "dotted quarter", "half",   "dotted half"};
    const auto index = static_cast<std::size_t>(unit);
    return QStringLiteral("%1 = %2")
        .arg(QLatin1String(units[index < std::size(units) ? index : 0]))
        .arg(value);
}

/// "3/4 from bar 1, 4/4 from bar 9": what each bar has, where it changes. An empty text is not
/// told.
QString changes(const MasterTrack &master, const std::function<QString(const MasterBar &)> &textOf)
{
    QStringList found;
    QString before;
    for (const auto &bar : master.masterBars()) {
        const QString text = textOf(*bar);
        if (!text.isEmpty() && text != before)
            found.append(QStringLiteral("%1 from bar %2").arg(text).arg(bar->index() + 1));
        before = text;
    }
    return found.join(QStringLiteral(", "));
}

QString tempos(const MasterTrack &master)
{
    QStringList found;
    for (const Automation *const automation : master.automations(Automation::Tempo)) {
        const auto *const tempo = dynamic_cast<const TempoAutomation *>(automation);
        if (tempo != nullptr)
            found.append(
                QStringLiteral("%1 from bar %2")
                    .arg(tempoText(double(tempo->value()), static_cast<TempoUnit>(tempo->unit())))
                    .arg(tempo->index() + 1));
    }
    if (found.isEmpty())
        found.append(tempoText(master.tempoValue(), master.tempoUnit()));
    return found.join(QStringLiteral(", "));
}

QString sections(const MasterTrack &master)
{
    QStringList found;
    for (const auto &bar : master.masterBars()) {
        if (!bar->hasSection())
            continue;
        const QString name =
            QString::fromStdString(bar->section().letter + " " + bar->section().text).trimmed();
        found.append(QStringLiteral("%1 at bar %2").arg(name).arg(bar->index() + 1));
    }
    return found.join(QStringLiteral(", "));
}

/// "1-8 1-7 9-16"; empty when the bars are played as they stand.
QString playingOrder(const MasterTrack &master)
{
    const std::vector<int> bars = unfoldPlayList(master);
    QStringList runs;
    for (std::size_t from = 0; from < bars.size();) {
        std::size_t to = from;
        while (to + 1 < bars.size() && bars[to + 1] == bars[to] + 1)
            ++to;
        runs.append(from == to ? QString::number(bars[from] + 1)
                               : QStringLiteral("%1-%2").arg(bars[from] + 1).arg(bars[to] + 1));
        from = to + 1;
    }
    return runs.size() > 1 ? runs.join(QLatin1Char(' ')) : QString();
}

void add(QStringList &lines, const char *name, const QString &text)
{
    if (!text.isEmpty())
        lines.append(QStringLiteral("%1: %2").arg(QLatin1String(name), text));
}

} // namespace

std::string summaryOf(const ScoreModel &model)
{
    const MasterTrack &master = *model.masterTrack();
    QStringList lines;
    for (unsigned i = 0; i <= static_cast<unsigned>(ScoreProperty::Notice); ++i) {
        const auto property = static_cast<ScoreProperty>(i);
        add(lines, scorePropertyToQString(property).toLatin1().constData(),
            QString::fromStdString(model.property(property)));
    }
    add(lines, "Bars", QString::number(master.masterBarCount()));
    add(lines, "Tracks", QString::number(model.trackCount()));
    Contents all;
    for (const auto &track : model.tracks()) {
        Contents contents;
        for (const auto &staff : track->staves())
            contents.add(*staff);
        all.beats += contents.beats;
        all.notes += contents.notes;
        all.rests += contents.rests;
        lines.append(QStringLiteral("  %1").arg(trackText(*track, Signs::Letters)));
        lines.append(QStringLiteral("    %1, %2")
                         .arg(QString::fromStdString(track->staffCount() == 1
                                                         ? "1 staff"
                                                         : counted(track->staffCount(), "stave")),
                              contents.text()));
    }
    add(lines, "Music", all.text());
    add(lines, "Time", changes(master, [](const MasterBar &bar) {
            return QStringLiteral("%1/%2")
                .arg(bar.timeSignature().getNumerator())
                .arg(bar.timeSignature().getDenominator());
        }));
    add(lines, "Key", changes(master, [](const MasterBar &bar) {
            return keyText(bar.concertKeySignature(), Signs::Letters);
        }));
    add(lines, "Tempo", tempos(master));
    add(lines, "Feel", changes(master, [](const MasterBar &bar) {
            return bar.tripletFeel() == TripletFeel::NoTripletFeel
                ? QString()
                : tripletFeelToQString(bar.tripletFeel());
        }));
    add(lines, "Sections", sections(master));
    add(lines, "Played", playingOrder(master));
    std::string text;
    for (const QString &line : lines)
        text += printable(line.toStdString()) + '\n';
    return text;
}

} // namespace zarn::tool
