// SPDX-License-Identifier: MIT
#include "events/PlanText.h"

#include "common/Terminal.h"
#include "common/TextTable.h"
#include "common/Texts.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/music/ZarnDrumKeys.h>
#include <ZarnCore/playback/ZarnPlanEvents.h>

#include <QJsonArray>

#include <algorithm>
#include <cmath>
#include <map>

namespace zarn::tool {

namespace {

using playback::PlanEvent;
using playback::PlannedControl;
using playback::PlannedNote;

QString number(double value, int digits)
{
    return QString::number(value, 'f', digits);
}

QString keyName(const PlannedNote &note, int fifths, Signs signs)
{
    if (!note.isPercussion)
        return pitchText(spelledInKey(Tone(note.key), fifths), note.key, signs);
    const DrumKey *const drum = drumKey(note.key);
    return drum ? QString::fromUtf8(drum->word.data(), static_cast<int>(drum->word.size()))
                : QStringLiteral("drum %1").arg(note.key);
}

QString controlText(const PlannedControl &control)
{
    static const std::map<int, QString> names{
        {playback::VolumeController, QStringLiteral("volume")},
        {playback::PanController, QStringLiteral("pan")},
        {playback::ExpressionController, QStringLiteral("expression")},
        {playback::SustainController, QStringLiteral("pedal")},
        {playback::BrightnessController, QStringLiteral("brightness")},
    };
    if (control.kind == PlannedControl::Kind::Program)
        return QStringLiteral("program %1").arg(control.number + 1)
            + (control.value != 0 ? QStringLiteral(" bank %1").arg(control.value) : QString());
    return QStringLiteral("%1 %2").arg(names.at(control.number)).arg(control.value);
}

/// How the pitch moves, in semitones: "0 to 2".
QString motionText(const playback::PitchMotion *motion)
{
    if (motion == nullptr)
        return {};
    const auto [low, high] = std::minmax_element(
        motion->points.begin(), motion->points.end(),
        [](const auto &left, const auto &right) { return left.semitones < right.semitones; });
    return QStringLiteral("%1 to %2").arg(number(low->semitones, 2), number(high->semitones, 2));
}

class PlanTable {
public:
    PlanTable(const ScoreModel &model, const playback::PlaybackPlan &plan, Signs signs)
        : _model(model), _plan(plan), _signs(signs)
    {
    }

    TextTable table()
    {
        const auto &points = _plan.tempo().points();
        auto point = points.begin();
        for (const PlanEvent &event : playback::eventsOf(_plan)) {
            for (; point != points.end() && point->time <= event.time
                 && point->time < _plan.bars().length();
                 ++point)
                addTempo(*point);
            if (event.kind == PlanEvent::Kind::NoteOn)
                addNote(_plan.notes()[event.index]);
            else if (event.kind == PlanEvent::Kind::Control)
                addControl(_plan.controls()[event.index]);
        }
        return std::move(_table);
    }

private:
    /// The bar, where it is another than in the row before, and the time.
    QStringList placeOf(const utils::rational &time, double second)
    {
        const playback::PlayPlace place = _plan.bars().placeAt(time);
        const bool isNew = place.playedBar + 1 != _barOfRow;
        _barOfRow = place.playedBar + 1;
        const unsigned pass = _plan.bars().bars()[place.playedBar].pass;
        const QString bar = pass == 0 ? QString::number(place.bar + 1)
                                      : QStringLiteral("%1 (%2.)").arg(place.bar + 1).arg(pass + 1);
        return {isNew ? bar : QString(),
                QString::fromStdString(
                    (time - _plan.bars().bars()[place.playedBar].start + 1).toString()),
                number(second, 3)};
    }

    QString trackOf(unsigned track) const
    {
        const Track &shown = *_model.tracks()[track];
        return QStringLiteral("%1 %2").arg(track + 1).arg(
            QString::fromStdString(shown.shortName().empty() ? shown.name() : shown.shortName()));
    }

    void addNote(const PlannedNote &note)
    {
        const auto &bars = _model.masterTrack()->masterBars();
        const int fifths = bars[note.bar]->concertKeySignature().accidentalCount();
        const QString technique = note.technique == playback::Technique::Plucked
            ? QString()
            : QString::fromStdString(playback::techniqueText(note.technique));
        _table.addRow(placeOf(note.start, note.startSecond)
                      + QStringList{trackOf(note.track), keyName(note, fifths, _signs),
                                    QString::number(note.velocity),
                                    QString::fromStdString(note.length().toString()),
                                    number(note.endSecond - note.startSecond, 3), technique,
                                    motionText(_plan.motionOf(note))});
    }

    void addControl(const PlannedControl &control)
    {
        _table.addRow(
            placeOf(control.time, control.second)
            + QStringList{trackOf(control.track), controlText(control), {}, {}, {}, {}, {}});
    }

