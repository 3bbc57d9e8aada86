// SPDX-License-Identifier: MIT
#include "tool/ToolRun.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include <pugixml.hpp>
#include <rapidjson/document.h>

#include <map>
#include <set>
#include <string>

namespace {

using namespace zarn;
using namespace zarn::test;

class DrawTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (runTool({QStringLiteral("help"), QStringLiteral("draw")}).code != 0)
            GTEST_SKIP() << "this build does not draw";
    }

    QString path(const char *name) const { return _folder.filePath(QLatin1String(name)); }

    QStringList files() const { return QDir(_folder.path()).entryList(QDir::Files, QDir::Name); }

    static ToolRun draw(const QString &score, const QString &out, const QStringList &options = {})
    {
        return runTool(QStringList{QStringLiteral("draw"), score, QStringLiteral("-o"), out}
                       + options);
    }

    /// The layout of the guitar study.
    rapidjson::Document dumpWith(const QStringList &options)
    {
        const ToolRun run = draw(romance(), path("pages.json"), options);
        EXPECT_EQ(run.code, 0) << run.err;
        rapidjson::Document dump;
        dump.Parse(contentOf(path("pages.json")).c_str());
        EXPECT_FALSE(dump.HasParseError());
        return dump;
    }

    QTemporaryDir _folder;
};

std::set<std::string> kindsOfStaves(const rapidjson::Document &dump)
{
    std::set<std::string> kinds;
    for (const auto &page : dump["pages"].GetArray())
        for (const auto &system : page["systems"].GetArray())
            for (const auto &staff : system["staves"].GetArray())
                kinds.insert(staff["kind"].GetString());
    return kinds;
}

TEST_F(DrawTest, everyFormatComesFromOneCommand)
{
    const ToolRun pdf = draw(romance(), path("study.pdf"));
    ASSERT_EQ(pdf.code, 0) << pdf.err;
    EXPECT_EQ(pdf.out, path("study.pdf").toStdString() + "\n");
    const std::string content = contentOf(path("study.pdf"));
    EXPECT_EQ(content.substr(0, 5), "%PDF-");
    EXPECT_NE(content.find("Bravura"), std::string::npos);

    ASSERT_EQ(draw(romance(), path("study.png"), {QStringLiteral("--resolution=40")}).code, 0);
    ASSERT_EQ(draw(romance(), path("study.svg")).code, 0);
    for (const QString &name : files())
        EXPECT_GT(QFileInfo(_folder.filePath(name)).size(), 2000) << name.toStdString();
}

/// What is typed by the names of drums has a place on the staff, and a kick is not a hi-hat's.
TEST_F(DrawTest, drumsThatWereTypedStandOnTheirLines)
{
    ASSERT_EQ(
        runTool({QStringLiteral("new"), QStringLiteral("-t"), QStringLiteral("drums"),
                 QStringLiteral("-b"), QStringLiteral("1"), QStringLiteral("-c"),
                 QStringLiteral("write 1:1 \"[kick hihat]q snare kick hihat\""), path("beat.zarn")})
            .code,
        0);
    const ToolRun run = draw(path("beat.zarn"), path("beat.json"));
    ASSERT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    rapidjson::Document dump;
    dump.Parse(contentOf(path("beat.json")).c_str());
    std::set<int> heights;
    for (const auto &mark : dump["marks"].GetArray())
        if (mark["kind"] == "noteHead")
            heights.insert(mark["at"][1].GetInt());
    EXPECT_EQ(heights.size(), 3U);
}

TEST_F(DrawTest, anSvgHasTheFretsOfTheScoreAtTheirPlaces)
{
    ASSERT_EQ(draw(romance(), path("study.svg"),
                   {QStringLiteral("--bars=7-8"), QStringLiteral("--notation=tab")})
                  .code,
              0);
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(contentOf(path("study.svg")).c_str()));
    std::map<std::string, std::string> frets;
    document.find_node([&](const pugi::xml_node &node) {
        if (std::string(node.attribute("data-kind").value()) == "fret")
            frets[node.attribute("data-place").value()] = node.attribute("data-text").value();
        return false;
    });
    // 7th bar: 8 5 5, 7 5 5, 5 5 5 over an open A.
    EXPECT_EQ(frets.size(), 20u);
    EXPECT_EQ(frets["0,6,0,0,0,0"], "8");
    EXPECT_EQ(frets["0,6,0,0,3,0"], "7");
    EXPECT_EQ(frets["0,6,0,1,0,0"], "0");
}

TEST_F(DrawTest, optionsChooseWhatIsDrawnOnWhat)
{
    EXPECT_EQ(kindsOfStaves(dumpWith({QStringLiteral("--notation=staff,tab")})),
              (std::set<std::string>{"notation", "tablature"}));
    EXPECT_EQ(kindsOfStaves(dumpWith({QStringLiteral("--notation=slash")})),
              std::set<std::string>{"slash"});

    const auto small = dumpWith({QStringLiteral("--page=A6"), QStringLiteral("--staff-size=4")});
    EXPECT_EQ(small["pages"][0]["width"].GetDouble(), 105);
    EXPECT_EQ(small["staffSpace"].GetDouble(), 1);
    EXPECT_GT(small["pages"].Size(), 1u);
    EXPECT_EQ(dumpWith({QStringLiteral("--page=300x250.5")})["pages"][0]["height"].GetDouble(),
              250.5);
    EXPECT_EQ(dumpWith({QStringLiteral("--view=scroll")})["pages"].Size(), 1u);
    const auto line = dumpWith({QStringLiteral("--view=line"), QStringLiteral("--bars=1-12")});
    ASSERT_EQ(line["pages"].Size(), 1u);
    // The line comes in parts that stand beside one another.
    unsigned bars = 0;
    for (const auto &part : line["pages"][0]["systems"].GetArray()) {
        bars += part["bars"].Size();
        EXPECT_EQ(part["staves"], line["pages"][0]["systems"][0]["staves"]);
    }
    EXPECT_EQ(bars, 12u);

    ASSERT_EQ(draw(saints(), path("trio.json"), {QStringLiteral("--tracks=2")}).code, 0);
    rapidjson::Document trio;
    trio.Parse(contentOf(path("trio.json")).c_str());
    for (const auto &mark : trio["marks"].GetArray())
        EXPECT_TRUE(mark["place"][0] == 1 || mark["place"][0] == -1) << mark["kind"].GetString();
}

