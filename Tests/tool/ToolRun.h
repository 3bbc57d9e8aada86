// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

namespace zarn::test {

/// What one run of the built program did.
struct ToolRun {
    int code = -1; ///< -1 when it did not end by itself
    std::string out;
    std::string err;
};

/// The user's folder for data, for all runs of this process; empty at first.
inline QString dataHome()
{
    static const QTemporaryDir folder;
    return folder.path();
}

/// Runs `zarn` as a user would, in a UTF-8 locale and without a terminal.
inline ToolRun runTool(const QStringList &arguments, const std::string &input = std::string())
{
    constexpr int Patience = 120000;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("COLUMNS"), QStringLiteral("100"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZARN_BINARY_DIR "/bin/zarn"), arguments);
    process.write(QByteArray::fromStdString(input)); // may hold zeros
    process.closeWriteChannel();
    ToolRun run;
    if (process.waitForFinished(Patience) && process.exitStatus() == QProcess::NormalExit)
        run.code = process.exitCode();
    run.out = process.readAllStandardOutput().toStdString();
    run.err = process.readAllStandardError().toStdString();
    return run;
}

inline QString sample(const char *name)
{
    return QStringLiteral(ZARN_SOURCE_DIR "/Samples/") + QLatin1String(name);
}

inline QString romance()
{
    return sample("romance-guitar-study.musicxml");
}

inline QString saints()
{
    return sample("saints-band.musicxml");
}

inline std::string contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll().toStdString();
}

inline void writeFile(const QString &path, const std::string &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(content.c_str(), static_cast<qint64>(content.size()));
}

/// Compares with an output that was looked at and found right. To look at new ones, run the test
/// with ZARN_WRITE_GOLDEN set and read what changed.
inline void expectGolden(const char *name, const std::string &output)
{
    const QString path =
        QStringLiteral(ZARN_SOURCE_DIR "/Tests/tool/golden/") + QLatin1String(name);
    if (qEnvironmentVariableIsSet("ZARN_WRITE_GOLDEN"))
        writeFile(path, output);
    EXPECT_EQ(output, contentOf(path));
}

/// A folder that is gone after the test.
class Folder {
public:
    QString file(const char *name) const { return _folder.filePath(QLatin1String(name)); }

private:
    QTemporaryDir _folder;
};

inline bool contains(const std::string &text, const std::string &part)
{
    return text.find(part) != std::string::npos;
}

/// Whether a text looks like what a crashing or careless program shows to its user.
inline bool hasSourcePlace(const std::string &text)
{
    return contains(text, ".cpp") || contains(text, "func:") || contains(text, "terminate")
        || contains(text, "what()");
}

} // namespace zarn::test
