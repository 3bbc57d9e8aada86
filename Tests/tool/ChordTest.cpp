// SPDX-License-Identifier: MIT
// What "zarn chord" and "zarn scale" say.
#include "ToolRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using namespace zarn::test;

ToolRun run(std::initializer_list<const char *> words, const std::string &input = {})
{
    QStringList arguments;
    for (const char *const word : words)
        arguments.append(QString::fromUtf8(word));
    return runTool(arguments, input);
}

QJsonDocument json(const std::string &text)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(text));
}

} // namespace

TEST(ChordCommand, tellsTonesAndIntervalsOfASymbol)
{
    const ToolRun told = run({"chord", "F#ø7/E"});
    EXPECT_EQ(told.code, 0);
    EXPECT_TRUE(contains(told.out,
                         "F♯m7♭5/E\n"
                         "Tones     F♯  A   C   E\n"
                         "Intervals 1   b3  b5  b7\n"
                         "Bass      E\n"))
        << told.out;
    EXPECT_EQ(run({"chord", "N.C."}).code, 0);
    const ToolRun unknown = run({"chord", "Cfoo"});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_TRUE(contains(unknown.err, "\"Cfoo\" is no chord symbol"));
}

TEST(ChordCommand, namesNotesBestFirstAndSetsLineByLine)
{
    const ToolRun named = run({"chord", "--notes", "57,60,64,67", "--key", "C"});
    EXPECT_EQ(named.code, 0);
    EXPECT_EQ(named.out.substr(0, 4), "Am7\n");
    EXPECT_TRUE(contains(named.out, "\nC6/A\n"));
    EXPECT_EQ(run({"chord", "--notes", "F#4 A#4 C#5", "--key", "Gb"}).out, "Gb\n");

    const ToolRun sets =
        run({"chord", "--notes", "-", "--json"}, "60 64 67\n\n60 99999\n64,67,71,74\n");
    EXPECT_EQ(sets.code, 1);
    EXPECT_TRUE(contains(sets.err, "line 3: \"99999\" is no pitch"));
    const auto lines = QString::fromStdString(sets.out).split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 5);
    EXPECT_EQ(json(lines[0].toStdString()).array().at(0).toString(), QStringLiteral("C"));
    EXPECT_TRUE(json(lines[1].toStdString()).isArray());
    EXPECT_EQ(json(lines[3].toStdString()).array().at(0).toString(), QStringLiteral("Em7"));

    const ToolRun reasons = run({"chord", "--notes", "60 64 70", "--reasons", "--json"});
    const QJsonObject best = json(reasons.out).array().at(0).toObject();
    EXPECT_EQ(best.value(QStringLiteral("name")).toString(), QStringLiteral("C7"));
    EXPECT_EQ(best.value(QStringLiteral("omitted")).toArray().at(0).toString(),
              QStringLiteral("5"));
}

TEST(ChordCommand, saysWhatItDoesNotUnderstand)
{
    EXPECT_EQ(run({"chord"}).code, 2);
    EXPECT_EQ(run({"chord", "C", "--notes", "60"}).code, 2);
    EXPECT_EQ(run({"chord", "--notes", "60,64", "--key", "H"}).code, 2);
    const ToolRun single = run({"chord", "--notes", "60"});
    EXPECT_EQ(single.code, 1);
    EXPECT_TRUE(contains(single.err, "no chord symbol names these notes"));
    EXPECT_EQ(run({"chord", "--notes", "60", "--json"}).out, "[]\n");
}

TEST(ScaleCommand, tellsTonesModesAndChords)
{
    const ToolRun told = run({"scale", "a harmonic minor", "--chords", "--json"});
    const QJsonObject scale = json(told.out).object();
    EXPECT_EQ(scale.value(QStringLiteral("name")).toString(), QStringLiteral("A harmonic minor"));
    EXPECT_EQ(scale.value(QStringLiteral("tones")).toArray().at(6).toString(),
              QStringLiteral("G#"));
    EXPECT_EQ(scale.value(QStringLiteral("chords")).toArray().at(0).toString(),
              QStringLiteral("Am(maj7)"));
    EXPECT_TRUE(contains(run({"scale", "C", "dorian"}).out, "Modes: D phrygian, Eb lydian"));
    const ToolRun unknown = run({"scale", "C doriann"});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_TRUE(contains(unknown.err, "did you mean \"dorian\"?")) << unknown.err;
}

TEST(ScaleCommand, namesNotesAndListsAllScales)
{
    EXPECT_EQ(run({"scale", "--notes", "62,64,65,67,69,71,72"}).out.substr(0, 17),
              "D dorian\nC major\n");
    EXPECT_GE(json(run({"scale", "--list", "--json"}).out).array().size(), 92);
    EXPECT_EQ(run({"scale"}).code, 2);
    EXPECT_EQ(run({"scale", "C", "--list"}).code, 2);
}

TEST(NameChords, listsTheChordsOfThePieceOrOfBars)
{
    const ToolRun named = runTool({QStringLiteral("edit"), romance(), QStringLiteral("-c"),
                                   QStringLiteral("suggest-chords 5-10 bar")});
    EXPECT_EQ(named.code, 0);
    EXPECT_TRUE(contains(named.out, "  5        0  Em\n  7        0  Am\n")) << named.out;

    const ToolRun selected = runTool({QStringLiteral("edit"), romance(), QStringLiteral("-c"),
                                      QStringLiteral("select 5-10"), QStringLiteral("-c"),
                                      QStringLiteral("suggest-chords"), QStringLiteral("-c"),
                                      QStringLiteral("suggest-chords bar"), QStringLiteral("-c"),
                                      QStringLiteral("suggest-chords half")});
    EXPECT_EQ(selected.code, 0) << selected.err;
    const QString listed = QString::fromStdString(selected.out);
    EXPECT_EQ(listed.count(QStringLiteral("Bar  Quarter  Chord")), 3) << selected.out;
    EXPECT_EQ(listed.count(QStringLiteral("  5        0  Em\n  7        0  Am\n")), 3)
        << selected.out;
}
