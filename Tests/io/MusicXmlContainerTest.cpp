// SPDX-License-Identifier: MIT
// Encodings, archives, documents that are refused, and what damage does.
#include "MusicXmlText.h"
#include "ZipWriter.h"

#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QTextCodec>

#include <gtest/gtest.h>

#include <map>
#include <new>
#include <random>

using zarn::io::ImportException;
using zarn::io::ImportReport;
using zarn::io::MusicXmlImporter;

namespace {

QByteArray named(const char *encoding)
{
    auto text = musicxml::score(musicxml::measure(musicxml::note("C", 4, 4, "whole")));
    text.replace(text.find("Music<"), 5, "Fl\xC3\xB6te");
    if (*encoding != '\0')
        text.replace(text.find("?>"), 2, std::string(" encoding=\"") + encoding + "\"?>");
    return QByteArray::fromStdString(text);
}

QByteArray encoded(const char *codec, const QByteArray &utf8, bool mark = false)
{
    QTextEncoder encoder(QTextCodec::codecForName(codec),
                         mark ? QTextCodec::DefaultConversion : QTextCodec::IgnoreHeader);
    return encoder.fromUnicode(QString::fromUtf8(utf8));
}

/// Why the import refuses a document; empty when it does not.
std::string refusal(const QByteArray &bytes)
{
    ImportReport report;
    try {
        scores::import(bytes, report);
    } catch (const ImportException &error) {
        return error.message();
    }
    return {};
}

void expectRefusal(const QByteArray &bytes, const std::string &part)
{
    const auto message = refusal(bytes);
    EXPECT_NE(message.find(part), std::string::npos) << "it said: " << message;
}

QByteArray container(const char *files)
{
    return QByteArray("<container><rootfiles>") + files + "</rootfiles></container>";
}

bool accepts(const QByteArray &bytes)
{
    filesystem::RAMFileSystem files;
    auto writing = files.open("x", filesystem::OpenMode::Write);
    writing->writeBlock(bytes.constData(), bytes.size());
    writing->close();
    return MusicXmlImporter().acceptsHandle(*files.open("x", filesystem::OpenMode::Read));
}

} // namespace

TEST(MusicXmlContainer, aFractionThatNothingCanHoldIsRefusedWithItsMeasure)
{
    std::string music;
    for (const int divisions : {16381, 16369, 16363, 16361, 16349, 16339})
        music += musicxml::attributes("<divisions>" + std::to_string(divisions) + "</divisions>")
            + musicxml::forward(1) + "<note><rest/><duration>5000</duration></note>";
    // A tuplet whose second note lasts for what times its ratio no fraction is.
    const auto eighth = [](const char *duration, const char *ratio, const char *end) {
        return "<note><pitch><step>C</step><octave>4</octave></pitch><duration>"
            + std::string(duration) + "</duration><type>eighth</type><time-modification>" + ratio
            + "</time-modification><notations><tuplet type=\"" + end + "\"/></notations></note>";
    };
    const auto tuplet = musicxml::attributes("<divisions>9999999.97</divisions>")
        + eighth("4999999.985", "<actual-notes>3</actual-notes><normal-notes>2</normal-notes>",
                 "start")
        + eighth("99999999.999999",
                 "<actual-notes>1000003</actual-notes><normal-notes>999983</normal-notes>", "stop");
    for (const auto &content : {music, tuplet}) {
        const auto measures = musicxml::measure("") + "\n\n" + musicxml::measure(content);
        expectRefusal(QByteArray::fromStdString(musicxml::score(measures)),
                      "line 9: The fraction does not fit");
    }
}

