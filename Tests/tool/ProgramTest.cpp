// SPDX-License-Identifier: MIT
#include "ToolRun.h"

#include "common/Program.h"

#include <QDir>

namespace {

using namespace zarn::test;

QStringList words(const char *line)
{
    return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

TEST(Program, helpIsThereForEveryCommandAndGoesToStandardOutput)
{
    const ToolRun general = runTool({QStringLiteral("--help")});
    EXPECT_EQ(general.code, 0);
    for (const char *const name : {"info", "notes", "show", "edit", "convert"}) {
        EXPECT_TRUE(contains(general.out, name));
        const ToolRun byWord = runTool({QStringLiteral("help"), QLatin1String(name)});
        const ToolRun byOption = runTool({QLatin1String(name), QStringLiteral("--help")});
        EXPECT_EQ(byWord.code, 0) << name;
        EXPECT_EQ(byWord.out, byOption.out) << name;
        EXPECT_TRUE(contains(byWord.out, std::string("Usage: zarn ") + name));
        EXPECT_EQ(byOption.err, "");
    }
    EXPECT_EQ(runTool({QStringLiteral("--version")}).code, 0);
}

TEST(Program, wrongUsageIsToldApartFromWrongDocuments)
{
    const char *const misuses[] = {"",
                                   "dance",
                                   "help dance",
                                   "info",
                                   "show",
                                   "notes",
                                   "convert a.zarn",
                                   "show a b",
                                   "show --colour a",
                                   "show --bars",
                                   "edit a -c x -s y"};
    for (const char *const line : misuses) {
        const ToolRun run = runTool(words(line));
        EXPECT_EQ(run.code, 2) << line;
        EXPECT_EQ(run.out, "") << line;
        EXPECT_NE(run.err, "") << line;
        EXPECT_FALSE(hasSourcePlace(run.err)) << run.err;
    }
    for (const char *const bars : {"0", "3-2", "x", "1-2-3", "17-99"})
        EXPECT_EQ(runTool({QStringLiteral("show"), romance(), QStringLiteral("--bars"),
                           QLatin1String(bars)})
                      .code,
                  2)
            << bars;
    EXPECT_EQ(
        runTool({QStringLiteral("show"), romance(), QStringLiteral("--track"), QStringLiteral("2")})
            .code,
        2);
}

TEST(Program, documentsThatCannotBeReadAreNamedWithTheReason)
{
    const Folder folder;
    writeFile(folder.file("broken.musicxml"), "<score-partwise><part-list>\n<broken");
    writeFile(folder.file("broken.zarn"), "{\"format\": 1");
    writeFile(folder.file("text.txt"), "no score at all");
    for (const QString &path :
         {folder.file("missing.zarn"), folder.file("broken.musicxml"), folder.file("broken.zarn"),
          folder.file("text.txt"), folder.file(""), QStringLiteral("")})
        for (const char *const command : {"info", "notes", "show", "edit"}) {
            const ToolRun run = runTool({QLatin1String(command), path});
            EXPECT_EQ(run.code, 1) << command << ' ' << path.toStdString() << run.err;
            EXPECT_EQ(run.err.rfind("zarn: " + path.toStdString(), 0), 0u) << run.err;
            EXPECT_FALSE(hasSourcePlace(run.err)) << run.err;
        }
}

TEST(Program, convertedDocumentsHoldTheSameMusic)
{
    const Folder folder;
    const QString out = folder.file("saints.zarn");
    EXPECT_EQ(runTool({QStringLiteral("convert"), saints(), out}).code, 0);
    EXPECT_EQ(runTool({QStringLiteral("notes"), out}).out,
              runTool({QStringLiteral("notes"), saints()}).out);
    const QString again = folder.file("again.zarn");
    EXPECT_EQ(runTool({QStringLiteral("convert"), out, again}).code, 0);
    EXPECT_EQ(contentOf(again), contentOf(out));
}

TEST(Program, convertingLeavesWhatItMustNotTouch)
{
    const Folder folder;
    const QString score = folder.file("score.zarn");
    ASSERT_EQ(runTool({QStringLiteral("convert"), romance(), score}).code, 0);
    const std::string before = contentOf(score);

    // Onto itself, by another name of the same file.
    QFile::link(score, folder.file("link.zarn"));
    EXPECT_EQ(runTool({QStringLiteral("convert"), score, folder.file("link.zarn")}).code, 1);
    // From a broken document.
    writeFile(folder.file("broken.musicxml"), "<score-partwise");
    EXPECT_EQ(runTool({QStringLiteral("convert"), folder.file("broken.musicxml"), score}).code, 1);
    EXPECT_EQ(contentOf(score), before);
    // Into a format that nobody writes, and into a folder that is not there.
    const ToolRun unknown = runTool({QStringLiteral("convert"), score, folder.file("score.docx")});
    EXPECT_EQ(unknown.code, 1);
    EXPECT_TRUE(contains(unknown.err, ".zarn")) << unknown.err;
    EXPECT_EQ(runTool({QStringLiteral("convert"), score, folder.file("no/such.zarn")}).code, 1);
}

/// On a disk of 64 kB, of which an old file takes the last page.
TEST(Program, aFullDiskIsToldAndLeavesTheOldFile)
{
    const auto inNamespace = [](const QStringList &command) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral("unshare"),
                      QStringList{QStringLiteral("--map-root-user"), QStringLiteral("--mount")}
                          + command);
        constexpr int patience = 120000;
        const bool isRun = process.waitForFinished(patience) && process.exitCode() == 0;
        return isRun ? process.readAll().toStdString() : std::string("not run");
    };
    const Folder folder;
    const QString disk = folder.file("disk");
    ASSERT_TRUE(QDir().mkdir(disk));
    const auto mount = QStringLiteral("mount -t tmpfs -o size=64k none \"$0\"");
    if (inNamespace({QStringLiteral("sh"), QStringLiteral("-c"), mount, disk}) != "")
        GTEST_SKIP() << "nothing can be mounted here";
    for (const char *const kind : {"mxl", "ly", "tab", "mid", "musicxml", "zarn"}) {
        const QString script = mount
            + QStringLiteral(
                  " && cd \"$0\" && head -c 61440 /dev/zero > full && printf old > song.%1"
                  " && ! LC_ALL=C.UTF-8 \"$1\" convert \"$2\" song.%1 && cat song.%1 && ls -A")
                  .arg(QLatin1String(kind));
        EXPECT_EQ(inNamespace({QStringLiteral("sh"), QStringLiteral("-c"), script, disk,
                               QStringLiteral(ZARN_BINARY_DIR "/bin/zarn"), saints()}),
                  std::string("zarn: song.") + kind + ": No space left on device\noldfull\nsong."
                      + kind + '\n');
    }
}

