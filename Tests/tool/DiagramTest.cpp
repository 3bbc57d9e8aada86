// SPDX-License-Identifier: MIT
// Chord diagrams in the terminal, and of the chords of a score.
#include "ToolRun.h"

#include "chord/DiagramPicture.h"
#include "common/Terminal.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using namespace zarn::test;

ChordDiagram diagram(const std::string &name, std::vector<std::int8_t> frets,
                     std::vector<std::uint8_t> fingers)
{
    ChordDiagram made;
    made.name = name;
    made.frets = std::move(frets);
    made.fingers = std::move(fingers);
    setFirstFret(made);
    return made;
}

std::string picture(const std::vector<ChordDiagram> &diagrams, int width = 80, bool utf8 = true,
                    const std::vector<unsigned> &courses = {})
{
    return tool::diagramPicture(diagrams, courses, tool::Terminal(width, utf8, false));
}

TEST(Diagrams, areDrawnAsInBooks)
{
    const auto c = diagram("C", {-1, 3, 2, 0, 1, 0}, {0, 3, 2, 0, 1, 0});
    const auto high = diagram("Cm", {8, 10, 10, 8, 8, 8}, {1, 3, 4, 1, 1, 1});
    EXPECT_EQ(picture({c, high}),
              "C              Cm\n"
              "×     ○   ○\n"
              "╒═╤═╤═╤═╤═╕    ┌─┬─┬─┬─┬─┐\n"
              "│ │ │ │ 1 │    1━━━━━1━1━1 8fr\n"
              "├─┼─┼─┼─┼─┤    ├─┼─┼─┼─┼─┤\n"
              "│ │ 2 │ │ │    │ │ │ │ │ │\n"
              "├─┼─┼─┼─┼─┤    ├─┼─┼─┼─┼─┤\n"
              "│ 3 │ │ │ │    │ 3 4 │ │ │\n"
              "├─┼─┼─┼─┼─┤    ├─┼─┼─┼─┼─┤\n"
              "│ │ │ │ │ │    │ │ │ │ │ │\n"
              "└─┴─┴─┴─┴─┘    └─┴─┴─┴─┴─┘\n");
    EXPECT_EQ(picture({diagram("F", {2, 0, 1, 0}, {})}, 80, false),
              "F\n"
              "  o   o\n"
              "=======\n"
              "| | * |\n"
              "+-+-+-+\n"
              "* | | |\n"
              "+-+-+-+\n"
              "| | | |\n"
              "+-+-+-+\n"
              "| | | |\n"
              "+-+-+-+\n");
}

TEST(Diagrams, whateverADocumentHoldsIsDrawnSomehow)
{
    const auto c = diagram("C", {-1, 3, 2, 0, 1, 0}, {0, 3, 2, 0, 1, 0});
    EXPECT_EQ(picture({c, c, c}, 27), picture({c, c}, 27) + "\n" + picture({c}))
        << "a line holds as many as fit";
    EXPECT_EQ(picture({diagram("nothing", {}, {})}), "");
    auto odd = diagram("odd", {1, 127, 3, -1}, {1, 5, 2});
    odd.firstFret = 200;
    EXPECT_TRUE(contains(picture({odd}), "2 │"));
    EXPECT_TRUE(contains(picture({diagram("one", {3}, {3})}), "3"));
    EXPECT_FALSE(contains(picture({diagram("C", {3, 3}, {3, 3})}, 80, true, {2}), "━"))
        << "a pair of strings is no barre";
}

QJsonArray voicings(std::initializer_list<const char *> arguments)
{
    QStringList words(QStringLiteral("chord"));
    for (const char *const argument : arguments)
        words.append(QString::fromUtf8(argument));
    const ToolRun run = runTool(words << QStringLiteral("--json"));
    EXPECT_EQ(run.code, 0) << run.err;
    return QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).array();
}

QJsonArray numbers(std::initializer_list<int> values)
{
    QJsonArray array;
    for (const int value : values)
        array.append(value);
    return array;
}

TEST(Diagrams, aChordIsShownAsItIsPlayed)
{
    const auto first = voicings({"C"}).first().toObject();
    EXPECT_EQ(first[QStringLiteral("frets")].toArray(), numbers({-1, 3, 2, 0, 1, 0}));
    EXPECT_EQ(first[QStringLiteral("fingers")].toArray(), numbers({0, 3, 2, 0, 1, 0}));
    EXPECT_EQ(first[QStringLiteral("tones")].toArray().at(2), QStringLiteral("E"));
    EXPECT_TRUE(first[QStringLiteral("intervals")].toArray().at(0).isNull());
    for (const char *const tuning : {"G4 C4 E4 A4", "Ukulele"})
        EXPECT_EQ(voicings({"F", "--tuning", tuning}).first()[QStringLiteral("frets")].toArray(),
                  numbers({2, 0, 1, 0}));
    EXPECT_EQ(voicings({"D", "--capo", "2"}).first()[QStringLiteral("frets")].toArray(),
              numbers({-1, 3, 2, 0, 1, 0}));
    EXPECT_GT(voicings({"C", "--all"}).size(), 100);
    EXPECT_EQ(voicings({"N.C."}).size(), 0);

    const ToolRun drawn = runTool({QStringLiteral("chord"), QStringLiteral("C5"),
                                   QStringLiteral("--tuning"), QStringLiteral("drop d")});
    EXPECT_TRUE(contains(drawn.out, "╒═╤═╤═╤═╤═╕")) << drawn.out;
    EXPECT_TRUE(contains(drawn.out, " further ways to play it; --all draws them.\n"));
    const ToolRun unknown = runTool({QStringLiteral("chord"), QStringLiteral("C"),
                                     QStringLiteral("--tuning"), QStringLiteral("Drop DD")});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_TRUE(contains(unknown.err, "did you mean \"Drop D\"?")) << unknown.err;
    const ToolRun nothing = runTool(
        {QStringLiteral("chord"), QStringLiteral("C"), QStringLiteral("--tuning"), QString()});
    EXPECT_EQ(nothing.code, 1);
    EXPECT_TRUE(contains(nothing.err, "see \"zarn catalog tunings\"")) << nothing.err;
}

TEST(Diagrams, aScoreShowsThoseOfItsChords)
{
    const ToolRun run =
        runTool({QStringLiteral("show"), QStringLiteral("--diagrams"), QStringLiteral("--bars"),
                 QStringLiteral("1-9"), QStringLiteral("--ascii"), romance()});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_TRUE(contains(run.out, "Chords of 1 Classical Guitar")) << run.out;
    EXPECT_TRUE(contains(run.out, "Em             Am             B7\n")) << run.out;
}

} // namespace
