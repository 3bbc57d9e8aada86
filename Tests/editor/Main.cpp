// SPDX-License-Identifier: MIT
#include "app/Setup.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

/// The editor's windows, without a display and away from the user's settings.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C");
    const QTemporaryDir home;
    for (const char *const name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QFile::encodeName(home.path()));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false); // loops end by themselves
    zarn::editor::nameApplication();
    const zarn::editor::Setup setup;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