TEST(MusicXmlContainer, everyEncodingGivesTheSameName)
{
    const QByteArray marked("\xEF\xBB\xBF");
    const QByteArray documents[] = {named(""),
                                    named("UTF-8"),
                                    marked + named("utf-8"),
                                    encoded("UTF-16LE", named("UTF-16"), true),
                                    encoded("UTF-16BE", named("UTF-16"), true),
                                    encoded("UTF-16LE", named("UTF-16")),
                                    encoded("UTF-16BE", named("UTF-16BE")),
                                    encoded("ISO-8859-1", named("ISO-8859-1")),
                                    encoded("windows-1252", named("windows-1252"))};
    for (const auto &document : documents) {
        ImportReport report;
        const auto model = scores::import(document, report);
        EXPECT_EQ(model->track(0)->name(), "Fl\xC3\xB6te") << document.left(60).toStdString();
        EXPECT_TRUE(report.problems().empty());
        EXPECT_TRUE(accepts(document));
    }
}

TEST(MusicXmlContainer, wrongEncodingsAreAnsweredWithTheirLine)
{
    expectRefusal(encoded("ISO-8859-1", named("UTF-8")),
                  "line 2: the text is not UTF-8 (byte 0xF6)");
    expectRefusal(named("x-klingon"), "the encoding \"X-KLINGON\" is not known");
    expectRefusal(encoded("UTF-16LE", named("UTF-16"), true).chopped(1),
                  "line 7: the text is not UTF-16LE, or it is cut off in a character");
    expectRefusal(named("UTF-8").replace("whole", QByteArray("wh\0le", 5)), "a zero byte");
    ImportReport report;
    EXPECT_TRUE(scores::import(named("UTF-16"), report));
    EXPECT_TRUE(report.hasProblem("the declaration says UTF-16"));
}

TEST(MusicXmlContainer, theMusicXmlRootFileOfAnArchiveIsRead)
{
    ZipWriter zip;
    zip.add("META-INF/container.xml",
            container("<rootfile full-path=\"a.pdf\" media-type=\"application/pdf\"/>"
                      "<rootfile full-path=\"in/score.xml\"/>"
                      "<rootfile full-path=\"part.xml\"/>"));
    zip.add("a.pdf", "no score");
    zip.add("part.xml", "none either"); // comes first among the files, not among the root files
    zip.add("in/score.xml", named("UTF-8"));
    ImportReport report;
    EXPECT_EQ(scores::import(zip.archive(), report)->track(0)->name(), "Fl\xC3\xB6te");
    EXPECT_TRUE(accepts(zip.archive()));
    expectRefusal(zip.archive().left(100), "the archive is damaged");
}

TEST(MusicXmlContainer, archivesThatUnpackToTooMuchAreRefused)
{
    ZipWriter zip;
    zip.add("META-INF/container.xml", container("<rootfile full-path=\"s.xml\"/>"));
    zip.add("s.xml", named("UTF-8") + QByteArray(40 << 20, ' '));
    expectRefusal(zip.archive(), "s.xml: unpacks to more than the");
}

TEST(MusicXmlContainer, contentDecidesWhatIsAccepted)
{
    EXPECT_TRUE(
        accepts("<!-- a --><!DOCTYPE score-partwise [<!ENTITY b \"c\">]><score-partwise/>"));
    EXPECT_TRUE(accepts("<score-timewise version='4.0'>"));
    for (const char *other : {"", "{}", "<opus/>", "MThd", "score-partwise", "<score-partwis"})
        EXPECT_FALSE(accepts(other)) << other;
}

TEST(MusicXmlContainer, aRefusedDocumentLeavesTheScoreAsItWas)
{
    zarn::Score score;
    ASSERT_TRUE(score.createBars(0, 3));
    const auto before = score.scoreModel();
    filesystem::RAMFileSystem files;
    files.open("x", filesystem::OpenMode::Write)->close();
    const auto broken = files.open("x", filesystem::OpenMode::Read);
    ImportReport report;
    EXPECT_THROW(MusicXmlImporter().importScore(*broken, score, report), ImportException);
    EXPECT_EQ(score.scoreModel(), before);
    EXPECT_TRUE(score.commandStack().undoAvailable());

    const auto bytes = named("UTF-8");
    auto writing = files.open("x", filesystem::OpenMode::Write);
    writing->writeBlock(bytes.constData(), bytes.size());
    writing->close();
    const auto whole = files.open("x", filesystem::OpenMode::Read);
    MusicXmlImporter().importScore(*whole, score, report);
    EXPECT_EQ(score.trackCount(), 1u);
    EXPECT_EQ(score.scoreModel()->parentScore(), &score);
    EXPECT_FALSE(score.commandStack().undoAvailable());
    EXPECT_EQ(before->parentScore(), nullptr);
}