    void addTempo(const playback::TempoMap::Point &point)
    {
        QString text = QStringLiteral("tempo %1").arg(number(point.tempo, 2));
        if (point.tempoAtEnd != point.tempo)
            text += QStringLiteral(" to %1").arg(number(point.tempoAtEnd, 2));
        _table.addRow(placeOf(point.time, point.second)
                      + QStringList{{}, text, {}, {}, {}, {}, {}});
    }

    const ScoreModel &_model;
    const playback::PlaybackPlan &_plan;
    Signs _signs;
    std::size_t _barOfRow = 0;
    TextTable _table{{{QStringLiteral("Bar")},
                      {QStringLiteral("Beat")},
                      {QStringLiteral("Seconds"), TextTable::Side::Right},
                      {QStringLiteral("Track")},
                      {QStringLiteral("Sound")},
                      {QStringLiteral("Velocity"), TextTable::Side::Right},
                      {QStringLiteral("Quarters"), TextTable::Side::Right},
                      {QStringLiteral("Lasts"), TextTable::Side::Right},
                      {QStringLiteral("Played")},
                      {QStringLiteral("Pitch moves")}}};
};

QString exact(const utils::rational &time)
{
    return time.toQString();
}

QJsonObject noteJson(const playback::PlaybackPlan &plan, const PlannedNote &note)
{
    const playback::Lane &lane = plan.lanes()[note.lane];
    QJsonObject object{
        {QStringLiteral("start"), exact(note.start)},
        {QStringLiteral("length"), exact(note.length())},
        {QStringLiteral("second"), note.startSecond},
        {QStringLiteral("endSecond"), note.endSecond},
        {QStringLiteral("key"), note.key},
        {QStringLiteral("velocity"), note.velocity},
        {QStringLiteral("technique"),
         QString::fromStdString(playback::techniqueText(note.technique))},
        {QStringLiteral("track"), note.track},
        {QStringLiteral("staff"), note.staff},
        {QStringLiteral("voice"), note.voice},
        {QStringLiteral("bar"), static_cast<int>(note.bar)},
        {QStringLiteral("beat"), static_cast<int>(note.beat)},
        {QStringLiteral("playedBar"), static_cast<int>(note.playedBar)},
        {QStringLiteral("string"), note.string},
        {QStringLiteral("port"), lane.port},
        {QStringLiteral("channel"), lane.channel},
    };
    if (const auto *const motion = plan.motionOf(note)) {
        QJsonArray points;
        for (const auto &point : motion->points)
            points.append(QJsonArray{exact(point.time), point.semitones});
        object.insert(QStringLiteral("pitch"), points);
    }
    return object;
}

} // namespace

std::string planText(const ScoreModel &model, const playback::PlaybackPlan &plan,
                     const Terminal &terminal)
{
    const Signs signs = terminal.showsUtf8() ? Signs::Symbols : Signs::Letters;
    return PlanTable(model, plan, signs).table().text(terminal);
}

QJsonObject planJson(const playback::PlaybackPlan &plan)
{
    QJsonArray bars;
    for (const playback::PlayedBar &played : plan.bars().bars())
        bars.append(QJsonObject{{QStringLiteral("bar"), static_cast<int>(played.bar)},
                                {QStringLiteral("pass"), static_cast<int>(played.pass)},
                                {QStringLiteral("start"), exact(played.start)},
                                {QStringLiteral("length"), exact(played.length)},
                                {QStringLiteral("second"), plan.tempo().secondsAt(played.start)}});
    QJsonArray tempos;
    for (const auto &point : plan.tempo().points())
        tempos.append(QJsonObject{{QStringLiteral("start"), exact(point.time)},
                                  {QStringLiteral("second"), point.second},
                                  {QStringLiteral("tempo"), point.tempo},
                                  {QStringLiteral("tempoAtEnd"), point.tempoAtEnd}});
    QJsonArray notes;
    for (const PlannedNote &note : plan.notes())
        notes.append(noteJson(plan, note));
    QJsonArray controls;
    for (const PlannedControl &control : plan.controls()) {
        const bool isProgram = control.kind == PlannedControl::Kind::Program;
        controls.append(QJsonObject{
            {QStringLiteral("start"), exact(control.time)},
            {QStringLiteral("second"), control.second},
            {QStringLiteral("track"), control.track},
            {isProgram ? QStringLiteral("program") : QStringLiteral("controller"), control.number},
            {isProgram ? QStringLiteral("bank") : QStringLiteral("value"), control.value}});
    }
    return {{QStringLiteral("bars"), bars},
            {QStringLiteral("tempos"), tempos},
            {QStringLiteral("notes"), notes},
            {QStringLiteral("controls"), controls}};
}

} // namespace zarn::tool
