// SPDX-License-Identifier: MIT
#include "info/ScoreSummary.h"

#include "common/ListText.h"
#include "common/Terminal.h"
#include "common/Texts.h"
#include "common/TrackText.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/ZarnInForce.h>
#include <ZarnCore/model/form/ZarnPlayList.h>

#include <QStringList>

#include <cmath>
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

QString number(double value)
{
    return QString::number(std::round(value * 100) / 100);
}

/// "3/4 from bar 1", "4/4 from bar 9": what each bar has, where it changes. An empty text is not
/// told.
QStringList changes(const MasterTrack &master,
                    const std::function<QString(const MasterBar &)> &textOf)
{
    QStringList found;
    QString before;
    for (const auto &bar : master.masterBars()) {
        const QString text = textOf(*bar);
        if (!text.isEmpty() && text != before)
            found.append(QStringLiteral("%1 from bar %2").arg(text).arg(bar->index() + 1));
        before = text;
    }
    return found;
}

/// "half = 60 (Lento) from bar 1".
QString tempoText(const TempoMark &tempo)
{
    static const char *const units[] = {"beat",           "eighth", "quarter",
                                        "dotted quarter", "half",   "dotted half"};
    const auto unit = static_cast<std::size_t>(tempo.unit);
    QString text = QStringLiteral("%1 = %2").arg(
        QLatin1String(units[unit < std::size(units) ? unit : 0]), number(tempo.value));
    if (!tempo.text.empty())
        text += QStringLiteral(" (%1)").arg(QString::fromStdString(tempo.text).simplified());
    if (tempo.isLinear)
        text += QStringLiteral(", changing gradually");
    return text;
}

QStringList tempos(const MasterTrack &master)
{
    QStringList found;
    for (const TempoMark &tempo : temposOf(master)) {
        if (tempo.isGiven)
            found.append(
                QStringLiteral("%1 %2 bar %3")
                    .arg(tempoText(tempo),
                         tempo.position > 0 ? QStringLiteral("in") : QStringLiteral("from"))
                    .arg(tempo.bar + 1));
        else
            found.append(QStringLiteral("none given (plays at %1)").arg(tempoText(tempo)));
    }
    return found;
}

/// "bars 3-4", "bar 9".
QStringList freeBars(const MasterTrack &master)
{
    QStringList found;
    const auto &bars = master.masterBars();
    for (std::size_t from = 0; from < bars.size(); ++from) {
        if (!bars[from]->isFreeTime())
            continue;
        std::size_t to = from;
        while (to + 1 < bars.size() && bars[to + 1]->isFreeTime())
            ++to;
        found.append(from == to ? QStringLiteral("bar %1").arg(from + 1)
                                : QStringLiteral("bars %1-%2").arg(from + 1).arg(to + 1));
        from = to;
    }
    return found;
}

/// "bar 7 of track 2, voice 1 (5 quarters instead of 4)": bars with more music than time.
QStringList overlongBars(const ScoreModel &model)
{
    QStringList found;
    const auto &masters = model.masterTrack()->masterBars();
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (const auto &bar : staff->bars()) {
                const auto &master = masters.at(bar->index());
                for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
                    const auto &voice = bar->voices()[slot];
                    if (!voice || master->isFreeTime() || !(master->length() < voice->length()))
                        continue;
                    const QString place = track->staffCount() == 1
                        ? QString::number(track->index() + 1)
                        : QStringLiteral("%1, staff %2")
                              .arg(track->index() + 1)
                              .arg(staff->index() + 1);
                    found.append(
                        QStringLiteral("bar %1 of track %2, voice %3 (%4 instead of %5)")
                            .arg(bar->index() + 1)
                            .arg(place)
                            .arg(slot + 1)
                            .arg(quartersText(voice->length()), quartersText(master->length())));
                }
            }
    return found;
}

QStringList sections(const MasterTrack &master)
{
    QStringList found;
    for (const auto &bar : master.masterBars()) {
        if (!bar->hasSection())
            continue;
        const QString name =
            QString::fromStdString(bar->section().letter + " " + bar->section().text).trimmed();
        found.append(QStringLiteral("%1 at bar %2").arg(name).arg(bar->index() + 1));
    }
    return found;
}

/// "1-8", "1-7", "9-16"; empty when the bars are played as they stand.
QStringList playingOrder(const MasterTrack &master)
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
    return runs.size() > 1 ? runs : QStringList();
}

void add(QStringList &lines, const char *name, const QString &text)
{
    if (!text.isEmpty())
        lines.append(QStringLiteral("%1: %2").arg(QLatin1String(name), text));
}

} // namespace

std::string summaryOf(const ScoreModel &model, int width)
{
    const MasterTrack &master = *model.masterTrack();
    QStringList lines;
    for (unsigned i = 0; i <= static_cast<unsigned>(ScoreProperty::Notice); ++i) {
        const auto property = static_cast<ScoreProperty>(i);
        // Who arranged or transcribed the music, be there tablature or not.
        const QString name = property == ScoreProperty::Tabber ? QStringLiteral("Arranger")
                                                               : scorePropertyToQString(property);
        add(lines, name.toLatin1().constData(), QString::fromStdString(model.property(property)));
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
    const auto list = [width](const char *name, const QStringList &items,
                              const char *separator = ", ") {
        return QString::fromStdString(listText(name, items, width, separator));
    };
    QString lists;
    lists += list("Time", changes(master, [](const MasterBar &bar) {
                      return QStringLiteral("%1/%2")
                          .arg(bar.timeSignature().getNumerator())
                          .arg(bar.timeSignature().getDenominator());
                  }));
    lists += list("Key", changes(master, [](const MasterBar &bar) {
                      return keyText(bar.concertKeySignature(), Signs::Letters);
                  }));
    lists += list("Tempo", tempos(master));
    lists += list("Feel", changes(master, [](const MasterBar &bar) {
                      return bar.tripletFeel() == TripletFeel::NoTripletFeel
                          ? QString()
                          : tripletFeelToQString(bar.tripletFeel());
                  }));
    lists += list("Free time", freeBars(master));
    lists += list("Too long", overlongBars(model));
    lists += list("Sections", sections(master));
    lists += list("Played", playingOrder(master), " ");
    std::string text;
    for (const QString &line : lines)
        text += printable(line.toStdString()) + '\n';
    return text + lists.toStdString();
}

} // namespace zarn::tool
