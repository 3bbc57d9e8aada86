// SPDX-License-Identifier: MIT
#pragma once

#include "app/Setup.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <optional>

namespace test {

/// The editor as an application without a display and away from the user's settings. One a process.
class EditorHome {
public:
    EditorHome(int &argc, char **argv) : _application((prepare(_folder), argc), argv)
    {
        QApplication::setQuitOnLastWindowClosed(false); // loops end by themselves
        zarn::editor::nameApplication();
        _setup.emplace();
    }

    QApplication &application() noexcept { return _application; }

private:
    static void prepare(const QTemporaryDir &folder)
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("LC_ALL", "C");
        for (const char *const name :
             {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
            qputenv(name, QFile::encodeName(folder.path()));
    }

    QTemporaryDir _folder;
    QApplication _application;
    std::optional<zarn::editor::Setup> _setup;
};

} // namespace test
