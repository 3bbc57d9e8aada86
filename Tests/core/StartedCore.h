// SPDX-License-Identifier: MIT
#pragma once

#include "support/CapturedLog.h"

#include <ZarnCore/ZarnCore.h>
#include <filesystem/DiskFileSystem.h>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zarn::test {

/// Starts the core once for all tests of the program, with a user's folder of its own.
class StartedCore : public testing::Environment {
public:
    void SetUp() override
    {
        qputenv("XDG_DATA_HOME", _userFolder.path().toLocal8Bit());
        const CapturedLog log;
        Core::initialize(&files);
        startLines = log.texts("zarn.core");
    }

    static StartedCore &instance();

    filesystem::DiskFileSystem files;
    /// What the start logged on "zarn.core".
    std::vector<std::string> startLines;

private:
    QTemporaryDir _userFolder;
};

} // namespace zarn::test
