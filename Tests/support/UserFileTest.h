// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

namespace zarn::test {

/// A test of a library that keeps what is the user's own in a file: each test has a folder for it.
template <QString (*PathOfFile)()>
class UserFileTest : public testing::Test {
protected:
    UserFileTest() { qputenv("XDG_DATA_HOME", _folder.path().toUtf8()); }
    ~UserFileTest() override { qunsetenv("XDG_DATA_HOME"); }

    static QString path() { return PathOfFile(); }
    static std::string folder() { return QFileInfo(path()).path().toStdString(); }

    static QByteArray read(const QString &path = PathOfFile())
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }

    static void write(const QByteArray &text)
    {
        QDir().mkpath(QFileInfo(path()).path());
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

    /// What lies in the folder, without the common begin of the names: "kept.xml xml".
    static std::string files()
    {
        return QDir(QFileInfo(path()).path())
            .entryList(QDir::Files, QDir::Name)
            .replaceInStrings(QFileInfo(path()).completeBaseName() + QLatin1Char('.'), QString())
            .join(QLatin1Char(' '))
            .toStdString();
    }

    /// The copy of a file that was not understood; later ones have a counter, "-2".
    static QByteArray kept(const QString &counter = QString())
    {
        const QFileInfo file(path());
        return read(QStringLiteral("%1/%2.kept%3.%4")
                        .arg(file.path(), file.completeBaseName(), counter, file.suffix()));
    }

private:
    QTemporaryDir _folder;
};

} // namespace zarn::test