TEST_F(DrawTest, severalPagesAreSeveralFiles)
{
    const QStringList small{QStringLiteral("--page=A6"), QStringLiteral("--resolution=20")};
    const ToolRun run = draw(romance(), path("a.b.svg"), small);
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_GT(files().size(), 1);
    EXPECT_EQ(files().first(), QStringLiteral("a.b-1.svg"));
    EXPECT_EQ(run.out.find(path("a.b-1.svg").toStdString() + " to "), 0u) << run.out;
    ASSERT_EQ(draw(romance(), path("p.png"), small).code, 0);
    EXPECT_TRUE(QFileInfo::exists(path("p-2.png")));

    const QStringList svg = small + QStringList{QStringLiteral("--format=svg")};
    EXPECT_EQ(draw(romance(), QStringLiteral("-"), svg).code, 1);
    const ToolRun one = draw(romance(), QStringLiteral("-"),
                             {QStringLiteral("--format=svg"), QStringLiteral("--bars=1-2")});
    EXPECT_EQ(one.code, 0) << one.err;
    pugi::xml_document document;
    EXPECT_TRUE(document.load_string(one.out.c_str())) << "something else was written too";
}

/// The metadata lie beside the font; a file that is no font is refused with its name.
TEST_F(DrawTest, signsComeFromTheFontThatIsNamed)
{
    const QString fonts = QStringLiteral(ZARN_SOURCE_DIR "/Resources/fonts/");
    const auto draws = [&](const char *out, const QString &font) {
        return draw(romance(), path(out), {QStringLiteral("--font=") + font});
    };
    ASSERT_EQ(draw(romance(), path("plain.svg")).code, 0);
    const ToolRun same = draws("same.svg", fonts + QStringLiteral("bravura/bravura.otf"));
    ASSERT_EQ(same.code, 0) << same.err;
    EXPECT_EQ(same.err.find("music font"), std::string::npos) << same.err;
    EXPECT_EQ(contentOf(path("same.svg")), contentOf(path("plain.svg")));

    const ToolRun words = draws("words.svg", fonts + QStringLiteral("edwin/edwin-roman.otf"));
    EXPECT_EQ(words.code, 0) << words.err;
    EXPECT_NE(words.err.find("no metadata"), std::string::npos) << words.err;
    EXPECT_NE(words.err.find("no glyph \"gClef8vb\""), std::string::npos) << words.err;

    const ToolRun refused = draws("refused.svg", romance());
    EXPECT_EQ(refused.code, 1);
    EXPECT_NE(refused.err.find("no font"), std::string::npos) << refused.err;
    EXPECT_FALSE(QFileInfo::exists(path("refused.svg")));
}

TEST_F(DrawTest, whatCannotBeDrawnLeavesOldFilesWhole)
{
    writeFile(path("old.svg"), "old");
    EXPECT_EQ(draw(path("none.musicxml"), path("old.svg")).code, 1);
    EXPECT_EQ(contentOf(path("old.svg")), "old");
    EXPECT_EQ(draw(romance(), path("no/folder.svg")).code, 1);
    writeFile(path("old.png"), "old");
    const ToolRun huge =
        draw(romance(), path("old.png"),
             {QStringLiteral("--page=5000x5000"), QStringLiteral("--resolution=2400")});
    EXPECT_EQ(huge.code, 1);
    EXPECT_NE(huge.err.find("too large"), std::string::npos) << huge.err;
    EXPECT_EQ(contentOf(path("old.png")), "old");

    const auto misuse = [&](const char *out, const char *option) {
        return draw(romance(), path(out), {QLatin1String(option)}).code;
    };
    for (const auto &[out, option] :
         std::map<const char *, const char *>{{"a.gif", "--bars=1"},
                                              {"a.svg", "--page=A99"},
                                              {"b.svg", "--page=5x5"},
                                              {"c.svg", "--staff-size=zero"},
                                              {"d.svg", "--notation=braille"},
                                              {"e.svg", "--tracks=9"},
                                              {"f.svg", "--tracks=2-1"},
                                              {"g.svg", "--view=tiles"},
                                              {"h.svg", "--format=bmp"},
                                              {"i.svg", "--text=images"},
                                              {"k.svg", "--systems=2"},
                                              {"j.svg", "--bars=0"}})
        EXPECT_EQ(misuse(out, option), 2) << option;
    EXPECT_EQ(runTool({QStringLiteral("draw"), romance()}).code, 2) << "no output was named";
    EXPECT_EQ(files().size(), 2);
}

TEST_F(DrawTest, aPlatformWithoutFontsIsNamed)
{
    qputenv("QT_QPA_PLATFORM", "minimal");
    const ToolRun run = draw(romance(), path("study.pdf"));
    qunsetenv("QT_QPA_PLATFORM");
    EXPECT_EQ(run.code, 1);
    EXPECT_NE(run.err.find("\"minimal\" has no fonts"), std::string::npos) << run.err;
    EXPECT_TRUE(files().isEmpty());
}

} // namespace
