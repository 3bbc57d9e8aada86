// SPDX-License-Identifier: MIT
#include "scale/ScaleCommand.h"

#include "common/Failure.h"
#include "common/NearestWord.h"
#include "common/PitchSets.h"
#include "common/Terminal.h"
#include "common/TextTable.h"
#include "common/TuningWord.h"
#include "scale/PositionPicture.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/scales/ZarnScalePositions.h>
#include <ZarnCore/scales/ZarnScaleRecognizer.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <iostream>

namespace zarn::tool {

namespace {

using scale::Mode;
using scale::Scale;
using scale::ScaleKind;

QString positionsOption()
{
    return QStringLiteral("positions");
}

QString text(std::string_view words)
{
    return QString::fromUtf8(words.data(), static_cast<int>(words.size()));
}

QStringList toneNames(const Scale &scale)
{
    QStringList names;
    for (const PitchClass &tone : scale.tones())
        names.append(tone.toString());
    return names;
}

QStringList degreeNames(const ScaleKind &kind)
{
    QStringList names;
    for (const chord::Degree &degree : kind.degrees())
        names.append(QString::fromStdString(degree.toText()));
    return names;
}

QStringList chordNames(const Scale &scale, int size)
{
    QStringList names;
    for (const chord::Chord &chord : scale.chords(size))
        names.append(QString::fromStdString(chord.toText()));
    return names;
}

QStringList aliasNames(const ScaleKind &kind)
{
    QStringList names;
    for (const auto alias : kind.aliases())
        names.append(text(alias));
    return names;
}

/// Every scale of the same tones that has a name, but for the scale itself.
QStringList modeNames(const Scale &scale)
{
    QStringList names;
    const auto modes = scale.modes();
    for (std::size_t i = 1; i < modes.size(); ++i)
        if (modes[i].kind != nullptr)
            names.append(modes[i].tonic.toString() + QLatin1Char(' ')
                         + text(modes[i].kind->name()));
    return names;
}

Scale scaleOf(const QString &words)
{
    if (const auto found = Scale::fromText(words.toStdString()))
        return *found;
    QStringList names;
    for (const ScaleKind &kind : ScaleKind::all())
        names << text(kind.name()) << aliasNames(kind);
    const QString nearest = nearestWord(words.section(QLatin1Char(' '), 1).trimmed(), names);
    throw Failure(
        QStringLiteral("\"%1\" is no scale; scales are named by their tonic and kind, such as \"C "
                       "dorian\"; %2")
            .arg(words,
                 nearest.isEmpty() ? QStringLiteral("see \"zarn scale --list\"")
                                   : QStringLiteral("did you mean \"%1\"?").arg(nearest))
            .toStdString());
}

void printScale(const Scale &scale, bool withChords, const Terminal &terminal)
{
    std::cout << scale.toText() << '\n';
    const QStringList tones = toneNames(scale);
    const QStringList degrees = degreeNames(scale.kind());
    const QStringList triads = chordNames(scale, 3);
    const QStringList sevenths = chordNames(scale, 4);
    std::vector<TextTable::Column> columns = {{QStringLiteral("Tone")},
                                              {QStringLiteral("Interval")}};
    if (withChords) {
        columns.push_back({QStringLiteral("Triad")});
        columns.push_back({QStringLiteral("Seventh chord")});
    }
    TextTable table(std::move(columns));
    for (int i = 0; i < tones.size(); ++i) {
        QStringList row = {tones[i], degrees[i]};
        if (withChords)
            row << triads.value(i) << sevenths.value(i);
        table.addRow(row);
    }
    std::cout << table.text(terminal);
    const QStringList modes = modeNames(scale);
    if (!modes.isEmpty())
        std::cout << "Modes: " << modes.join(QStringLiteral(", ")).toStdString() << '\n';
    const QStringList aliases = aliasNames(scale.kind());
    if (!aliases.isEmpty())
        std::cout << "Also: " << aliases.join(QStringLiteral(", ")).toStdString() << '\n';
}

QJsonObject jsonOf(const ScaleKind &kind)
{
    return {{QStringLiteral("name"), text(kind.name())},
            {QStringLiteral("aliases"), QJsonArray::fromStringList(aliasNames(kind))},
            {QStringLiteral("intervals"), QJsonArray::fromStringList(degreeNames(kind))}};
}

QJsonArray jsonOf(const std::vector<scale::ScalePosition> &positions)
{
    QJsonArray all;
    for (const scale::ScalePosition &position : positions) {
        QJsonArray strings;
        for (const std::vector<int> &frets : position.frets) {
            QJsonArray numbers;
            for (const int fret : frets)
                numbers.append(fret);
            strings.append(numbers);
        }
        all.append(QJsonObject{{QStringLiteral("firstFret"), position.firstFret},
                               {QStringLiteral("lastFret"), position.lastFret},
                               {QStringLiteral("frets"), strings}});
    }
    return all;
}

/// The neck that a person asks for; a guitar when he does not.
GuitarTuning tuningOf(const Arguments &arguments)
{
    const QString tuning = QStringLiteral("tuning");
    return anyTuning(arguments.has(tuning) ? arguments.value(tuning) : QStringLiteral("Guitar"));
}

void printJson(const Scale &scale, const Arguments &arguments, bool withChords)
{
    QJsonObject object = jsonOf(scale.kind());
    object.insert(QStringLiteral("name"), QString::fromStdString(scale.toText()));
    object.insert(QStringLiteral("tonic"), scale.tonic().toString());
    object.insert(QStringLiteral("tones"), QJsonArray::fromStringList(toneNames(scale)));
    object.insert(QStringLiteral("modes"), QJsonArray::fromStringList(modeNames(scale)));
    if (withChords) {
        object.insert(QStringLiteral("triads"), QJsonArray::fromStringList(chordNames(scale, 3)));
        object.insert(QStringLiteral("chords"), QJsonArray::fromStringList(chordNames(scale, 4)));
    }
    if (arguments.has(positionsOption()))
        object.insert(positionsOption(), jsonOf(scale::positions(scale, tuningOf(arguments))));
    std::cout << QJsonDocument(object).toJson().toStdString();
}

int listScales(bool asJson, const Terminal &terminal)
{
    QJsonArray all;
    TextTable table(
        {{QStringLiteral("Scale")}, {QStringLiteral("Intervals")}, {QStringLiteral("Also")}});
    for (const ScaleKind &kind : ScaleKind::all()) {
        all.append(jsonOf(kind));
        table.addRow({text(kind.name()), degreeNames(kind).join(QLatin1Char(' ')),
                      aliasNames(kind).join(QStringLiteral(", "))});
    }
    std::cout << (asJson ? QJsonDocument(all).toJson().toStdString() : table.text(terminal));
    return Done;
}

QStringList scaleNames(const scale::ScaleRecognizer &recognizer, const std::vector<int> &pitches)
{
    QStringList names;
    for (const scale::ScaleName &name : recognizer.names(scale::HeardTones::ofPitches(pitches)))
        names.append(QString::fromStdString(name.scale.toText()));
    return names;
}

int runScale(const Arguments &arguments, const Terminal &terminal)
{
    const bool asJson = arguments.has(QStringLiteral("json"));
    const bool hasNotes = arguments.has(QStringLiteral("notes"));
    const bool isList = arguments.has(QStringLiteral("list"));
    const bool hasName = !arguments.operands().isEmpty();
    if (int(hasNotes) + int(isList) + int(hasName) != 1)
        throw UsageError{
            QStringLiteral("\"zarn scale\" takes the name of a scale, --notes or --list")};
    if (isList)
        return listScales(asJson, terminal);
    if (hasNotes) {
        const scale::ScaleRecognizer recognizer(keyOf(arguments));
        return printNames(
            arguments,
            [&](const std::vector<int> &pitches) { return scaleNames(recognizer, pitches); },
            QStringLiteral("there are no notes to name a scale of"));
    }
    const Scale scale = scaleOf(arguments.operands().join(QLatin1Char(' ')));
    const bool withChords = arguments.has(QStringLiteral("chords"));
    if (asJson) {
        printJson(scale, arguments, withChords);
        return Done;
    }
    printScale(scale, withChords, terminal);
    if (arguments.has(positionsOption())) {
        const GuitarTuning tuning = tuningOf(arguments);
        std::cout << positionPicture(scale, scale::positions(scale, tuning), tuning, terminal);
    }
    return Done;
}

} // namespace

Subcommand scaleCommand()
{
    return {
        QStringLiteral("scale"),
        QStringLiteral("[NAME]"),
        0,
        -1,
        QStringLiteral("Tells what a scale has, and what scales some notes belong to."),
        QStringLiteral(
            "NAME is a tonic and a kind, such as \"C dorian\" or \"F# harmonic minor\". Its tones\n"
            "are printed with their intervals against the major scale, and the other scales of\n"
            "the same tones. With --notes, prints the scales that the notes may belong to, the\n"
            "best one first; the lowest note counts as the tonic when several fit as well."),
        {{QStringLiteral("notes"), QStringLiteral("n"), QStringLiteral("NOTES"),
          QStringLiteral("Name the scale of these: MIDI numbers or names; - reads a set a line.")},
         {QStringLiteral("key"), QStringLiteral("k"), QStringLiteral("KEY"),
          QStringLiteral("The key, by its tonic; a minor key in lower case.")},
         {QStringLiteral("chords"), QStringLiteral("c"), QString(),
          QStringLiteral("Also the chords on each tone of the scale.")},
         {positionsOption(), QStringLiteral("p"), QString(),
          QStringLiteral("Draw where it lies on the neck of a guitar, tonic in brackets.")},
         {QStringLiteral("tuning"), QStringLiteral("t"), QStringLiteral("TUNING"),
          QStringLiteral("For --positions: notes of the strings, a tuning, or an instrument.")},
         {QStringLiteral("list"), QStringLiteral("l"), QString(),
          QStringLiteral("List all kinds of scales.")},
         {QStringLiteral("json"), QStringLiteral("j"), QString(),
          QStringLiteral("Print it for programs; names as an array, a line for each set.")}},
        runScale,
    };
}

} // namespace zarn::tool