TEST(MusicXmlContainer, floodsAreRefusedBeforeTheyFillTheMemory)
{
    std::string parts;
    for (int i = 0; i < 1001; ++i)
        parts += "<part id=\"P1\"><measure/></part>";
    expectRefusal(
        QByteArray::fromStdString("<score-partwise><part-list/>" + parts + "</score-partwise>"),
        "no more than 1000 parts");
    std::string measures = "<measure><attributes><staves>64</staves></attributes></measure>";
    for (int i = 0; i < 20'000; ++i)
        measures += "<measure/>";
    expectRefusal(QByteArray::fromStdString(musicxml::score(measures)), "empty bars");

    // Time that a few bytes pass over becomes place holders.
    std::string gaps;
    for (int bar = 0; bar < 60; ++bar)
        gaps += musicxml::measure(musicxml::forward(60'000) + musicxml::note("C", 4, 1, "quarter"));
    expectRefusal(QByteArray::fromStdString(musicxml::score(gaps)),
                  "test.musicxml: line 23: the score would hold more than");

    const QByteArray start = "<score-partwise><part-list/><part id=\"P1\"><measure>";
    QByteArray tags = start;
    for (int i = 0; i < 1'200'000; ++i)
        tags += "<a/>";
    expectRefusal(tags, "elements, and a document of this size may have no more than 1");
}

TEST(MusicXmlContainer, anEntryThatSaysThatItIsHugeIsRefusedBeforeItIsUnpacked)
{
    ZipWriter zip;
    zip.add("META-INF/container.xml", container("<rootfile full-path=\"s.xml\"/>"));
    zip.add("s.xml", named("UTF-8"));
    auto archive = zip.archive();
    // The last entry of the directory states its size behind its check sum and packed size.
    const int entry = archive.lastIndexOf("PK\x01\x02");
    archive.replace(entry + 24, 4, QByteArray("\xF0\xFF\xFF\xFF", 4));
    expectRefusal(archive, "s.xml: unpacks to more than the");
}

TEST(MusicXmlContainer, memoryThatIsNotThereIsARefusalToo)
{
    class NoMemory final : public filesystem::FileHandle {
    public:
        std::string path() const override { return "big.musicxml"; }
        std::int64_t size() const override { return 1; }
        std::int64_t position() const override { return 0; }

    protected:
        bool doSeek(std::int64_t) override { return true; }
        std::int64_t doRead(void *, std::int64_t) override { throw std::bad_alloc(); }
        std::int64_t doWrite(const void *, std::int64_t) override { return -1; }
        bool doClose() override { return true; }
    };
    NoMemory handle;
    ImportReport report;
    try {
        MusicXmlImporter().read(handle, report);
        FAIL() << "read without memory";
    } catch (const ImportException &error) {
        EXPECT_EQ(error.message(), "big.musicxml: there is not enough memory for the document");
    }
}

TEST(MusicXmlContainer, badDocumentsAreRefusedOrRepairedWithAClearMessage)
{
    SKIP_WITHOUT_SCORES();
    const std::map<std::string, std::string> refused = {
        {"truncated.musicxml", "line 2: the file is cut off"},
        {"empty.musicxml", "the file is empty"},
        {"not-xml.musicxml", "there is no XML element"},
        {"wrong-root.musicxml", "line 1: the root element is <opus>"},
        {"mismatched-tags.musicxml", "line 2: the closing tag </mesure> does not match"},
        {"bad-crc.mxl", "s.xml: cannot be unpacked: CRC error"},
        {"outside-path.mxl", "names a file outside of the archive"},
        {"missing-rootfile.mxl", "names \"other.xml\", which the archive does not hold"}};
    const std::map<std::string, std::string> repaired = {
        {"unknown-part-id.musicxml", "line 2: the part list has no part \"P9\""},
        {"non-numeric.musicxml", "part 1, bar 1, line 2: <divisions> holds no number"},
        {"backup-past-start.musicxml", "goes back past the start of the bar"},
        {"zero-divisions.musicxml", "divisions are not above 0"},
        {"entity-expansion.musicxml", "defines entities; they are not expanded"},
        {"no-container.mxl", "container.xml is missing"}};
    for (const auto &name :
         QDir(scores::folder() + QStringLiteral("/bad")).entryList(QDir::Files)) {
        SCOPED_TRACE(name.toStdString());
        const auto bytes = scores::bytesOf(scores::folder() + QStringLiteral("/bad/") + name);
        if (const auto row = refused.find(name.toStdString()); row != refused.end()) {
            expectRefusal(bytes, row->second);
            continue;
        }
        ImportReport report;
        EXPECT_TRUE(scores::import(bytes, report));
        if (const auto row = repaired.find(name.toStdString()); row != repaired.end()) {
            EXPECT_TRUE(report.hasProblem(row->second));
        }
    }
}

TEST(MusicXmlContainer, noDamageCrashesTheReader)
{
    SKIP_WITHOUT_SCORES();
    // Partly damaged bytes, partly documents that are still XML and no music any more.
    std::mt19937 random(20240711);
    const auto below = [&](int limit) { return static_cast<int>(random() % unsigned(limit)); };
    int imported = 0;
    int refused = 0;
    for (const char *name :
         {"ly-23d-nested-tuplets.xml", "ly-24a-grace.xml", "ly-43d-staff-change.xml",
          "ly-45d-repeats.xml", "ly-71a-chord-names.xml", "osmd-tab-all-effects.musicxml",
          "osmd-utf16le-nested-tuplet.musicxml", "w3c-tutorial-percussion.musicxml",
          "partitura-divisions-per-part.xml", "osmd-haydn-study-tab.mxl"}) {
        const auto whole =
            scores::bytesOf(scores::folder() + QStringLiteral("/musicxml/") + QLatin1String(name));
        ASSERT_FALSE(whole.isEmpty());
        for (int run = 0; run < 40; ++run) {
            auto bytes = whole;
            for (int damage = 1 + below(4); damage > 0; --damage) {
                const int at = below(bytes.size());
                const int element = std::max(bytes.indexOf('<', at), 0);
                const int end = bytes.indexOf('>', element + 1 + below(200));
                switch (below(5)) {
                case 0:
                    bytes[at] = static_cast<char>(below(256));
                    break;
                case 1:
                    bytes.remove(at, below(60));
                    break;
                case 2: // another number
                    for (int i = at; i < bytes.size(); ++i)
                        if (bytes[i] >= '0' && bytes[i] <= '9') {
                            bytes.replace(i, 1, QByteArray::number(below(3) == 0 ? -7 : 99999));
                            break;
                        }
                    break;
                case 3: // an element and what follows, twice
                    if (end > element)
                        bytes.insert(element, bytes.mid(element, end + 1 - element));
                    break;
                default: // a line of the document somewhere else
                    if (end > element)
                        bytes.insert(std::max(bytes.lastIndexOf('\n', below(bytes.size())), 0),
                                     bytes.mid(element, end + 1 - element));
                }
            }
            ImportReport report;
            try {
                scores::import(bytes, report);
                ++imported;
            } catch (const ImportException &error) {
                EXPECT_FALSE(error.reason().empty());
                ++refused;
            }
        }
    }
    EXPECT_GT(imported, 40);
    EXPECT_GT(refused, 40);
}