TEST(Program, theManualNamesEveryCommandAndOptionOfTheHelp)
{
    const ToolRun manual = runTool({QStringLiteral("--man-page")});
    EXPECT_EQ(manual.code, 0);
    std::string plain = manual.out;
    for (std::size_t at = 0; (at = plain.find("\\-", at)) != std::string::npos;)
        plain.erase(at, 1);
    for (const zarn::tool::Subcommand &command : zarn::tool::subcommands()) {
        EXPECT_TRUE(contains(plain, ".SS zarn " + command.name.toStdString() + '\n'));
        EXPECT_TRUE(contains(plain, command.summary.toStdString()));
        for (const zarn::tool::Option &option : command.options)
            EXPECT_TRUE(contains(plain, "\\fB--" + option.name.toStdString() + "\\fR"))
                << option.name.toStdString();
    }
    // No line of a text is taken for a request.
    for (const QString &line : QString::fromStdString(manual.out).split(QLatin1Char('\n')))
        EXPECT_TRUE(!line.startsWith(QLatin1Char('.')) || line.at(1).isUpper()
                    || line == QStringLiteral(".nf") || line == QStringLiteral(".fi")
                    || line == QStringLiteral(".br"))
            << line.toStdString();
}

TEST(Program, bashCompletesCommandsOptionsAndWords)
{
    const Folder folder;
    const QString script = folder.file("zarn.bash");
    writeFile(script, runTool({QStringLiteral("--bash-completion")}).out);
    const auto complete = [&script](const char *line) {
        QProcess bash;
        bash.start(
            QStringLiteral("bash"),
            {QStringLiteral("-c"),
             QStringLiteral(". '%1'; COMP_WORDS=(%2); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
                            "_zarn; printf '%s ' \"${COMPREPLY[@]}\"")
                 .arg(script, QString::fromUtf8(line))});
        EXPECT_TRUE(bash.waitForFinished());
        EXPECT_EQ(bash.readAllStandardError().toStdString(), "");
        return bash.readAllStandardOutput().toStdString();
    };
    EXPECT_EQ(complete("zarn sh"), "show ");
    EXPECT_EQ(complete("zarn show --b"), "--bars ");
    EXPECT_EQ(complete("zarn new --track stee"), "steelGuitar ");
    EXPECT_EQ(complete("zarn edit -c remove-be"), "remove-beats ");
    EXPECT_TRUE(contains(complete("zarn help ''"), "catalog"));
}

} // namespace
